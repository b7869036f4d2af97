#include "platform/core/hash_index.h"

#include <algorithm>
#include <bit>
#include <utility>

namespace morvantile {
namespace {

constexpr std::size_t kSmallest = 16;

// The number of cells in which `count` may be used.
std::size_t CellsFor(std::size_t count) {
  return std::bit_ceil(std::max(kSmallest, count + count / 3 + 1));
}

}  // namespace

void HashIndex::Add(std::uint32_t hash, std::uint32_t number) {
  const std::size_t cells = CellsFor(used_ + 1);
  if (cells > cells_.size()) Resize(cells);
  Place({hash, number});
  ++used_;
}

// Backward-shift deletion: closes the hole with later cells of the same run, so that no search ends
// early and no tombstone is needed.
void HashIndex::Remove(std::uint32_t hash, std::uint32_t number) {
  std::size_t hole = hash & mask_;
  while (cells_[hole].number != number) hole = (hole + 1) & mask_;
  for (std::size_t at = (hole + 1) & mask_; cells_[at].number != kNone; at = (at + 1) & mask_) {
    const std::size_t home = cells_[at].hash & mask_;
    if (((at - home) & mask_) >= ((at - hole) & mask_)) {
      cells_[hole] = cells_[at];
      hole = at;
    }
  }
  cells_[hole] = {};
  --used_;
}

void HashIndex::Reset(std::size_t count) {
  used_ = 0;
  mask_ = 0;
  cells_ = {};
  if (count > 0) Resize(CellsFor(count));
}

void HashIndex::Resize(std::size_t size) {
  const std::vector<Cell> old = std::exchange(cells_, std::vector<Cell>(size));
  mask_ = size - 1;
  for (const Cell& cell : old) {
    if (cell.number != kNone) Place(cell);
  }
}

void HashIndex::Place(Cell cell) {
  std::size_t at = cell.hash & mask_;
  while (cells_[at].number != kNone) at = (at + 1) & mask_;
  cells_[at] = cell;
}

}  // namespace morvantile
