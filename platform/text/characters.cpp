#include "platform/text/characters.h"

#include <utf8proc.h>

#include <array>

namespace morvantile {

Character CharacterAt(std::string_view text, std::size_t at) {
  const auto byte = static_cast<unsigned char>(text[at]);
  if (byte < 0x80) return {byte, 1};
  utf8proc_int32_t code = 0;
  const utf8proc_ssize_t length =
      utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t*>(text.data()) + at,
                       static_cast<utf8proc_ssize_t>(text.size() - at), &code);
  if (length <= 0) return {kStrayByte + byte, 1};
  return {static_cast<std::uint32_t>(code), static_cast<std::size_t>(length)};
}

void AppendCharacter(std::uint32_t code, std::string& text) {
  std::array<utf8proc_uint8_t, 4> bytes{};
  const utf8proc_ssize_t length =
      utf8proc_encode_char(static_cast<utf8proc_int32_t>(code), bytes.data());
  text.append(bytes.begin(), bytes.begin() + length);
}

// Without a branch, so that the compiler takes many bytes at a time.
bool IsAscii(std::string_view text) {
  unsigned char bits = 0;
  for (const char byte : text) bits |= static_cast<unsigned char>(byte);
  return bits < 0x80;
}

}  // namespace morvantile
