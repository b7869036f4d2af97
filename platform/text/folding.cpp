#include "platform/text/folding.h"

#include <utf8proc.h>

#include <array>

#include "platform/core/byte_hash.h"
#include "platform/text/characters.h"

namespace morvantile {
namespace {

constexpr std::uint64_t kHighBits = 0x8080808080808080;

char FoldedAscii(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }

// The full folding where that is one character, else the lower-case form: of the letters whose full
// folding is longer, those with a simple folding have just that one, and the others have none but
// the dotted I, which keeps itself.
std::uint32_t FoldedCode(std::uint32_t code) {
  constexpr std::uint32_t kCapitalIWithDot = 0x130;
  if (code >= kStrayByte || code == kCapitalIWithDot) return code;
  const auto point = static_cast<utf8proc_int32_t>(code);
  std::array<utf8proc_int32_t, 8> folded{};
  int last_class = 0;
  const utf8proc_ssize_t length =
      utf8proc_decompose_char(point, folded.data(), static_cast<utf8proc_ssize_t>(folded.size()),
                              UTF8PROC_CASEFOLD, &last_class);
  return static_cast<std::uint32_t>(length == 1 ? folded[0] : utf8proc_tolower(point));
}

// How much of two texts, from their beginning, has the same folding.
struct Common {
  std::size_t in_a = 0;
  std::size_t in_b = 0;
};

Common CommonFolding(std::string_view a, std::string_view b) {
  Common common;
  while (common.in_a < a.size() && common.in_b < b.size()) {
    const char from_a = a[common.in_a];
    const char from_b = b[common.in_b];
    if (IsAscii(from_a) && IsAscii(from_b)) {
      if (FoldedAscii(from_a) != FoldedAscii(from_b)) return common;
      ++common.in_a;
      ++common.in_b;
    } else {
      const Character character_of_a = CharacterAt(a, common.in_a);
      const Character character_of_b = CharacterAt(b, common.in_b);
      if (FoldedCode(character_of_a.code) != FoldedCode(character_of_b.code)) return common;
      common.in_a += character_of_a.length;
      common.in_b += character_of_b.length;
    }
  }
  return common;
}

// The capital ASCII letters among the eight bytes in small; the other bytes stay.
std::uint64_t FoldedAsciiWord(std::uint64_t word) {
  constexpr std::uint64_t kOnes = 0x0101010101010101;
  const std::uint64_t low = word & ~kHighBits;
  const std::uint64_t from_a = low + kOnes * (0x80 - 'A');
  const std::uint64_t above_z = low + kOnes * (0x7F - 'Z');
  return word | ((~word & (from_a ^ above_z) & kHighBits) >> 2);
}

}  // namespace

std::string Folded(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    if (IsAscii(text[at])) {
      result += FoldedAscii(text[at++]);
    } else {
      const Character character = CharacterAt(text, at);
      const std::uint32_t folded = FoldedCode(character.code);
      if (folded == character.code) {
        result.append(text, at, character.length);
      } else {
        AppendCharacter(folded, result);
      }
      at += character.length;
    }
  }
  return result;
}

bool SameFolding(std::string_view a, std::string_view b) {
  const Common common = CommonFolding(a, b);
  return common.in_a == a.size() && common.in_b == b.size();
}

std::size_t LengthOfFoldedPrefix(std::string_view text, std::string_view part) {
  const Common common = CommonFolding(text, part);
  return common.in_b == part.size() ? common.in_a : 0;
}

std::uint32_t HashOfText(std::string_view text) {
  std::uint64_t seen = 0;
  const auto fold = [&](std::uint64_t word) {
    seen |= word;
    return FoldedAsciiWord(word);
  };
  const std::uint32_t hash = HashOfBytes(text, fold);
  return (seen & kHighBits) == 0 ? hash : HashOfBytes(Folded(text), fold);
}

}  // namespace morvantile
