#include "second_reader.h"

#include <plist/plist.h>

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <set>

namespace {

struct Reading {
  std::string text;
  bool isReliable = true;  // nothing in it that libplist reads differently from the two forms
};

void Describe(plist_t node, Reading& reading);

std::string Hex(const char* bytes, std::uint64_t size) {
  static constexpr char kDigits[] = "0123456789abcdef";
  std::string text;
  for (std::uint64_t i = 0; i < size; ++i) {
    const auto byte = static_cast<unsigned char>(bytes[i]);
    text += {kDigits[byte >> 4U], kDigits[byte & 15U]};
  }
  return text;
}

void DescribeDict(plist_t node, Reading& reading) {
  std::set<std::string> keys;
  plist_dict_iter iterator = nullptr;
  plist_dict_new_iter(node, &iterator);
  const std::unique_ptr<void, decltype(&std::free)> keeper(iterator, std::free);
  reading.text += '{';
  for (;;) {
    char* key = nullptr;
    plist_t value = nullptr;
    plist_dict_next_item(node, iterator, &key, &value);
    if (value == nullptr) break;
    reading.text += '"' + std::string(key) + "\": ";
    if (!keys.insert(key).second) reading.isReliable = false;
    std::free(key);
    Describe(value, reading);
    reading.text += ", ";
  }
  reading.text += '}';
}

void DescribeArray(plist_t node, Reading& reading) {
  reading.text += '[';
  for (std::uint32_t i = 0; i < plist_array_get_size(node); ++i) {
    Describe(plist_array_get_item(node, i), reading);
    reading.text += ", ";
  }
  reading.text += ']';
}

void DescribeScalar(plist_t node, std::string& text) {
  switch (plist_get_node_type(node)) {
    case PLIST_BOOLEAN: {
      std::uint8_t value = 0;
      plist_get_bool_val(node, &value);
      text += value != 0 ? "true" : "false";
      break;
    }
    case PLIST_UINT: {
      std::uint64_t value = 0;
      plist_get_uint_val(node, &value);
      text += std::to_string(value);
      break;
    }
    case PLIST_REAL: {
      double value = 0;
      plist_get_real_val(node, &value);
      text += "real " + std::to_string(value);
      break;
    }
    case PLIST_DATE: {
      std::int32_t seconds = 0;
      std::int32_t microseconds = 0;
      plist_get_date_val(node, &seconds, &microseconds);
      // It cuts the fraction of a second off towards 2001, and keeps 32 bits.
      text += seconds > 0 ? "date " + std::to_string(seconds) : "date";
      break;
    }
    case PLIST_DATA: {
      std::uint64_t size = 0;
      const char* bytes = plist_get_data_ptr(node, &size);
      text += "data " + Hex(bytes, size);
      break;
    }
    case PLIST_STRING: {
      std::uint64_t size = 0;
      const char* bytes = plist_get_string_ptr(node, &size);
      text += '"' + std::string(bytes, size) + '"';
      break;
    }
    case PLIST_UID: {
      std::uint64_t value = 0;
      plist_get_uid_val(node, &value);
      text += "{\"CF$UID\": " + std::to_string(value) + ", }";  // as it is in XML
      break;
    }
    default:
      text += "?";
  }
}

void Describe(plist_t node, Reading& reading) {
  switch (plist_get_node_type(node)) {
    case PLIST_DICT:
      return DescribeDict(node, reading);
    case PLIST_ARRAY:
      return DescribeArray(node, reading);
    default:
      DescribeScalar(node, reading.text);
  }
}

}  // namespace

std::optional<std::string> SecondReading(const std::string& file) {
  plist_t root = nullptr;
  const auto size = static_cast<std::uint32_t>(file.size());
  if (plist_is_binary(file.data(), size) != 0) {
    plist_from_bin(file.data(), size, &root);
  } else {
    plist_from_xml(file.data(), size, &root);
  }
  if (root == nullptr) return std::nullopt;
  Reading reading;
  Describe(root, reading);
  plist_free(root);
  if (!reading.isReliable) return std::nullopt;
  return reading.text;
}

// It leaks what it has read of a file that it then refuses.
extern "C" const char* __lsan_default_suppressions() { return "leak:libplist"; }
