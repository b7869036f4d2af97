// The hash table under the tree's dictionaries and the converter.

#ifndef MORVANTILE_PLATFORM_CORE_HASH_INDEX_H
#define MORVANTILE_PLATFORM_CORE_HASH_INDEX_H

#include <cstddef>
#include <cstdint>
#include <vector>

namespace morvantile {

// Finds numbers by the hashes of their keys. Open addressing, with the hash beside the number, so
// that a search compares keys only where the whole hash is equal. The caller holds the keys.
class HashIndex {
 public:
  static constexpr std::uint32_t kNone = UINT32_MAX;

  [[nodiscard]] bool IsEmpty() const { return used_ == 0; }

  // The number under `hash` that `is_meant` accepts, or kNone.
  template <typename IsMeant>
  [[nodiscard]] std::uint32_t Find(std::uint32_t hash, const IsMeant& is_meant) const {
    if (used_ == 0) return kNone;
    for (std::size_t at = hash & mask_; cells_[at].number != kNone; at = (at + 1) & mask_) {
      if (cells_[at].hash == hash && is_meant(cells_[at].number)) return cells_[at].number;
    }
    return kNone;
  }

  // Prefetches the cell where a search for `hash` will begin.
  void Expect(std::uint32_t hash) const { __builtin_prefetch(cells_.data() + (hash & mask_)); }

  // Adds a number that isn't there yet, other than kNone.
  void Add(std::uint32_t hash, std::uint32_t number);

  // Takes out a number that is there under `hash`.
  void Remove(std::uint32_t hash, std::uint32_t number);

  // Takes out everything and makes room for `count` numbers; none releases the memory.
  void Reset(std::size_t count);

 private:
  struct Cell {
    std::uint32_t hash = 0;
    std::uint32_t number = kNone;
  };

  void Resize(std::size_t size);
  void Place(Cell cell);

  std::vector<Cell> cells_;  // a power of two of them, never more than 3/4 in use
  std::size_t mask_ = 0;
  std::size_t used_ = 0;
};

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_CORE_HASH_INDEX_H
