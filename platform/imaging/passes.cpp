#include "platform/imaging/passes.h"

#include <algorithm>
#include <cstring>
#include <vector>

// Highway leaves out its target without vectors for a fault of the compiler in computing the upper
// halves of products, which aren't used here.
#define HWY_BROKEN_EMU128 0
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "platform/imaging/passes.cpp"
#include "hwy/foreach_target.h"
#include "hwy/highway.h"
#include "platform/imaging/blocks.h"
#include "platform/imaging/pixels-inl.h"
#include "platform/imaging/resample_internal.h"

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
  int tilePairs;
  std::int16_t* tile;
  std::int16_t* band;
  std::int32_t* sums;
  int sumRows;
  // 32-bit numbers from a row of the sums, or from a pair of rows of the band, to the next.
  std::ptrdiff_t pitch;

  int Count() const { return columns.end - columns.begin; }
};

}  // namespace
}  // namespace morvantile

#endif

HWY_BEFORE_NAMESPACE();
namespace morvantile::HWY_NAMESPACE {
namespace {

// ---- The first pass

// A chunk that begins or ends outside of the source: what is outside counts as 0.
template <bool kAlpha>
void ConvertEdge(const std::uint8_t* const* rows, int x, int width, std::int16_t* tile) {
  alignas(64) std::uint8_t bytes[kGroupRows][kChunkPixels * kPixelBytes] = {};
  const std::uint8_t* copies[kGroupRows];
  const std::ptrdiff_t begin = HWY_MAX(x, 0) * kPixelBytes;
  const std::ptrdiff_t end = HWY_MIN(x + kChunkPixels, width) * kPixelBytes;
  for (int row = 0; row < kGroupRows; ++row) {
    copies[row] = bytes[row];
    for (std::ptrdiff_t i = begin; i < end; ++i) bytes[row][i - x * kPixelBytes] = rows[row][i];
  }
  ConvertChunk<kAlpha>(copies, 0, tile);
}

// Fills the tile from the group whose first pair of rows is `rowPair`. Rows outside of the source
// have weight 0; the nearest one stands in for them.
template <bool kAlpha>
void Convert(const Task& task, int rowPair) {
  const Picture& source = *task.resampling->source;
  const std::uint8_t* rows[kGroupRows];
  for (int i = 0; i < kGroupRows; ++i) {
    const int row = 2 * rowPair - task.resampling->down.offset + i;
    rows[i / 2 + i % 2 * kGroupPairs] = source.Row(HWY_MIN(HWY_MAX(row, 0), source.Height() - 1));
  }
  const int begin = 2 * task.firstPair - task.resampling->across.offset;
  std::int16_t* tile = task.tile;
  for (int x = begin; x < begin + 2 * task.tilePairs; x += kChunkPixels) {
    if (x < 0 || x + kChunkPixels > source.Width()) {
      ConvertEdge<kAlpha>(rows, x, source.Width(), tile);
    } else {
      ConvertChunk<kAlpha>(rows, x * kPixelBytes, tile);
    }
    tile += kChunkPixels / 2 * kTilePair;
  }
}

// Adds the weighted sum of the neighbours in each pair, cut down by `excess` bits if there are
// such.
template <bool kExcess>
HWY_INLINE V32 AddWeighted(V32 sum, const std::int16_t* samples, V16 weights, int excess) {
  V32 rest = hn::Zero(d32);
  const V32 products =
      hn::ReorderWidenMulAccumulate(d32, hn::Load(d16, samples), weights, hn::Zero(d32), rest);
  V32 weighted = hn::RearrangeToOddPlusEven(products, rest);
  if constexpr (kExcess) {
    const V32 half = hn::Set(d32, 1 << (excess - 1));
    weighted = hn::ShiftRightSame(hn::Add(weighted, half), excess);
  }
  return hn::Add(sum, weighted);
}

HWY_INLINE V16 WeightsOfPair(std::int32_t weights) {
  return hn::BitCast(d16, hn::Set(d32, weights));
}

// Stores each block to the band's next pair of rows.
template <class D>
HWY_INLINE void StoreDown(D d, hn::VFromD<D> blocks, std::int16_t* band, std::ptrdiff_t pairPitch) {
  if constexpr (hn::MaxLanes(D()) > kBlock) {
    const hn::Half<D> half;
    constexpr auto kHalfBlocks = static_cast<std::ptrdiff_t>(hn::MaxLanes(half)) / kBlock;
    StoreDown(half, hn::LowerHalf(half, blocks), band, pairPitch);
    StoreDown(half, hn::UpperHalf(half, blocks), band + pairPitch * kHalfBlocks, pairPitch);
  } else {
    hn::Store(blocks, d, band);
  }
}

// The sums of even and of odd rows, cut down to 16 bits, as neighbours.
HWY_INLINE V16 Neighbours(V32 even, V32 odd, int cut) {
  return hn::OddEven(hn::BitCast(d16, hn::ShiftLeftSame(odd, 16 - cut)),
                     hn::BitCast(d16, hn::ShiftRightSame(even, cut)));
}

// Resamples the rows of the tile into the pairs of rows from `band` on, cutting `cut` bits off.
template <bool kExcess>
void Across(const Task& task, int cut, std::int16_t* band) {
  const Filter& filter = task.resampling->across;
  const int* first = filter.first.data() + task.columns.begin;
  const std::int32_t* weights = filter.WeightsOf(task.columns.begin);
  const std::ptrdiff_t pairPitch = 2 * task.pitch;
  const V32 half = hn::Set(d32, 1 << (cut - 1));
  for (int x = 0; x < task.Count(); ++x, weights += filter.pairs) {
    const std::int16_t* window = task.tile + kTilePair * (first[x] - task.firstPair);
    std::int16_t* to = band + kBlock * Position(x);
    for (std::ptrdiff_t rows = 0; rows < kTileHalf; rows += 2 * kLanes16) {
      const std::int16_t* even = window + rows;
      const std::int16_t* odd = even + kTileHalf;
      Sums sums{half, half, half, half};
      for (int k = 0; k < filter.pairs; ++k, even += kTilePair, odd += kTilePair) {
        const V16 weight = WeightsOfPair(weights[k]);
        sums.v0 = AddWeighted<kExcess>(sums.v0, even, weight, filter.excess);
        sums.v1 = AddWeighted<kExcess>(sums.v1, even + kLanes16, weight, filter.excess);
        sums.v2 = AddWeighted<kExcess>(sums.v2, odd, weight, filter.excess);
        sums.v3 = AddWeighted<kExcess>(sums.v3, odd + kLanes16, weight, filter.excess);
      }
      StoreDown(d16, Neighbours(sums.v0, sums.v2, cut), to, pairPitch);
      StoreDown(d16, Neighbours(sums.v1, sums.v3, cut), to + kBlocks * pairPitch, pairPitch);
      to += pairPitch * kBlocks * 2;
    }
  }
}

// ---- The second pass

// What a result row takes from the batch.
struct Share {
  const std::int16_t* band;  // the first pair of rows
  const std::int32_t* weights;
  int pairs;
  bool begins;  // the window begins in the batch
  bool ends;    // the window ends in it
};

HWY_INLINE Sums LoadSums(const std::int32_t* from) {
  return {hn::Load(d32, from), hn::Load(d32, from + kLanes32), hn::Load(d32, from + 2 * kLanes32),
          hn::Load(d32, from + 3 * kLanes32)};
}

HWY_INLINE void StoreSums(const Sums& sums, std::int32_t* to) {
  hn::Store(sums.v0, d32, to);
  hn::Store(sums.v1, d32, to + kLanes32);
  hn::Store(sums.v2, d32, to + 2 * kLanes32);
  hn::Store(sums.v3, d32, to + 3 * kLanes32);
}

template <bool kExcess>
HWY_INLINE Sums AddShare(const Share& share, int x, std::ptrdiff_t pitch, int excess, Sums sums) {
  const std::int16_t* samples = share.band + kBlock * x;
  for (int k = 0; k < share.pairs; ++k, samples += 2 * pitch) {
    const V16 weight = WeightsOfPair(share.weights[k]);
    sums.v0 = AddWeighted<kExcess>(sums.v0, samples, weight, excess);
    sums.v1 = AddWeighted<kExcess>(sums.v1, samples + kLanes16, weight, excess);
    sums.v2 = AddWeighted<kExcess>(sums.v2, samples + 2 * kLanes16, weight, excess);
    sums.v3 = AddWeighted<kExcess>(sums.v3, samples + 3 * kLanes16, weight, excess);
  }
  return sums;
}

// Adds the share to a result row, and finishes the row if its window ends.
template <bool kAlpha, bool kExcess>
void DownRow(const Task& task, const Share& share, int y) {
  const Filter& filter = task.resampling->down;
  const int bits = filter.bits - filter.excess;
  const float full = static_cast<float>(kFullAlpha) * static_cast<float>(1 << bits);
  std::int32_t* kept = task.sums;
  if (task.sumRows > 0) kept += task.pitch * (y % task.sumRows);
  std::uint8_t* to = task.resampling->result->MutableRow(y) + kPixelBytes * task.columns.begin;
  const V32 zero = hn::Zero(d32);
  for (int x = 0; x < task.Count(); x += kColumnsAtOnce) {
    Sums sums =
        share.begins ? Sums{zero, zero, zero, zero} : LoadSums(kept + std::ptrdiff_t{4} * x);
    sums = AddShare<kExcess>(share, x, task.pitch, filter.excess, sums);
    if (!share.ends) {
      StoreSums(sums, kept + std::ptrdiff_t{4} * x);
      continue;
    }
    const V8 pixels = kAlpha ? AlphaPixels(sums, full) : OpaquePixels(sums, bits + kOpaqueBits);
    StorePixels(pixels, task.Count() - x, to + kPixelBytes * x);
  }
}

// Goes on with the result rows from `y` on whose windows reach into the batch, the pairs of rows
// from `begin` up to `end` without it; gives the first row that isn't finished.
template <bool kAlpha, bool kExcess>
int Down(const Task& task, int begin, int end, int y) {
  const Filter& filter = task.resampling->down;
  const int* first = filter.first.data();
  int unfinished = y;
  for (; y < task.resampling->Height() && first[y] < end; ++y) {
    const int from = HWY_MAX(first[y], begin);
    const int to = HWY_MIN(first[y] + filter.pairs, end);
    const Share share{task.band + 2 * task.pitch * (from - begin),
                      filter.WeightsOf(y) + (from - first[y]), to - from, first[y] >= begin,
                      first[y] + filter.pairs <= end};
    DownRow<kAlpha, kExcess>(task, share, y);
    if (share.ends) unfinished = y + 1;
  }
  return unfinished;
}

// ---- Both

template <bool kAlpha>
void Resample(const Task& task) {
  const Filter& across = task.resampling->across;
  const Filter& down = task.resampling->down;
  const int cut = across.bits - across.excess - (kAlpha ? 0 : kOpaqueBits);
  int y = 0;
  for (int batch = 0; batch < down.sourcePairs; batch += kBatchPairs) {
    const int end = HWY_MIN(batch + kBatchPairs, down.sourcePairs);
    for (int pair = batch; pair < end; pair += kGroupPairs) {
      Convert<kAlpha>(task, pair);
      std::int16_t* band = task.band + 2 * task.pitch * (pair - batch);
      across.excess > 0 ? Across<true>(task, cut, band) : Across<false>(task, cut, band);
    }
    y = down.excess > 0 ? Down<kAlpha, true>(task, batch, end, y)
                        : Down<kAlpha, false>(task, batch, end, y);
  }
}

void ResampleTask(const Task& task) {
  task.resampling->source->HasAlpha() ? Resample<true>(task) : Resample<false>(task);
}

}  // namespace
}  // namespace morvantile::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace morvantile {
namespace {

HWY_EXPORT(ResampleTask);

// The columns of band and sums fill whole vectors of any processor.
constexpr int kColumnStep = 16;

// The sizes, in bytes, of what a task works in.
struct Layout {
  std::size_t tile;
  std::size_t band;
  std::size_t sums;
  int sumRows;
  std::ptrdiff_t pitch;
};

int RoundedUp(int value, int step) { return (value + step - 1) / step * step; }

int MostTilePairs(const Resampling& resampling, int count) {
  const double scale = static_cast<double>(resampling.source->Width()) / resampling.Width();
  const double pairs = scale * count / 2 + resampling.across.pairs + 2;
  return static_cast<int>(std::min<double>(pairs, resampling.across.sourcePairs));
}

// The most result rows whose windows reach over one and the same end of a batch.
int MostUnfinishedRows(const Filter& filter) {
  if (filter.sourcePairs <= kBatchPairs) return 0;
  std::ptrdiff_t most = 0;
  auto end = filter.first.begin();
  for (auto begin = filter.first.begin(); begin != filter.first.end(); ++begin) {
    while (end != filter.first.end() && *end < *begin + filter.pairs) ++end;
    most = std::max(most, end - begin);
  }
  return static_cast<int>(most);
}

Layout LayoutFor(const Resampling& resampling, int count) {
  Layout layout{};
  layout.sumRows = MostUnfinishedRows(resampling.down);
  layout.pitch = std::ptrdiff_t{4} * RoundedUp(count, kColumnStep);
  // Conversion may fill one pair of columns more than are needed.
  const int tilePairs = MostTilePairs(resampling, count) + 1;
  const auto pitchBytes = sizeof(std::int32_t) * static_cast<std::size_t>(layout.pitch);
  layout.tile = sizeof(std::int16_t) * kTilePair * static_cast<std::size_t>(tilePairs);
  layout.band = pitchBytes * kBatchPairs;
  layout.sums = pitchBytes * static_cast<std::size_t>(layout.sumRows);
  return layout;
}

}  // namespace

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
  task.tilePairs = first[columns.end - 1] + resampling.across.pairs - task.firstPair;
  task.tile = reinterpret_cast<std::int16_t*>(work);
  task.band = reinterpret_cast<std::int16_t*>(work + layout.tile);
  task.sums = reinterpret_cast<std::int32_t*>(work + layout.tile + layout.band);
  task.sumRows = layout.sumRows;
  task.pitch = layout.pitch;
  // The first pass leaves alone the columns that only fill up vectors.
  std::memset(task.band, 0, layout.band);
  HWY_DYNAMIC_DISPATCH(ResampleTask)(task);
}

std::vector<std::int64_t> VectorTargets() { return hwy::SupportedAndGeneratedTargets(); }

}  // namespace morvantile

#endif  // HWY_ONCE
