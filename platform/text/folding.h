// Texts compared without regard to letter case.

#ifndef MORVANTILE_PLATFORM_TEXT_FOLDING_H
#define MORVANTILE_PLATFORM_TEXT_FOLDING_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace morvantile {

// `text` in lower case, roughly: the simple case folding of Unicode (CaseFolding.txt, the mappings
// C and S), which is the same for all cases of a letter. It maps one character to one, so that "ß"
// stays "ß" and differs from "ss". Stray bytes stay as they are.
std::string Folded(std::string_view text);

// Whether the two, which are not equal, have the same folding.
bool SameFolding(std::string_view a, std::string_view b);

// True only if the first ASCII letters already differ.
inline bool BeginOtherwise(std::string_view a, std::string_view b) {
  if (a.empty() || b.empty()) return false;
  const auto of_a = static_cast<unsigned char>(a[0]);
  const auto of_b = static_cast<unsigned char>(b[0]);
  return (of_a | of_b) < 0x80 && ((of_a ^ of_b) & ~('a' - 'A')) != 0;
}

// Whether the two have the same folding.
inline bool SameText(std::string_view a, std::string_view b) {
  return a == b || (!BeginOtherwise(a, b) && SameFolding(a, b));
}

// How many bytes at the beginning of `text`, which doesn't begin with `part` itself, have the
// folding of `part`; 0 if it doesn't begin so.
std::size_t LengthOfFoldedPrefix(std::string_view text, std::string_view part);

// How many bytes at the beginning of `text` have the folding of `part`; 0 if it doesn't begin so.
inline std::size_t LengthOfPrefix(std::string_view text, std::string_view part) {
  return text.starts_with(part) ? part.size() : LengthOfFoldedPrefix(text, part);
}

// Whether a text that begins with this byte can be the same to SameText as one that begins with
// that small ASCII letter: a quick no for most.
inline bool MayBeLetter(char byte, char small) {
  return (byte | ('a' - 'A')) == small || static_cast<unsigned char>(byte) >= 0x80;
}

// A hash of the folding of `text`: the same for all texts that are the same to SameText. It differs
// from one run of the program to the next.
std::uint32_t HashOfText(std::string_view text);

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_TEXT_FOLDING_H
