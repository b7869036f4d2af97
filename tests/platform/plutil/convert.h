// Conversions in memory, and property lists in either form, for tests.

#ifndef MORVANTILE_TESTS_PLATFORM_PLUTIL_CONVERT_H
#define MORVANTILE_TESTS_PLATFORM_PLUTIL_CONVERT_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/plutil/conversion.h"

namespace morvantile::plutil {

// The result of a conversion, or "failed: " and what is wrong.
inline std::string Converted(std::string content, Form form) {
  std::string result;
  const auto problem = Convert(content, form, [&](std::string_view bytes) { result += bytes; });
  return problem ? "failed: " + *problem : result;
}

inline std::string ToXml(std::string content) { return Converted(std::move(content), Form::kXml); }
inline std::string ToBinary(std::string content) {
  return Converted(std::move(content), Form::kBinary);
}

inline bool Failed(std::string_view result) { return result.starts_with("failed: "); }

// The XML property list of `elements` as the converter writes it.
inline std::string XmlFile(std::string_view elements) {
  std::string file =
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
      "<!DOCTYPE plist PUBLIC \"-//Apple Computer//DTD PLIST 1.0//EN\" "
      "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
      "<plist version=\"1.0\">\n";
  return file.append(elements).append("</plist>\n");
}

inline std::string BigEndian(std::uint64_t value, std::size_t width) {
  std::string bytes(width, '\0');
  for (std::size_t i = width; i-- > 0; value >>= 8U) bytes[i] = static_cast<char>(value);
  return bytes;
}

// Bytes from a text of hexadecimal digits and blanks.
inline std::string Hex(std::string digits) {
  std::erase(digits, ' ');
  std::string bytes;
  for (std::size_t i = 0; i < digits.size(); i += 2) {
    bytes += static_cast<char>(std::stoi(digits.substr(i, 2), nullptr, 16));
  }
  return bytes;
}

// A binary property list of `objects`, the first of them topmost; widths are those of an offset and
// a reference.
inline std::string BinaryFile(const std::vector<std::string>& objects, std::size_t offset_width = 1,
                              std::size_t reference_width = 1) {
  std::string file = "bplist00";
  std::string offsets;
  for (const std::string& object : objects) {
    offsets += BigEndian(file.size(), offset_width);
    file += object;
  }
  const std::size_t table = file.size();
  return file + offsets + std::string(6, '\0') + BigEndian(offset_width, 1) +
         BigEndian(reference_width, 1) + BigEndian(objects.size(), 8) + BigEndian(0, 8) +
         BigEndian(table, 8);
}

}  // namespace morvantile::plutil

#endif  // MORVANTILE_TESTS_PLATFORM_PLUTIL_CONVERT_H
