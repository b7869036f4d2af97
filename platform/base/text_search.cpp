#include "platform/base/text_search.h"

#include <cstring>

#include "platform/base/folding.h"

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

}  // namespace morvantile
