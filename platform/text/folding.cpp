#include "platform/text/folding.h"

#include <utf8proc.h>

#include <array>
#include <cstring>
#include <random>

namespace morvantile {
namespace {

constexpr std::uint64_t kHighBits = 0x8080808080808080;

char FoldedAscii(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }

bool IsAscii(char c) { return static_cast<unsigned char>(c) < 0x80; }

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

void AppendFolded(std::string& result, std::string_view text, Character character, std::size_t at) {
  const std::uint32_t folded = FoldedCode(character.code);
  if (folded == character.code) {
    result.append(text, at, character.length);
    return;
  }
  std::array<utf8proc_uint8_t, 4> bytes{};
  const utf8proc_ssize_t length =
      utf8proc_encode_char(static_cast<utf8proc_int32_t>(folded), bytes.data());
  for (utf8proc_ssize_t i = 0; i < length; ++i) {
    result += static_cast<char>(bytes[static_cast<std::size_t>(i)]);
  }
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

template <typename Word>
std::uint64_t Load(const char* bytes) {
  Word word;
  std::memcpy(&word, bytes, sizeof word);
  return word;
}

// The capital ASCII letters among the eight bytes in small; the other bytes stay.
std::uint64_t FoldedAsciiWord(std::uint64_t word) {
  constexpr std::uint64_t kOnes = 0x0101010101010101;
  const std::uint64_t low = word & ~kHighBits;
  const std::uint64_t from_a = low + kOnes * (0x80 - 'A');
  const std::uint64_t above_z = low + kOnes * (0x7F - 'Z');
  return word | ((~word & (from_a ^ above_z) & kHighBits) >> 2);
}

std::uint64_t Mixed(std::uint64_t a, std::uint64_t b) {
  __extension__ using Product = unsigned __int128;
  const Product product = static_cast<Product>(a) * b;
  return static_cast<std::uint64_t>(product) ^ static_cast<std::uint64_t>(product >> 64);
}

std::uint64_t Seed() {
  static const std::uint64_t seed = [] {
    std::random_device random;
    return (std::uint64_t{random()} << 32) | random();
  }();
  return seed;
}

struct AsciiHash {
  std::uint32_t hash;
  bool is_ascii;
};

// The hash of `text` with its capital ASCII letters in small, after the manner of wyhash: sixteen
// bytes at a time, the last of them once more where the length is no multiple.
AsciiHash HashOfAsciiFolding(std::string_view text) {
  constexpr std::uint64_t kFactor = 0x9E3779B97F4A7C15;
  const char* bytes = text.data();
  std::size_t left = text.size();
  std::uint64_t state = Seed() ^ left;
  std::uint64_t seen = 0;
  const auto add = [&](std::uint64_t first, std::uint64_t second) {
    seen |= first | second;
    state = Mixed(state ^ FoldedAsciiWord(first), kFactor ^ FoldedAsciiWord(second));
  };
  for (; left > 16; left -= 16, bytes += 16) {
    add(Load<std::uint64_t>(bytes), Load<std::uint64_t>(bytes + 8));
  }
  if (left >= 8) {
    add(Load<std::uint64_t>(bytes), Load<std::uint64_t>(bytes + left - 8));
  } else if (left >= 4) {
    add(Load<std::uint32_t>(bytes), Load<std::uint32_t>(bytes + left - 4));
  } else if (left > 0) {
    add(Load<std::uint8_t>(bytes) | Load<std::uint8_t>(bytes + left / 2) << 8,
        Load<std::uint8_t>(bytes + left - 1));
  }
  state = Mixed(state, kFactor);
  return {static_cast<std::uint32_t>(state ^ (state >> 32)), (seen & kHighBits) == 0};
}

}  // namespace

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

std::string Folded(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    if (IsAscii(text[at])) {
      result += FoldedAscii(text[at++]);
    } else {
      const Character character = CharacterAt(text, at);
      AppendFolded(result, text, character, at);
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
  const AsciiHash ascii = HashOfAsciiFolding(text);
  return ascii.is_ascii ? ascii.hash : HashOfAsciiFolding(Folded(text)).hash;
}

}  // namespace morvantile
