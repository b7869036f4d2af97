// The type word of a key.

#ifndef MORVANTILE_PLIST_STORE_TYPE_WORD_H
#define MORVANTILE_PLIST_STORE_TYPE_WORD_H

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/text/folding.h"
#include "platform/text/text.h"

namespace morvantile {

// A type word in eight bytes. The words that the library itself stores take no other memory; any
// other, which a file may bring, is on the heap.
class TypeWord {
 public:
  // The words that a property list usually has.
  enum Known : std::uint8_t {
    kNone,
    kString,
    kInteger,
    kReal,
    kBoolean,
    kDate,
    kData,
    kDict,
    kArray
  };

  TypeWord() = default;
  explicit TypeWord(Known known) : word_(&kKnown[known]) {}
  explicit TypeWord(std::string_view word) {
    for (const Word& known : kKnown) {
      if (word != known.view) continue;
      word_ = &known;
      return;
    }
    word_ = new OwnWord(word);
  }
  TypeWord(const TypeWord& other)
      : word_(other.IsKnown() ? other.word_ : new OwnWord(other.View())) {}
  TypeWord(TypeWord&& other) noexcept : word_(std::exchange(other.word_, kKnown.data())) {}
  TypeWord& operator=(TypeWord other) noexcept {
    std::swap(word_, other.word_);
    return *this;
  }
  ~TypeWord() {
    if (!IsKnown()) delete static_cast<const OwnWord*>(word_);
  }

  // Whether the word is `known`, without regard to letter case.
  [[nodiscard]] bool Is(Known known) const {
    return IsKnown() ? word_ == &kKnown[known] : SameText(View(), kKnown[known].view);
  }

  // Whether the word is that of a dict or an array.
  [[nodiscard]] bool IsContainer() const { return Is(kDict) || Is(kArray); }

  // The word; the bytes belong to the object and go with it.
  [[nodiscard]] std::string_view View() const { return word_->view; }

 private:
  struct Word {
    std::string_view view;
  };
  // One that is on the heap.
  struct OwnWord : Word {
    explicit OwnWord(std::string_view word) : text(word) { view = text; }
    std::string text;
  };

  static constexpr std::array<Word, 9> kKnown = {{{""},
                                                  {"string"},
                                                  {"integer"},
                                                  {"real"},
                                                  {"boolean"},
                                                  {"date"},
                                                  {"data"},
                                                  {"dict"},
                                                  {"array"}}};

  [[nodiscard]] bool IsKnown() const {
    return !std::less<>()(word_, kKnown.data()) &&
           std::less<>()(word_, kKnown.data() + kKnown.size());
  }

  const Word* word_ = kKnown.data();
};

}  // namespace morvantile

#endif  // MORVANTILE_PLIST_STORE_TYPE_WORD_H
