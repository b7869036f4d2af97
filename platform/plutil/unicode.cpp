#include "platform/plutil/unicode.h"

#include <cstddef>
#include <cstdint>

#include "platform/text/characters.h"

namespace morvantile::plutil {
namespace {

bool IsHighSurrogate(std::uint32_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
bool IsLowSurrogate(std::uint32_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

std::uint32_t UnitAt(std::string_view units, std::size_t at, std::endian order) {
  const auto first = static_cast<unsigned char>(units[at]);
  const auto second = static_cast<unsigned char>(units[at + 1]);
  return order == std::endian::big ? first * 256U + second : second * 256U + first;
}

void AppendUnit(std::uint32_t unit, std::string& units) {
  units += static_cast<char>(unit >> 8U);
  units += static_cast<char>(unit);
}

void AppendUtf16(std::uint32_t code_point, std::string& units) {
  if (code_point < 0x10000) return AppendUnit(code_point, units);
  AppendUnit(0xD800 + ((code_point - 0x10000) >> 10U), units);
  AppendUnit(0xDC00 + ((code_point - 0x10000) & 0x3FFU), units);
}

}  // namespace

bool IsUtf8(std::string_view text) {
  if (IsAscii(text)) return true;
  for (std::size_t at = 0; at < text.size();) {
    const Character character = CharacterAt(text, at);
    if (character.code >= kStrayByte) return false;
    at += character.length;
  }
  return true;
}

std::optional<std::string> Utf8FromUtf16(std::string_view units, std::endian order) {
  std::string text;
  text.reserve(units.size() / 2);
  if (units.size() % 2 != 0) return std::nullopt;
  for (std::size_t at = 0; at < units.size(); at += 2) {
    std::uint32_t code_point = UnitAt(units, at, order);
    if (IsLowSurrogate(code_point)) return std::nullopt;
    if (IsHighSurrogate(code_point)) {
      at += 2;
      if (at == units.size()) return std::nullopt;
      const std::uint32_t low = UnitAt(units, at, order);
      if (!IsLowSurrogate(low)) return std::nullopt;
      code_point = 0x10000 + ((code_point - 0xD800) << 10U) + (low - 0xDC00);
    }
    AppendCharacter(code_point, text);
  }
  return text;
}

std::optional<std::string> Utf16FromUtf8(std::string_view text) {
  std::string units;
  units.reserve(2 * text.size());
  for (std::size_t at = 0; at < text.size();) {
    const Character character = CharacterAt(text, at);
    if (character.code >= kStrayByte) return std::nullopt;
    AppendUtf16(character.code, units);
    at += character.length;
  }
  return units;
}

}  // namespace morvantile::plutil
