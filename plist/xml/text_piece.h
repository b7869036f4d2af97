#ifndef MORVANTILE_PLIST_XML_TEXT_PIECE_H
#define MORVANTILE_PLIST_XML_TEXT_PIECE_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string_view>

namespace morvantile {

// A text that is put together from many small parts.
class TextPiece {
 public:
  std::string_view View() const { return {bytes_.get(), size_}; }
  std::size_t size() const { return size_; }
  void Clear() { size_ = 0; }

  // Adds the parts: texts, string literals and characters.
  template <typename... Parts>
  void Add(const Parts&... parts) {
    char* to = Extend((0 + ... + SizeOf(parts)));
    ((to = Copy(to, parts)), ...);
  }

 private:
  static std::size_t SizeOf(std::string_view text) { return text.size(); }
  static std::size_t SizeOf(char /*character*/) { return 1; }
  // Of a string literal, whose size the compiler knows.
  template <std::size_t kSize>
  static std::size_t SizeOf(const char (&/*literal*/)[kSize]) {
    return kSize - 1;
  }

  // The copies give their end.
  static char* Copy(char* to, char character) {
    *to = character;
    return to + 1;
  }
  template <std::size_t kSize>
  static char* Copy(char* to, const char (&literal)[kSize]) {
    std::memcpy(to, literal, kSize - 1);
    return to + kSize - 1;
  }
  // Copies as memcpy does, but without a call for the few bytes that most texts have.
  static char* Copy(char* to, std::string_view text) {
    const char* const from = text.data();
    const std::size_t size = text.size();
    if (size >= 8 && size <= 16) {
      CopyEnds<std::uint64_t>(to, from, size);
    } else if (size >= 4 && size < 8) {
      CopyEnds<std::uint32_t>(to, from, size);
    } else if (size < 4) {
      for (std::size_t i = 0; i < size; ++i) to[i] = from[i];
    } else {
      std::memcpy(to, from, size);
    }
    return to + size;
  }

  // Copies a word from the beginning and one from the end, which may overlap.
  template <typename Word>
  static void CopyEnds(char* to, const char* from, std::size_t size) {
    Word first;
    Word last;
    std::memcpy(&first, from, sizeof first);
    std::memcpy(&last, from + size - sizeof last, sizeof last);
    std::memcpy(to, &first, sizeof first);
    std::memcpy(to + size - sizeof last, &last, sizeof last);
  }

  // Room for so many further bytes, at the end.
  char* Extend(std::size_t count) {
    if (capacity_ - size_ < count) Grow(size_ + count);
    char* const end = bytes_.get() + size_;
    size_ += count;
    return end;
  }

  void Grow(std::size_t least) {
    constexpr std::size_t kFirst = std::size_t{128} * 1024;
    capacity_ = std::max({least, 2 * capacity_, kFirst});
    auto grown = std::make_unique_for_overwrite<char[]>(capacity_);
    if (size_ > 0) std::memcpy(grown.get(), bytes_.get(), size_);
    bytes_ = std::move(grown);
  }

  std::unique_ptr<char[]> bytes_;
  std::size_t size_ = 0;
  std::size_t capacity_ = 0;
};

}  // namespace morvantile

#endif  // MORVANTILE_PLIST_XML_TEXT_PIECE_H
