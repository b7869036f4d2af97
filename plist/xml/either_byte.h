#ifndef MORVANTILE_PLIST_XML_EITHER_BYTE_H
#define MORVANTILE_PLIST_XML_EITHER_BYTE_H

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace morvantile {

// Whether one of two bytes is in the text. Made for short texts: it looks at eight bytes at a
// time (https://graphics.stanford.edu/~seander/bithacks.html#ZeroInWord), without a call.
inline bool HasEither(std::string_view text, char a, char b) {
  constexpr std::uint64_t kOnes = 0x0101010101010101;
  constexpr std::uint64_t kHighBits = kOnes << 7;
  const char* bytes = text.data();
  const std::size_t size = text.size();
  if (size < sizeof(std::uint64_t)) {
    bool found = false;
    for (std::size_t i = 0; i < size; ++i) found |= bytes[i] == a || bytes[i] == b;
    return found;
  }
  const std::uint64_t all_a = kOnes * static_cast<unsigned char>(a);
  const std::uint64_t all_b = kOnes * static_cast<unsigned char>(b);
  std::uint64_t found = 0;
  const auto look_at = [&](const char* at) {
    std::uint64_t word = 0;
    std::memcpy(&word, at, sizeof word);
    const std::uint64_t of_a = word ^ all_a;
    const std::uint64_t of_b = word ^ all_b;
    found |= (((of_a - kOnes) & ~of_a) | ((of_b - kOnes) & ~of_b)) & kHighBits;
  };
  for (std::size_t at = 0; at + sizeof(std::uint64_t) <= size; at += sizeof(std::uint64_t)) {
    look_at(bytes + at);
  }
  look_at(bytes + size - sizeof(std::uint64_t));
  return found != 0;
}

}  // namespace morvantile

#endif  // MORVANTILE_PLIST_XML_EITHER_BYTE_H
