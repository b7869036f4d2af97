#include "platform/plutil/unicode.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace morvantile::plutil {
namespace {

constexpr char32_t kLastCodePoint = 0x10FFFF;

bool IsHighSurrogate(char32_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
bool IsLowSurrogate(char32_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

char32_t UnitAt(std::string_view units, std::size_t at, std::endian order) {
  const auto first = static_cast<unsigned char>(units[at]);
  const auto second = static_cast<unsigned char>(units[at + 1]);
  return order == std::endian::big ? first * 256U + second : second * 256U + first;
}

void AppendUnit(char32_t unit, std::string& units) {
  units += static_cast<char>(unit >> 8U);
  units += static_cast<char>(unit);
}

void AppendUtf16(char32_t code_point, std::string& units) {
  if (code_point < 0x10000) return AppendUnit(code_point, units);
  AppendUnit(0xD800 + ((code_point - 0x10000) >> 10U), units);
  AppendUnit(0xDC00 + ((code_point - 0x10000) & 0x3FFU), units);
}

// The number of bytes of the UTF-8 sequence that begins with `lead`; 0 if none does.
std::size_t SequenceLength(unsigned char lead) {
  if (lead < 0x80) return 1;
  if (lead < 0xC2) return 0;
  if (lead < 0xE0) return 2;
  if (lead < 0xF0) return 3;
  return lead < 0xF5 ? 4 : 0;
}

// The code point that `text` begins with, removed from it.
std::optional<char32_t> TakeCodePoint(std::string_view& text) {
  constexpr std::array<char32_t, 5> kSmallest = {0, 0, 0x80, 0x800, 0x10000};
  const auto lead = static_cast<unsigned char>(text[0]);
  const std::size_t length = SequenceLength(lead);
  if (length == 0 || length > text.size()) return std::nullopt;
  char32_t code_point = length == 1 ? lead : lead & (0x7FU >> length);
  for (std::size_t i = 1; i < length; ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    if ((byte & 0xC0U) != 0x80) return std::nullopt;
    code_point = (code_point << 6U) | (byte & 0x3FU);
  }
  if (code_point < kSmallest[length] || code_point > kLastCodePoint) return std::nullopt;
  if (IsHighSurrogate(code_point) || IsLowSurrogate(code_point)) return std::nullopt;
  text.remove_prefix(length);
  return code_point;
}

}  // namespace

bool IsAscii(std::string_view text) {
  std::uint64_t bits = 0;
  while (text.size() >= sizeof bits) {
    std::uint64_t piece = 0;
    std::memcpy(&piece, text.data(), sizeof piece);
    bits |= piece;
    text.remove_prefix(sizeof piece);
  }
  for (const char byte : text) bits |= static_cast<unsigned char>(byte);
  return (bits & 0x8080808080808080U) == 0;
}

bool IsUtf8(std::string_view text) {
  if (IsAscii(text)) return true;
  while (!text.empty()) {
    if (!TakeCodePoint(text)) return false;
  }
  return true;
}

bool EqualWithoutCase(std::string_view text, std::string_view lower) {
  const auto to_lower = [](char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
  };
  return std::ranges::equal(text, lower, {}, to_lower);
}

std::optional<std::string> Utf8FromUtf16(std::string_view units, std::endian order) {
  std::string text;
  text.reserve(units.size() / 2);
  if (units.size() % 2 != 0) return std::nullopt;
  for (std::size_t at = 0; at < units.size(); at += 2) {
    char32_t code_point = UnitAt(units, at, order);
    if (IsLowSurrogate(code_point)) return std::nullopt;
    if (IsHighSurrogate(code_point)) {
      at += 2;
      if (at == units.size()) return std::nullopt;
      const char32_t low = UnitAt(units, at, order);
      if (!IsLowSurrogate(low)) return std::nullopt;
      code_point = 0x10000 + ((code_point - 0xD800) << 10U) + (low - 0xDC00);
    }
    AppendUtf8(code_point, text);
  }
  return text;
}

std::optional<std::string> Utf16FromUtf8(std::string_view text) {
  std::string units;
  units.reserve(2 * text.size());
  while (!text.empty()) {
    const std::optional<char32_t> code_point = TakeCodePoint(text);
    if (!code_point) return std::nullopt;
    AppendUtf16(*code_point, units);
  }
  return units;
}

void AppendUtf8(char32_t code_point, std::string& text) {
  const auto continuation = [&](unsigned shift) {
    text += static_cast<char>(0x80U | ((code_point >> shift) & 0x3FU));
  };
  if (code_point < 0x80) {
    text += static_cast<char>(code_point);
  } else if (code_point < 0x800) {
    text += static_cast<char>(0xC0U | (code_point >> 6U));
    continuation(0);
  } else if (code_point < 0x10000) {
    text += static_cast<char>(0xE0U | (code_point >> 12U));
    continuation(6);
    continuation(0);
  } else {
    text += static_cast<char>(0xF0U | (code_point >> 18U));
    continuation(12);
    continuation(6);
    continuation(0);
  }
}

}  // namespace morvantile::plutil
