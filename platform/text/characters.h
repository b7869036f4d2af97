// The characters of a text in UTF-8.

#ifndef MORVANTILE_PLATFORM_TEXT_CHARACTERS_H
#define MORVANTILE_PLATFORM_TEXT_CHARACTERS_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace morvantile {

// A character of a text in UTF-8. A byte that is no part of valid UTF-8 counts as one character of
// its own, whose code is kStrayByte more than the byte.
struct Character {
  std::uint32_t code;
  std::size_t length;  // in bytes
};

inline constexpr std::uint32_t kStrayByte = 0x110000;

// The character that begins at byte `at` of `text`, which must lie inside it.
Character CharacterAt(std::string_view text, std::size_t at);

// Whether `code` is a code point that a text can hold: 0 to 10FFFF without the surrogates.
inline bool IsCodePoint(std::int64_t code) {
  return code >= 0 && code <= 0x10FFFF && !(code >= 0xD800 && code < 0xE000);
}

// Adds the UTF-8 form of a code point.
void AppendCharacter(std::uint32_t code, std::string& text);

inline bool IsAscii(char byte) { return static_cast<unsigned char>(byte) < 0x80; }

// Whether all bytes of `text` are ASCII characters.
bool IsAscii(std::string_view text);

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_TEXT_CHARACTERS_H
