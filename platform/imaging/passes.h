// The two passes of resampling: across the rows, then down the columns.

#ifndef MORVANTILE_PLATFORM_IMAGING_PASSES_H
#define MORVANTILE_PLATFORM_IMAGING_PASSES_H

#include <cstddef>
#include <cstdint>

#include "platform/imaging/picture.h"
#include "platform/imaging/weights.h"

namespace morvantile {

// What is to be made of a picture: another, of the size that the filters lead to.
struct Resampling {
  const Picture* source;
  Filter across;
  Filter down;
  int sum_rows;  // RowsWithSums of `down`
  Picture* result = nullptr;

  [[nodiscard]] int Width() const { return static_cast<int>(across.first.size()); }
  [[nodiscard]] int Height() const { return static_cast<int>(down.first.size()); }
};

// The most result rows whose windows reach over one and the same sample, so that their sums may
// have to be kept at a time; at least 1.
int RowsWithSums(const Filter& down);

// Columns of the result, those from `begin` up to `end` without it. `begin` is a multiple of
// kColumnStep, and so is `end`, unless it is the result's.
inline constexpr int kColumnStep = 16;
struct Columns {
  int begin, end;
};

// The size in bytes of the memory, aligned to kAlignment, that ResampleColumns needs for `count`
// columns, whichever they are; a multiple of kAlignment.
std::size_t WorkBytes(const Resampling& resampling, int count);

// Makes these columns of the result, all rows of them. Calls for other columns may run at the same
// time in memory of their own. The same bytes come out whatever the columns of a call and whatever
// the processor.
void ResampleColumns(const Resampling& resampling, Columns columns, std::uint8_t* work);

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_IMAGING_PASSES_H
