#include "platform/imaging/passes.h"

#include <algorithm>
#include <cstring>

// The compiler fault for which Highway leaves this target out concerns products' upper halves,
// which aren't used here.
#define HWY_BROKEN_EMU128 0
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "platform/imaging/passes.cpp"
#include "hwy/foreach_target.h"
#include "hwy/highway.h"

#ifndef MORVANTILE_PLATFORM_IMAGING_PASSES_TASK
#define MORVANTILE_PLATFORM_IMAGING_PASSES_TASK

namespace morvantile {
namespace {

// The columns of the result are made in batches of source rows, whose rows go through the first
// pass in groups; everything a batch needs stays in the processor's cache.
//
//   source rows --Convert--> tile --Across--> band --Down--> result rows
//
// Pixels lie in memory as blocks of 16 bytes, eight 16-bit numbers: the four channels of two
// neighbours in turn, as the multiplications take them.
//   tile: one group. For each pair of columns, the blocks of all its rows, first those of the even
//     rows, then those of the odd ones. Neighbours are pixels of a row.
//   band: one batch. For each pair of rows, the blocks of all columns, in the order of
//   BandPosition.
//     Neighbours are pixels of a column.
//   sums: for each result row whose window goes on beyond the batch, what it has come to so far,
//     four 32-bit numbers for each column.
constexpr int kBlock = 8;
constexpr int kGroupRows = 16;
constexpr int kGroupPairs = kGroupRows / 2;
constexpr int kBatchPairs = 2 * kGroupPairs;
constexpr int kTilePair = kGroupRows * kBlock;

// A chunk is what is converted at once.
constexpr int kChunkPixels = 4;
constexpr int kPixelBytes = 4;

// Between the passes, a full channel of an opaque picture is 255 << kOpaqueBits. One of a picture
// with alpha is 255 * 255 >> kAlphaCut.
constexpr int kOpaqueBits = 6;
constexpr int kAlphaCut = 2;
constexpr int kFullAlpha = 255 * 255 >> kAlphaCut;

// The columns of vectors that Down takes at a time are never more than this.
constexpr int kMostColumnsAtOnce = 16;

struct Task {
  const Resampling* resampling;
  const Picture* source;
  Picture* result;
  Columns columns;
  int firstPair;  // of the source's columns, the first in the tile
  int tilePairs;
  std::int16_t* tile;
  std::int16_t* band;
  std::int32_t* sums;
  std::ptrdiff_t pitch;  // from a column of band or sums to the same one of the next row
  int sumRows;
};

}  // namespace
}  // namespace morvantile

#endif

HWY_BEFORE_NAMESPACE();
namespace morvantile {
namespace HWY_NAMESPACE {
namespace {

namespace hn = hwy::HWY_NAMESPACE;

#if HWY_HAVE_SCALABLE
using D16 = hn::FixedTag<std::int16_t, kBlock>;
#else
using D16 = hn::CappedTag<std::int16_t, 4 * kBlock>;
#endif
using D8 = hn::Repartition<std::uint8_t, D16>;
using D32 = hn::Repartition<std::int32_t, D16>;
using DF = hn::Repartition<float, D16>;
using V16 = hn::VFromD<D16>;
using V32 = hn::VFromD<D32>;
using VF = hn::VFromD<DF>;

constexpr D8 d8;
constexpr D16 d16;
constexpr D32 d32;
constexpr DF df;

constexpr int kLanes16 = static_cast<int>(hn::MaxLanes(d16));
constexpr int kBlocks = kLanes16 / kBlock;   // in a vector
constexpr int kColumnsAtOnce = 4 * kBlocks;  // in four vectors
constexpr int kHalfTile = kTilePair / 2;     // from a pair's even rows to its odd ones
static_assert(kColumnsAtOnce <= kMostColumnsAtOnce);

// One block from each of several rows.
template <class D>
HWY_INLINE hn::VFromD<D> LoadBlocks(D d, const std::uint8_t* const* rows, std::ptrdiff_t offset) {
  if constexpr (hn::MaxLanes(D()) > 16) {
    const hn::Half<D> half;
    return hn::Combine(d, LoadBlocks(half, rows + hn::MaxLanes(half) / 16, offset),
                       LoadBlocks(half, rows, offset));
  } else {
    return hn::LoadU(d, rows[0] + offset);
  }
}

// One block to each of several rows that lie `pitch` numbers apart.
template <class D>
HWY_INLINE void StoreBlocks(D d, hn::VFromD<D> v, std::int16_t* first, std::ptrdiff_t pitch) {
  if constexpr (hn::MaxLanes(D()) > kBlock) {
    const hn::Half<D> half;
    StoreBlocks(half, hn::LowerHalf(half, v), first, pitch);
    StoreBlocks(half, hn::UpperHalf(half, v),
                first + pitch * static_cast<std::ptrdiff_t>(hn::MaxLanes(half) / kBlock), pitch);
  } else {
    hn::Store(v, d, first);
  }
}

// Of every block of four pixels the first or the second two: their bytes at `channels` as numbers.
alignas(16) constexpr std::uint8_t kColours[2][16] = {
    {0, 128, 4, 128, 1, 128, 5, 128, 2, 128, 6, 128, 128, 128, 128, 128},
    {8, 128, 12, 128, 9, 128, 13, 128, 10, 128, 14, 128, 128, 128, 128, 128}};
alignas(16) constexpr std::uint8_t kAlphas[2][16] = {
    {3, 128, 7, 128, 3, 128, 7, 128, 3, 128, 7, 128, 3, 128, 7, 128},
    {11, 128, 15, 128, 11, 128, 15, 128, 11, 128, 15, 128, 11, 128, 15, 128}};
alignas(16) constexpr std::int16_t kAlphaFill[8] = {0, 0, 0, 0, 0, 0, 255, 255};

// Converts a chunk of one group: `rows` in the order of the tile.
template <bool kAlpha>
HWY_INLINE void ConvertChunk(const std::uint8_t* const* rows, std::ptrdiff_t offset,
                             std::int16_t* tile) {
  for (int pair = 0; pair < kChunkPixels / 2; ++pair) {
    const auto colours = hn::LoadDup128(d8, kColours[pair]);
    const auto alphas = hn::LoadDup128(d8, kAlphas[pair]);
    const V16 fill = hn::LoadDup128(d16, kAlphaFill);
    for (int slot = 0; slot < kGroupRows; slot += kBlocks) {
      const auto pixels = LoadBlocks(d8, rows + slot, offset);
      V16 v = hn::BitCast(d16, hn::TableLookupBytesOr0(pixels, colours));
      if constexpr (kAlpha) {
        const V16 alpha = hn::BitCast(d16, hn::TableLookupBytesOr0(pixels, alphas));
        const hn::RebindToUnsigned<D16> du16;
        const auto product = hn::Mul(hn::Or(v, fill), alpha);
        v = hn::BitCast(d16, hn::ShiftRight<kAlphaCut>(hn::BitCast(du16, product)));
      }
      hn::Store(v, d16, tile + pair * kTilePair + slot * kBlock);
    }
  }
}

// A chunk that begins or ends outside the source: what is outside counts as 0.
template <bool kAlpha>
void ConvertEdge(const std::uint8_t* const* rows, int x, int width, std::int16_t* tile) {
  alignas(kWorkAlignment) std::uint8_t bytes[kGroupRows][kChunkPixels * kPixelBytes] = {};
  const std::uint8_t* copies[kGroupRows];
  const int begin = HWY_MAX(x, 0);
  const int end = HWY_MIN(x + kChunkPixels, width);
  for (int slot = 0; slot < kGroupRows; ++slot) {
    copies[slot] = bytes[slot];
    for (int i = begin * kPixelBytes; i < end * kPixelBytes; ++i) {
      bytes[slot][i - x * kPixelBytes] = rows[slot][i];
    }
  }
  ConvertChunk<kAlpha>(copies, 0, tile);
}

// Fills the tile from the group whose first pair of rows is `rowPair`.
template <bool kAlpha>
HWY_NOINLINE void Convert(const Task& task, int rowPair) {
  const std::uint8_t* rows[kGroupRows];
  const int height = task.source->Height();
  for (int i = 0; i < kGroupRows; ++i) {
    const int row = 2 * rowPair - task.resampling->down.offset + i;
    rows[i / 2 + i % 2 * kGroupPairs] = task.source->Row(HWY_MIN(HWY_MAX(row, 0), height - 1));
  }
  const int width = task.source->Width();
  const int begin = 2 * task.firstPair - task.resampling->across.offset;
  std::int16_t* tile = task.tile;
  for (int x = begin; x < begin + 2 * task.tilePairs; x += kChunkPixels) {
    if (x < 0 || x + kChunkPixels > width) {
      ConvertEdge<kAlpha>(rows, x, width, tile);
    } else {
      ConvertChunk<kAlpha>(rows, std::ptrdiff_t{kPixelBytes} * x, tile);
    }
    tile += kChunkPixels / 2 * kTilePair;
  }
}

// Adds the products of neighbours, cut down by `excess` bits if there are such.
template <bool kExcess>
HWY_INLINE V32 AddProducts(V32 sum, const std::int16_t* samples, V16 weights, int excess) {
  V32 odd = hn::Zero(d32);
  V32 products =
      hn::ReorderWidenMulAccumulate(d32, hn::Load(d16, samples), weights, hn::Zero(d32), odd);
  products = hn::RearrangeToOddPlusEven(products, odd);
  if constexpr (kExcess) {
    const V32 half = hn::Set(d32, 1 << (excess - 1));
    products = hn::ShiftRightSame(hn::Add(products, half), excess);
  }
  return hn::Add(sum, products);
}

HWY_INLINE V16 WeightsOfPair(std::int32_t weights) {
  return hn::BitCast(d16, hn::Set(d32, weights));
}

// Columns lie in band and sums such that the packing of Down leaves them in order.
HWY_INLINE int BandPosition(int column) {
  const int i = column % kColumnsAtOnce;
  return column - i + i % 4 * kBlocks + i / 4;
}

// Sums that are results of the first pass, those of even and of odd rows, as neighbours.
HWY_INLINE V16 Neighbours(V32 even, V32 odd, int cut) {
  return hn::OddEven(hn::BitCast(d16, hn::ShiftLeftSame(odd, 16 - cut)),
                     hn::BitCast(d16, hn::ShiftRightSame(even, cut)));
}

// Resamples the tile into the pairs of rows from `band` on.
template <bool kExcess>
HWY_NOINLINE void Across(const Task& task, int cut, std::int16_t* band) {
  const Filter& filter = task.resampling->across;
  const int excess = filter.excess;
  const int count = task.columns.end - task.columns.begin;
  const std::int32_t* weights = filter.WeightsOf(task.columns.begin);
  const int* first = filter.first.data() + task.columns.begin;
  const V32 half = hn::Set(d32, 1 << (cut - 1));
  for (int x = 0; x < count; ++x, weights += filter.pairs) {
    const std::int16_t* window =
        task.tile + std::ptrdiff_t{kTilePair} * (first[x] - task.firstPair);
    std::int16_t* to = band + std::ptrdiff_t{kBlock} * BandPosition(x);
    for (int slot = 0; slot < kHalfTile; slot += 2 * kLanes16) {
      const std::int16_t* samples = window + slot;
      V32 even0 = half;
      V32 even1 = half;
      V32 odd0 = half;
      V32 odd1 = half;
      for (int k = 0; k < filter.pairs; ++k, samples += kTilePair) {
        const V16 weight = WeightsOfPair(weights[k]);
        even0 = AddProducts<kExcess>(even0, samples, weight, excess);
        even1 = AddProducts<kExcess>(even1, samples + kLanes16, weight, excess);
        odd0 = AddProducts<kExcess>(odd0, samples + kHalfTile, weight, excess);
        odd1 = AddProducts<kExcess>(odd1, samples + kHalfTile + kLanes16, weight, excess);
      }
      StoreBlocks(d16, Neighbours(even0, odd0, cut), to, 2 * task.pitch);
      StoreBlocks(d16, Neighbours(even1, odd1, cut), to + 2 * task.pitch * kBlocks, 2 * task.pitch);
      to += 4 * task.pitch * kBlocks;
    }
  }
}

// The sums of four vectors of columns.
struct Sums {
  V32 v0, v1, v2, v3;
};

HWY_INLINE Sums LoadSums(const std::int32_t* from) {
  constexpr int kLanes32 = kLanes16 / 2;
  return {hn::Load(d32, from), hn::Load(d32, from + kLanes32), hn::Load(d32, from + 2 * kLanes32),
          hn::Load(d32, from + 3 * kLanes32)};
}

HWY_INLINE void StoreSums(const Sums& sums, std::int32_t* to) {
  constexpr int kLanes32 = kLanes16 / 2;
  hn::Store(sums.v0, d32, to);
  hn::Store(sums.v1, d32, to + kLanes32);
  hn::Store(sums.v2, d32, to + 2 * kLanes32);
  hn::Store(sums.v3, d32, to + 3 * kLanes32);
}

// The numbers of all columns in order, kept within 0 to 255.
HWY_INLINE hn::VFromD<D8> PackedBytes(const Sums& numbers) {
  alignas(16) constexpr std::uint8_t kOrder[16] = {0, 2, 4, 6, 8, 10, 12, 14,
                                                   1, 3, 5, 7, 9, 11, 13, 15};
  const V16 zero = hn::Zero(d16);
  const V16 full = hn::Set(d16, 255);
  const V16 low = hn::ReorderDemote2To(d16, numbers.v0, numbers.v1);
  const V16 high = hn::ReorderDemote2To(d16, numbers.v2, numbers.v3);
  const V16 lowBytes = hn::Min(hn::Max(low, zero), full);
  const V16 highBytes = hn::Min(hn::Max(high, zero), full);
  return hn::TableLookupBytes(hn::BitCast(d8, hn::Or(lowBytes, hn::ShiftLeft<8>(highBytes))),
                              hn::LoadDup128(d8, kOrder));
}

// The pixels of an opaque picture whose sums are `cut` bits too long.
HWY_INLINE hn::VFromD<D8> OpaquePixels(const Sums& sums, int cut) {
  const V32 half = hn::Set(d32, 1 << (cut - 1));
  const auto rounded = [&](V32 v) { return hn::ShiftRightSame(hn::Add(v, half), cut); };
  const auto bytes =
      PackedBytes({rounded(sums.v0), rounded(sums.v1), rounded(sums.v2), rounded(sums.v3)});
  const auto alpha = hn::Set(d32, static_cast<std::int32_t>(0xFF000000));
  return hn::Or(bytes, hn::BitCast(d8, alpha));
}

// What the sums of each pixel are to be multiplied with to become colours, as lane i of a block for
// the pixel of vector i: 0 for one whose alpha is `faint` or less.
HWY_INLINE VF ColourFactors(VF v0, VF v1, VF v2, VF v3, float faint) {
  const hn::Repartition<double, DF> d64;
  const VF upper01 = hn::InterleaveUpper(df, v0, v1);
  const VF upper23 = hn::InterleaveUpper(df, v2, v3);
  const VF alpha = hn::BitCast(
      df, hn::InterleaveUpper(d64, hn::BitCast(d64, upper01), hn::BitCast(d64, upper23)));
  const VF factor = hn::Div(hn::Set(df, 255.0F), alpha);
  return hn::IfThenElseZero(hn::Gt(alpha, hn::Set(df, faint)), factor);
}

// The nearest whole number, by the rounding of a sum too large for fractions.
HWY_INLINE V32 Nearest(VF v) {
  const VF large = hn::Set(df, 12582912.0F);
  return hn::Sub(hn::BitCast(d32, hn::Add(v, large)), hn::BitCast(d32, large));
}

// The pixels of a picture with alpha whose sums are at most `full`, but for overshooting.
HWY_INLINE hn::VFromD<D8> AlphaPixels(const Sums& sums, float full) {
  alignas(16) constexpr std::int32_t kAlphaLane[4] = {0, 0, 0, -1};
  const auto isAlpha = hn::MaskFromVec(hn::BitCast(df, hn::LoadDup128(d32, kAlphaLane)));
  const VF scale = hn::Set(df, 255.0F / full);
  const VF v0 = hn::ConvertTo(df, sums.v0);
  const VF v1 = hn::ConvertTo(df, sums.v1);
  const VF v2 = hn::ConvertTo(df, sums.v2);
  const VF v3 = hn::ConvertTo(df, sums.v3);
  const VF factors = ColourFactors(v0, v1, v2, v3, full / 510.0F);
  const auto straight = [&](VF v, VF factor) {
    return Nearest(hn::Mul(v, hn::IfThenElse(isAlpha, scale, factor)));
  };
  return PackedBytes(
      {straight(v0, hn::Broadcast<0>(factors)), straight(v1, hn::Broadcast<1>(factors)),
       straight(v2, hn::Broadcast<2>(factors)), straight(v3, hn::Broadcast<3>(factors))});
}

// What a result row takes from the batch.
struct Share {
  const std::int16_t* band;  // the first pair of rows
  const std::int32_t* weights;
  int pairs;
  bool begins;  // the window begins in the batch
  bool ends;    // the window ends in it
};

template <bool kExcess>
HWY_INLINE Sums AddShare(const Share& share, int x, std::ptrdiff_t pitch, int excess, Sums sums) {
  const std::int16_t* samples = share.band + std::ptrdiff_t{kBlock} * x;
  for (int k = 0; k < share.pairs; ++k, samples += 2 * pitch) {
    const V16 weight = WeightsOfPair(share.weights[k]);
    sums.v0 = AddProducts<kExcess>(sums.v0, samples, weight, excess);
    sums.v1 = AddProducts<kExcess>(sums.v1, samples + kLanes16, weight, excess);
    sums.v2 = AddProducts<kExcess>(sums.v2, samples + 2 * kLanes16, weight, excess);
    sums.v3 = AddProducts<kExcess>(sums.v3, samples + 3 * kLanes16, weight, excess);
  }
  return sums;
}

HWY_INLINE void StorePixels(hn::VFromD<D8> pixels, int count, std::uint8_t* to) {
  if (count >= kColumnsAtOnce) {
    hn::StoreU(pixels, d8, to);
    return;
  }
  alignas(kWorkAlignment) std::uint8_t bytes[kMostColumnsAtOnce * kPixelBytes];
  hn::Store(pixels, d8, bytes);
  for (int i = 0; i < count * kPixelBytes; ++i) to[i] = bytes[i];
}

// Adds the share to a result row.
template <bool kAlpha, bool kExcess>
void DownRow(const Task& task, const Share& share, int y) {
  const Filter& filter = task.resampling->down;
  const int bits = filter.bits - filter.excess;
  const float full = static_cast<float>(kFullAlpha) * static_cast<float>(1 << bits);
  const int count = task.columns.end - task.columns.begin;
  std::int32_t* kept = task.sums;
  if (task.sumRows > 0) kept += task.pitch * (y % task.sumRows);
  std::uint8_t* to = task.result->MutableRow(y) + std::ptrdiff_t{kPixelBytes} * task.columns.begin;
  const V32 zero = hn::Zero(d32);
  for (int x = 0; x < count; x += kColumnsAtOnce) {
    Sums sums = share.begins ? Sums{zero, zero, zero, zero} : LoadSums(kept + 4 * x);
    sums = AddShare<kExcess>(share, x, task.pitch, filter.excess, sums);
    if (!share.ends) {
      StoreSums(sums, kept + 4 * x);
      continue;
    }
    const auto pixels = kAlpha ? AlphaPixels(sums, full) : OpaquePixels(sums, bits + kOpaqueBits);
    StorePixels(pixels, count - x, to + std::ptrdiff_t{kPixelBytes} * x);
  }
}

// Goes on with the result rows from `y` on, whose windows reach into the batch of the pairs of rows
// from `begin` up to `end` without it, and gives the first that isn't done.
template <bool kAlpha, bool kExcess>
int Down(const Task& task, int begin, int end, int y) {
  const Filter& filter = task.resampling->down;
  const int height = task.result->Height();
  int firstUndone = y;
  for (; y < height && filter.first[static_cast<std::size_t>(y)] < end; ++y) {
    const int first = filter.first[static_cast<std::size_t>(y)];
    const int last = first + filter.pairs;
    const int from = HWY_MAX(first, begin);
    const int to = HWY_MIN(last, end);
    const Share share{task.band + 2 * task.pitch * (from - begin),
                      filter.WeightsOf(y) + (from - first), to - from, first >= begin, last <= end};
    DownRow<kAlpha, kExcess>(task, share, y);
    if (share.ends) firstUndone = y + 1;
  }
  return firstUndone;
}

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
  task.source->HasAlpha() ? Resample<true>(task) : Resample<false>(task);
}

}  // namespace
}  // namespace HWY_NAMESPACE
}  // namespace morvantile
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace morvantile {
namespace {

HWY_EXPORT(ResampleTask);

// The sizes of the parts of the memory of a task.
struct Layout {
  std::size_t tile, band, sums;
  std::ptrdiff_t pitch;
  int sumRows;

  std::size_t Bytes() const { return tile + band + sums; }
};

int RoundedUp(int value, int step) { return (value + step - 1) / step * step; }

int MostTilePairs(const Resampling& resampling, int count) {
  const double scale = static_cast<double>(resampling.source->Width()) / resampling.result->Width();
  const int pairs = static_cast<int>(scale * count / 2) + resampling.across.pairs + 2;
  return std::min(pairs, resampling.across.sourcePairs);
}

// The most result rows whose windows may reach over one and the same border of a batch.
int MostOpenRows(const Filter& filter) {
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
  layout.pitch = 4 * RoundedUp(count, kMostColumnsAtOnce);
  layout.sumRows = MostOpenRows(resampling.down);
  const int tilePairs = RoundedUp(MostTilePairs(resampling, count), kChunkPixels / 2);
  layout.tile = sizeof(std::int16_t) * kTilePair * static_cast<std::size_t>(tilePairs);
  layout.band = sizeof(std::int16_t) * 2 * kBatchPairs * static_cast<std::size_t>(layout.pitch);
  layout.sums = sizeof(std::int32_t) * static_cast<std::size_t>(layout.sumRows) *
                static_cast<std::size_t>(layout.pitch);
  return layout;
}

}  // namespace

std::size_t WorkBytes(const Resampling& resampling, int count) {
  return LayoutFor(resampling, count).Bytes();
}

void ResampleColumns(const Resampling& resampling, Columns columns, std::uint8_t* work) {
  const Layout layout = LayoutFor(resampling, columns.end - columns.begin);
  // The columns that only fill up the last vectors are never set.
  std::memset(work + layout.tile, 0, layout.band);
  Task task{};
  task.resampling = &resampling;
  task.source = resampling.source;
  task.result = resampling.result;
  task.columns = columns;
  task.firstPair = resampling.across.first[static_cast<std::size_t>(columns.begin)];
  task.tilePairs = resampling.across.first[static_cast<std::size_t>(columns.end) - 1] +
                   resampling.across.pairs - task.firstPair;
  task.tile = reinterpret_cast<std::int16_t*>(work);
  task.band = reinterpret_cast<std::int16_t*>(work + layout.tile);
  task.sums = reinterpret_cast<std::int32_t*>(work + layout.tile + layout.band);
  task.pitch = layout.pitch;
  task.sumRows = layout.sumRows;
  HWY_DYNAMIC_DISPATCH(ResampleTask)(task);
}

}  // namespace morvantile

#endif  // HWY_ONCE
