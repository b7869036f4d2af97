// A property list in memory, as both forms of file know it.

#ifndef MORVANTILE_PLATFORM_PLUTIL_DOCUMENT_H
#define MORVANTILE_PLATFORM_PLUTIL_DOCUMENT_H

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace morvantile::plutil {

enum class Kind : std::uint8_t {
  kFalse,
  kTrue,
  kInteger,   // A signed number of 64 bits.
  kUnsigned,  // A number of 64 bits that is too large for kInteger.
  kReal,
  kDate,  // Seconds since 2001-01-01T00:00:00Z, as a real.
  kUid,   // A reference of a keyed archive: a number of 64 bits without a sign.
  kData,  // Bytes.
  kText,  // UTF-8; bytes that are not may be in what an XML file held.
  kArray,
  kDict,
};

inline bool IsContainer(Kind kind) { return kind == Kind::kArray || kind == Kind::kDict; }

// One object in 16 bytes: a number, a view of bytes that lie elsewhere, or a range of the
// document's references.
class Object {
 public:
  static Object Boolean(bool value) { return {value ? Kind::kTrue : Kind::kFalse, 0, 0}; }
  static Object Number(Kind kind, std::uint64_t bits) { return {kind, bits, 0}; }
  static Object Real(Kind kind, double value) {
    return {kind, std::bit_cast<std::uint64_t>(value), 0};
  }
  static Object Bytes(Kind kind, std::string_view bytes) {
    return {kind, std::bit_cast<std::uintptr_t>(bytes.data()), bytes.size()};
  }
  static Object Container(Kind kind, std::size_t first, std::size_t count) {
    return {kind, first, count};
  }

  [[nodiscard]] Kind Is() const { return static_cast<Kind>(kind_); }
  [[nodiscard]] std::uint64_t Bits() const { return payload_; }
  [[nodiscard]] double AsReal() const { return std::bit_cast<double>(payload_); }
  [[nodiscard]] std::string_view AsBytes() const {
    return {std::bit_cast<const char*>(static_cast<std::uintptr_t>(payload_)), Size()};
  }

  // Of bytes and texts, their number; of containers, that of their references.
  [[nodiscard]] std::size_t Size() const { return size_; }
  // Of containers, the place of the first reference.
  [[nodiscard]] std::size_t First() const { return payload_; }

 private:
  Object(Kind kind, std::uint64_t payload, std::uint64_t size)
      : payload_(payload), size_(size & ((std::uint64_t{1} << 56U) - 1)), kind_(kind) {}

  std::uint64_t payload_;
  std::uint64_t size_ : 56;
  Kind kind_;
};

static_assert(sizeof(Object) == 16);

using ObjectIndex = std::uint32_t;

// The objects of a property list; the first is the topmost one. A container refers to others by
// their index: an array to its elements, a dict to key, value, key, value and so on, and each key
// is a kText. Several containers may refer to one object, but none contains itself.
//
// Bytes and texts lie in the file's content, which must stay as long as the document, or were kept
// by Keep.
struct Document {
  std::vector<Object> objects;
  std::vector<ObjectIndex> references;

  [[nodiscard]] std::span<const ObjectIndex> ReferencesOf(const Object& container) const {
    return {references.data() + container.First(), container.Size()};
  }

  // A copy of `bytes` that lives as long as the document.
  std::string_view Keep(std::string_view bytes) {
    constexpr std::size_t kBlock = std::size_t{64} * 1024;
    if (kept.empty() || kept.back().capacity() - kept.back().size() < bytes.size()) {
      kept.emplace_back().reserve(std::max(kBlock, bytes.size()));
    }
    const std::size_t begin = kept.back().size();
    kept.back().append(bytes);
    return std::string_view(kept.back()).substr(begin);
  }

  std::deque<std::string> kept;
};

}  // namespace morvantile::plutil

#endif  // MORVANTILE_PLATFORM_PLUTIL_DOCUMENT_H
