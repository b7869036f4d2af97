#include "platform/text/text_search.h"

#include <array>
#include <cstring>

#include "platform/text/characters.h"
#include "platform/text/folding.h"

namespace morvantile {
namespace {

// In linear time, whatever the texts are; std::string::find takes their product.
std::size_t Find(const std::string& text, const std::string& part, std::size_t from) {
  if (from > text.size()) return std::string::npos;
  const void* const found =
      memmem(text.data() + from, text.size() - from, part.data(), part.size());
  if (found == nullptr) return std::string::npos;
  return static_cast<std::size_t>(static_cast<const char*>(found) - text.data());
}

// A short piece of text of ASCII characters alone, folded.
class ShortAscii {
 public:
  static constexpr std::size_t kLongest = 256;

  // Takes a text of at most kLongest bytes; returns whether it is one of ASCII characters alone.
  bool Fold(std::string_view text) {
    unsigned char seen = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
      const auto byte = static_cast<unsigned char>(text[i]);
      seen |= byte;
      bytes_[i] = static_cast<char>(byte + (byte >= 'A' && byte <= 'Z' ? 'a' - 'A' : 0));
    }
    size_ = text.size();
    return seen < 0x80;
  }

  // Looks for a folded part that isn't empty. Tries each place where it might begin: over a short
  // text that is fast enough.
  [[nodiscard]] bool Holds(std::string_view part) const {
    if (part.size() > size_) return false;
    const char* at = bytes_.data();
    const char* const last = at + (size_ - part.size());
    while (at <= last) {
      const auto left = static_cast<std::size_t>(last - at) + 1;
      at = static_cast<const char*>(std::memchr(at, part[0], left));
      if (at == nullptr) return false;
      if (std::memcmp(at, part.data(), part.size()) == 0) return true;
      ++at;
    }
    return false;
  }

 private:
  std::array<char, kLongest> bytes_;
  std::size_t size_ = 0;
};

}  // namespace

Occurrences::Occurrences(std::string_view text, std::string_view part)
    : text_(text), folded_text_(Folded(text)), folded_part_(Folded(part)) {}

// A part that is found in the middle of a character, which takes stray bytes, doesn't count.
bool Occurrences::Next() {
  if (folded_part_.empty()) return false;
  std::size_t found = end_.folded;
  while ((found = Find(folded_text_, folded_part_, found)) != std::string::npos) {
    begin_ = end_;
    WalkTo(begin_, found);
    end_ = begin_;
    WalkTo(end_, found + folded_part_.size());
    if (begin_.folded == found && end_.folded == found + folded_part_.size()) return true;
    end_ = begin_;
    ++found;
  }
  return false;
}

void Occurrences::SkipCharacters(std::int64_t count) {
  for (; count > 0 && end_.text < text_.size(); --count) Step(end_);
}

void Occurrences::Step(Place& place) const {
  place.text += CharacterAt(text_, place.text).length;
  place.folded += CharacterAt(folded_text_, place.folded).length;
  ++place.characters;
}

void Occurrences::WalkTo(Place& place, std::size_t folded) const {
  while (place.folded < folded) Step(place);
}

TextPattern::TextPattern(std::string_view part)
    : part_(part), folded_part_(Folded(part)), is_ascii_(IsAscii(folded_part_)) {}

bool TextPattern::OccursIn(std::string_view text) const {
  if (part_.empty()) return true;
  if (text.size() <= ShortAscii::kLongest) {
    ShortAscii folded;
    if (folded.Fold(text)) return is_ascii_ && folded.Holds(folded_part_);
  }
  return Occurrences(text, part_).Next();
}

}  // namespace morvantile
