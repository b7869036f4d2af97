// The type word of a key.

#ifndef MORVANTILE_PLIST_TYPE_WORD_H
#define MORVANTILE_PLIST_TYPE_WORD_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace morvantile {

// A type word in eight bytes. The words that the library itself stores take no other memory; any
// other, which a file may bring, stands in the heap.
class TypeWord {
 public:
  TypeWord() = default;
  explicit TypeWord(std::string_view word) { Assign(word); }
  TypeWord(TypeWord&& other) noexcept : word_(std::exchange(other.word_, 0)) {}
  TypeWord& operator=(TypeWord&& other) noexcept {
    std::swap(word_, other.word_);
    return *this;
  }
  TypeWord(const TypeWord&) = delete;
  TypeWord& operator=(const TypeWord&) = delete;
  ~TypeWord() {
    if (word_ >= kKnown.size()) delete Outside();
  }

  void Assign(std::string_view word) {
    for (std::size_t i = 0; i < kKnown.size(); ++i) {
      if (word != kKnown[i]) continue;
      *this = TypeWord(i);
      return;
    }
    const auto* const outside = new std::string(word);
    *this = TypeWord(reinterpret_cast<std::uintptr_t>(outside));
  }

  // The word; the bytes belong to the object and go with it.
  std::string_view View() const {
    return word_ < kKnown.size() ? kKnown[word_] : std::string_view(*Outside());
  }

 private:
  static constexpr std::array<std::string_view, 9> kKnown = {
      "", "string", "integer", "real", "boolean", "date", "data", "dict", "array"};

  explicit TypeWord(std::uintptr_t word) : word_(word) {}

  const std::string* Outside() const { return reinterpret_cast<const std::string*>(word_); }

  std::uintptr_t word_ = 0;  // a place in kKnown, or the address of a text
};

}  // namespace morvantile

#endif  // MORVANTILE_PLIST_TYPE_WORD_H
