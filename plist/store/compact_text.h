// A small text.

#ifndef MORVANTILE_PLIST_STORE_COMPACT_TEXT_H
#define MORVANTILE_PLIST_STORE_COMPACT_TEXT_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace morvantile {

// A text in kSize bytes, 16 or 24: up to kSize - 1 bytes of text are in the object, a longer text
// in one block of the heap. It exists because trees hold millions of short texts.
template <std::size_t kSize>
class CompactText {
 public:
  CompactText() noexcept = default;
  explicit CompactText(std::string_view text) { Assign(text); }
  CompactText(CompactText&& other) noexcept : bytes_(other.bytes_) { other.bytes_ = {}; }
  CompactText& operator=(CompactText&& other) noexcept {
    const auto own = bytes_;
    bytes_ = other.bytes_;
    other.bytes_ = own;
    return *this;
  }
  CompactText(const CompactText&) = delete;
  CompactText& operator=(const CompactText&) = delete;
  ~CompactText() {
    if (IsOutside()) ReleaseOutside();
  }

  // Takes another text, which may be a part of its own.
  void Assign(std::string_view text) {
    if (text.size() > kInside) {
      StoreOutside(text);
    } else if (IsOutside()) {
      *this = CompactText(text);
    } else {
      if (!text.empty()) std::memmove(bytes_.data(), text.data(), text.size());
      bytes_[kInside] = static_cast<char>(text.size());
    }
  }

  // The text; the bytes belong to the object and go, or move, with it.
  [[nodiscard]] std::string_view View() const {
    if (IsOutside()) return ViewOutside();
    return {bytes_.data(), static_cast<std::size_t>(bytes_[kInside])};
  }

 private:
  static constexpr std::size_t kInside = kSize - 1;
  static constexpr char kOutsideMark = kInside + 1;

  [[nodiscard]] bool IsOutside() const { return bytes_[kInside] == kOutsideMark; }
  void StoreOutside(std::string_view text);
  void ReleaseOutside();
  [[nodiscard]] std::string_view ViewOutside() const;

  // The text and in the last byte its length; or a pointer to a block that holds the length and the
  // text, and in the last byte the mark.
  alignas(void*) std::array<char, kSize> bytes_{};
};

extern template class CompactText<16>;
extern template class CompactText<24>;

}  // namespace morvantile

#endif  // MORVANTILE_PLIST_STORE_COMPACT_TEXT_H
