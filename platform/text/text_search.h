// Searching a text without regard to letter case.

#ifndef MORVANTILE_PLATFORM_TEXT_TEXT_SEARCH_H
#define MORVANTILE_PLATFORM_TEXT_TEXT_SEARCH_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace morvantile {

// Walks the occurrences of a part in a text, which must outlive it. The part occurs where the
// characters are the same to SameText; an empty one occurs nowhere. Takes time linear in the text.
class Occurrences {
 public:
  Occurrences(std::string_view text, std::string_view part);

  // Goes to the first occurrence that begins at the end of the current one or behind it; false if
  // there is none. Before the first call the current one is the empty piece in front of the text.
  bool Next();

  // Makes the empty piece `count` characters further on the current one.
  void SkipCharacters(std::int64_t count);

  // Where the current occurrence begins and ends, in bytes, and its position in characters.
  [[nodiscard]] std::size_t Begin() const { return begin_.text; }
  [[nodiscard]] std::size_t End() const { return end_.text; }
  [[nodiscard]] std::int64_t Position() const { return begin_.characters + 1; }

 private:
  // The same place in the text and in its folding, which map one character to one.
  struct Place {
    std::size_t text = 0;
    std::size_t folded = 0;
    std::int64_t characters = 0;
  };

  void Step(Place& place) const;
  void WalkTo(Place& place, std::size_t folded) const;

  std::string_view text_;
  std::string folded_text_;
  std::string folded_part_;
  Place begin_;
  Place end_;
};

// A part that is looked for in many texts.
class TextPattern {
 public:
  explicit TextPattern(std::string_view part);

  // Whether the part occurs in the text, as Occurrences finds it; an empty one occurs in every
  // text. Takes time linear in the text.
  [[nodiscard]] bool OccursIn(std::string_view text) const;

 private:
  std::string part_;
  std::string folded_part_;
  bool is_ascii_;
};

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_TEXT_TEXT_SEARCH_H
