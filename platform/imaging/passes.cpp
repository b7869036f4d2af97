#include "platform/imaging/passes.h"

#include <algorithm>
#include <cstring>
#include <vector>

// Highway leaves out its target without vectors for a fault of the compiler in computing the upper
// halves of products, which aren't used here.
#define HWY_BROKEN_EMU128 0
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "platform/imaging/passes.cpp"
#include "hwy/cache_control.h"
#include "hwy/foreach_target.h"
#include "hwy/highway.h"
#include "platform/imaging/blocks.h"
#include "platform/imaging/pixels-inl.h"
#include "platform/imaging/resample_internal.h"
#include "platform/imaging/vectors-inl.h"

#ifndef MORVANTILE_PLATFORM_IMAGING_PASSES_TASK
#define MORVANTILE_PLATFORM_IMAGING_PASSES_TASK

namespace morvantile {
namespace {

// Some columns of the result, and the memory that they are made in.
struct Task {
  const Resampling* resampling;
  Columns columns;
  // Of the source's pairs of columns, the first in the tile, and how many there are in it.
  int firstPair;
  int tile_pairs;
  std::int32_t* tile;
  std::int32_t* band;
  std::int32_t* sums;
  // Columns of a plane of band and sums, whole vectors of them.
  std::ptrdiff_t plane;

  int Count() const { return columns.end - columns.begin; }
};

}  // namespace
}  // namespace morvantile

#endif

HWY_BEFORE_NAMESPACE();
namespace morvantile::HWY_NAMESPACE {
namespace {

// ---- The first pass

// Pixels in a cache line, and how far ahead of their conversion they are prefetched.
constexpr int kLinePixels = 16;
constexpr int kPixelsAhead = 12 * kLinePixels;

// A chunk that begins or ends outside of the source: what is outside counts as 0.
template <int kChannels>
void ConvertEdge(const std::uint8_t* const* rows, int x, int width, std::int32_t* tile) {
  alignas(64) std::uint8_t bytes[kGroupRows][kChunkPixels * kPixelBytes] = {};
  const std::uint8_t* copies[kGroupRows];
  const std::ptrdiff_t begin = HWY_MAX(x, 0) * kPixelBytes;
  const std::ptrdiff_t end = HWY_MIN(x + kChunkPixels, width) * kPixelBytes;
  for (int row = 0; row < kGroupRows; ++row) {
    copies[row] = bytes[row];
    for (std::ptrdiff_t i = begin; i < end; ++i) bytes[row][i - x * kPixelBytes] = rows[row][i];
  }
  ConvertChunk<kChannels>(copies, 0, tile);
}

// Prefetches each row: these are more streams than the processor's own prefetcher follows.
HWY_INLINE void FetchAhead(const std::uint8_t* const* rows, int x, int width) {
  const std::ptrdiff_t ahead = kPixelBytes * HWY_MIN(x + kPixelsAhead, width - 1);
  for (int row = 0; row < kGroupRows; ++row) hwy::Prefetch(rows[row] + ahead);
}

// Fills the tile from the group whose first pair of rows is `row_pair`. Rows outside of the source
// have weight 0; the nearest one is used for them.
template <int kChannels>
void Convert(const Task& task, int row_pair) {
  const Picture& source = *task.resampling->source;
  const std::uint8_t* rows[kGroupRows];
  for (int i = 0; i < kGroupRows; ++i) {
    const int row = 2 * row_pair - task.resampling->down.offset + i;
    rows[i] = source.Row(HWY_MIN(HWY_MAX(row, 0), source.Height() - 1));
  }
  const int begin = 2 * task.firstPair - task.resampling->across.offset;
  std::int32_t* tile = task.tile;
  for (int x = begin; x < begin + 2 * task.tile_pairs; x += kChunkPixels) {
    if ((x - begin) % kLinePixels == 0) FetchAhead(rows, x, source.Width());
    if (x < 0 || x + kChunkPixels > source.Width()) {
      ConvertEdge<kChannels>(rows, x, source.Width(), tile);
    } else {
      ConvertChunk<kChannels>(rows, x * kPixelBytes, tile);
    }
    tile += kChunkPixels / 2 * kChannels * kTilePlane;
  }
}

// Stores each block to the band, `pitch` numbers after the one before.
template <class D>
HWY_INLINE void StoreDown(D d, hn::VFromD<D> blocks, std::int32_t* band, std::ptrdiff_t pitch) {
  if constexpr (hn::MaxLanes(D()) > kBlock) {
    const hn::Half<D> half;
    constexpr auto kHalfBlocks = static_cast<std::ptrdiff_t>(hn::MaxLanes(half)) / kBlock;
    StoreDown(half, hn::LowerHalf(half, blocks), band, pitch);
    StoreDown(half, hn::UpperHalf(half, blocks), band + pitch * kHalfBlocks, pitch);
  } else {
    hn::Store(blocks, d, band);
  }
}

// Stores one channel of four columns, whose lanes are rows, to as many pairs of rows of the band,
// `cut` bits shorter.
HWY_INLINE void StoreTransposed(V32 v0, V32 v1, V32 v2, V32 v3, int cut, std::int32_t* band,
                                std::ptrdiff_t pitch) {
  const auto shorter = [&](V32 v) { return hn::ShiftRightSame(v, cut); };
  const V32 v02 = hn::BitCast(kD32, hn::ReorderDemote2To(kD16, shorter(v0), shorter(v2)));
  const V32 v13 = hn::BitCast(kD32, hn::ReorderDemote2To(kD16, shorter(v1), shorter(v3)));
  const V32 even = hn::OddEven(hn::Shuffle2301(v13), v02);
  const V32 odd = hn::OddEven(v13, hn::Shuffle2301(v02));
  StoreDown(kD32, even, band, 2 * pitch);
  StoreDown(kD32, odd, band + pitch, 2 * pitch);
}

// The sums of one column of the result, of the rows of the tile from `row` on.
template <int kChannels, bool kExcess>
HWY_INLINE Vectors<kChannels> ColumnSums(const Task& task, int x, std::ptrdiff_t row, V32 half) {
  constexpr std::ptrdiff_t kPair = kChannels * kTilePlane;
  const Filter& filter = task.resampling->across;
  const std::int16_t* weights = filter.WeightsOf(x);
  const std::int32_t* pairs =
      task.tile + kPair * (filter.first[static_cast<std::size_t>(x)] - task.firstPair) + row;
  auto sums = AllOf<kChannels>(half);
  for (int k = 0; k < filter.pairs; ++k) {
    Add<kExcess>(Load<kChannels>(pairs + kPair * k, kTilePlane), weights + 2 * k, filter.excess,
                 sums);
  }
  return sums;
}

// Resamples the rows of the tile into the pairs of rows from `band` on, cutting `cut` bits off. The
// last column is used for those that only fill up a block.
template <int kChannels, bool kExcess>
void Across(const Task& task, int cut, std::int32_t* band) {
  const std::ptrdiff_t pitch = kChannels * task.plane;
  const V32 half = hn::Set(kD32, 1 << (cut - 1));
  for (int x = 0; x < task.Count(); x += kBlock) {
    for (std::ptrdiff_t row = 0; row < kGroupRows; row += kLanes) {
      const auto column = [&](int i) {
        const int at = HWY_MIN(task.columns.begin + x + i, task.columns.end - 1);
        return ColumnSums<kChannels, kExcess>(task, at, row, half);
      };
      const auto column0 = column(0);
      const auto column1 = column(1);
      const auto column2 = column(2);
      const auto column3 = column(3);
      for (int c = 0; c < kChannels; ++c) {
        StoreTransposed(column0.of[c], column1.of[c], column2.of[c], column3.of[c], cut,
                        band + pitch * (row / 2) + task.plane * c + x, pitch);
      }
    }
  }
}

// ---- The second pass

// What a result row takes from the batch: the pairs of rows from `begin` up to `end` without it.
struct Share {
  int begin, end;
  const std::int16_t* weights;
  bool begins;  // the window begins in the batch
  bool ends;    // the window ends in it
  std::int32_t* sums;
  std::int32_t* result;
};

// Of the result row `y`, from a batch whose pairs of rows are those from `begin` up to `end`.
template <int kChannels>
Share ShareOf(const Task& task, int y, int begin, int end) {
  const Filter& filter = task.resampling->down;
  const int first = filter.first[static_cast<std::size_t>(y)];
  const int from = HWY_MAX(first, begin);
  const int to = HWY_MIN(first + filter.pairs, end);
  std::uint8_t* row = task.resampling->result->MutableRow(y) + kPixelBytes * task.columns.begin;
  return {from - begin,
          to - begin,
          filter.WeightsOf(y) + 2 * (from - first),
          first >= begin,
          first + filter.pairs <= end,
          task.sums + kChannels * task.plane * (y % task.resampling->sum_rows),
          reinterpret_cast<std::int32_t*>(row)};
}

// The sums of the columns from `x` on before this batch.
template <int kChannels>
HWY_INLINE Vectors<kChannels> SumsSoFar(const Task& task, const Share& share, int x) {
  return share.begins ? AllOf<kChannels>(hn::Zero(kD32))
                      : Load<kChannels>(share.sums + x, task.plane);
}

// Stores the columns from `x` on, as pixels if the window has ended, else their sums. Pixels go
// around the caches, which hold what is worked on.
template <int kChannels>
HWY_INLINE void StoreColumns(const Task& task, const Share& share, int x,
                             const Vectors<kChannels>& sums) {
  if (!share.ends) return Store(sums, share.sums + x, task.plane);
  const Filter& filter = task.resampling->down;
  const int cut = filter.bits - filter.excess + (kChannels == 4 ? 0 : kOpaqueBits);
  hn::Stream(FinishedPixels(sums, cut), kD32, share.result + x);
}

// Adds their shares to a result row and the one below it. Where their windows overlap, samples are
// loaded once for both.
template <int kChannels, bool kExcess>
void DownRows(const Task& task, const Share& upper, const Share& lower) {
  const int excess = task.resampling->down.excess;
  const std::ptrdiff_t pitch = kChannels * task.plane;
  for (int x = 0; x < task.Count(); x += kLanes) {
    auto upper_sums = SumsSoFar<kChannels>(task, upper, x);
    auto lower_sums = SumsSoFar<kChannels>(task, lower, x);
    const std::int16_t* upper_weights = upper.weights;
    const std::int16_t* lower_weights = lower.weights;
    const std::int32_t* pairs = task.band + pitch * upper.begin + x;
    int k = upper.begin;
    for (; k < lower.begin; ++k, pairs += pitch, upper_weights += 2) {
      Add<kExcess>(Load<kChannels>(pairs, task.plane), upper_weights, excess, upper_sums);
    }
    for (; k < upper.end; ++k, pairs += pitch, upper_weights += 2, lower_weights += 2) {
      const auto both = Load<kChannels>(pairs, task.plane);
      Add<kExcess>(both, upper_weights, excess, upper_sums);
      Add<kExcess>(both, lower_weights, excess, lower_sums);
    }
    for (; k < lower.end; ++k, pairs += pitch, lower_weights += 2) {
      Add<kExcess>(Load<kChannels>(pairs, task.plane), lower_weights, excess, lower_sums);
    }
    StoreColumns(task, upper, x, upper_sums);
    StoreColumns(task, lower, x, lower_sums);
  }
}

// Goes on with the result rows from `y` on whose windows reach into the batch, the pairs of rows
// from `begin` up to `end` without it; returns the first row that isn't finished. A last row
// without one below it is its own.
template <int kChannels, bool kExcess>
int Down(const Task& task, int begin, int end, int y) {
  const Filter& filter = task.resampling->down;
  const int* first = filter.first.data();
  int rows_end = y;
  int finished = y;
  while (rows_end < task.resampling->Height() && first[rows_end] < end) ++rows_end;
  while (finished < rows_end && first[finished] + filter.pairs <= end) ++finished;
  for (; y < rows_end; y += 2) {
    DownRows<kChannels, kExcess>(
        task, ShareOf<kChannels>(task, y, begin, end),
        ShareOf<kChannels>(task, HWY_MIN(y + 1, rows_end - 1), begin, end));
  }
  return finished;
}

// ---- Both

template <int kChannels>
void Resample(const Task& task) {
  const Filter& across = task.resampling->across;
  const Filter& down = task.resampling->down;
  const int cut = across.bits - across.excess - (kChannels == 4 ? 0 : kOpaqueBits);
  int y = 0;
  for (int batch = 0; batch < down.source_pairs; batch += kBatchPairs) {
    const int end = HWY_MIN(batch + kBatchPairs, down.source_pairs);
    for (int pair = batch; pair < end; pair += kGroupPairs) {
      Convert<kChannels>(task, pair);
      std::int32_t* band = task.band + kChannels * task.plane * (pair - batch);
      across.excess > 0 ? Across<kChannels, true>(task, cut, band)
                        : Across<kChannels, false>(task, cut, band);
    }
    y = down.excess > 0 ? Down<kChannels, true>(task, batch, end, y)
                        : Down<kChannels, false>(task, batch, end, y);
  }
}

void ResampleTask(const Task& task) {
  task.resampling->source->HasAlpha() ? Resample<4>(task) : Resample<3>(task);
  hwy::FlushStream();
}

}  // namespace
}  // namespace morvantile::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace morvantile {
namespace {

HWY_EXPORT(ResampleTask);

// The sizes, in bytes, of what a task works in.
struct Layout {
  std::size_t tile;
  std::size_t band;
  std::size_t sums;
  std::ptrdiff_t plane;
};

int RoundedUp(int value, int step) { return (value + step - 1) / step * step; }

int MostTilePairs(const Resampling& resampling, int count) {
  const double scale = static_cast<double>(resampling.source->Width()) / resampling.Width();
  const double pairs = scale * count / 2 + resampling.across.pairs + 2;
  return static_cast<int>(std::min<double>(pairs, resampling.across.source_pairs));
}

Layout LayoutFor(const Resampling& resampling, int count) {
  Layout layout{};
  layout.plane = RoundedUp(count, kColumnStep);
  // Conversion may fill one pair of columns more than are needed.
  const auto tile_pairs = static_cast<std::size_t>(MostTilePairs(resampling, count)) + 1;
  const std::size_t channels = resampling.source->HasAlpha() ? 4 : 3;
  const std::size_t row = channels * sizeof(std::int32_t) * static_cast<std::size_t>(layout.plane);
  layout.tile = channels * sizeof(std::int32_t) * kTilePlane * tile_pairs;
  layout.band = row * kBatchPairs;
  layout.sums = row * static_cast<std::size_t>(resampling.sum_rows);
  return layout;
}

}  // namespace

int RowsWithSums(const Filter& down) {
  if (down.source_pairs <= kBatchPairs) return 1;
  std::ptrdiff_t most = 1;
  auto end = down.first.begin();
  for (auto begin = down.first.begin(); begin != down.first.end(); ++begin) {
    while (end != down.first.end() && *end < *begin + down.pairs) ++end;
    most = std::max(most, end - begin);
  }
  return static_cast<int>(most);
}

std::size_t WorkBytes(const Resampling& resampling, int count) {
  const Layout layout = LayoutFor(resampling, count);
  return layout.tile + layout.band + layout.sums;
}

void ResampleColumns(const Resampling& resampling, Columns columns, std::uint8_t* work) {
  const Layout layout = LayoutFor(resampling, columns.end - columns.begin);
  Task task{};
  task.resampling = &resampling;
  task.columns = columns;
  const int* first = resampling.across.first.data();
  task.firstPair = first[columns.begin];
  task.tile_pairs = first[columns.end - 1] + resampling.across.pairs - task.firstPair;
  task.tile = reinterpret_cast<std::int32_t*>(work);
  task.band = reinterpret_cast<std::int32_t*>(work + layout.tile);
  task.sums = reinterpret_cast<std::int32_t*>(work + layout.tile + layout.band);
  task.plane = layout.plane;
  // The first pass leaves alone the columns that only fill up vectors.
  std::memset(task.band, 0, layout.band);
  HWY_DYNAMIC_DISPATCH(ResampleTask)(task);
}

std::vector<std::int64_t> VectorTargets() { return hwy::SupportedAndGeneratedTargets(); }

}  // namespace morvantile

#endif  // HWY_ONCE
