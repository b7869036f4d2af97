// From the bytes of a picture to blocks and from sums back to bytes, compiled for each processor.

#if defined(MORVANTILE_PLATFORM_IMAGING_PIXELS_INL_H) == defined(HWY_TARGET_TOGGLE)
#ifdef MORVANTILE_PLATFORM_IMAGING_PIXELS_INL_H
#undef MORVANTILE_PLATFORM_IMAGING_PIXELS_INL_H
#else
#define MORVANTILE_PLATFORM_IMAGING_PIXELS_INL_H
#endif

#include <cstddef>
#include <cstdint>

#include "hwy/highway.h"
#include "platform/imaging/blocks.h"

HWY_BEFORE_NAMESPACE();
namespace morvantile::HWY_NAMESPACE {
namespace {

namespace hn = hwy::HWY_NAMESPACE;

// At most four blocks, so that a group fills whole vectors.
#if HWY_HAVE_SCALABLE
using D16 = hn::FixedTag<std::int16_t, kBlock>;
#else
using D16 = hn::CappedTag<std::int16_t, 4 * kBlock>;
#endif
using D8 = hn::Repartition<std::uint8_t, D16>;
using D32 = hn::Repartition<std::int32_t, D16>;
using DF = hn::Repartition<float, D16>;
using V8 = hn::VFromD<D8>;
using V16 = hn::VFromD<D16>;
using V32 = hn::VFromD<D32>;
using VF = hn::VFromD<DF>;

constexpr D8 d8;
constexpr D16 d16;
constexpr D32 d32;
constexpr DF df;

constexpr std::ptrdiff_t kLanes16 = hn::MaxLanes(d16);
constexpr std::ptrdiff_t kLanes32 = hn::MaxLanes(d32);
constexpr int kBlocks = kLanes16 / kBlock;  // in a vector

// ---- Bytes to blocks

// What ConvertChunk takes of each row.
constexpr int kChunkPixels = 4;

// The 16 bytes at `offset` of each of as many rows as the vector has blocks.
template <class D>
HWY_INLINE hn::VFromD<D> LoadChunks(D d, const std::uint8_t* const* rows, std::ptrdiff_t offset) {
  if constexpr (hn::MaxLanes(D()) > 16) {
    const hn::Half<D> half;
    return hn::Combine(d, LoadChunks(half, rows + hn::MaxLanes(half) / 16, offset),
                       LoadChunks(half, rows, offset));
  } else {
    return hn::LoadU(d, rows[0] + offset);
  }
}

// Of the first two and of the last two pixels of a chunk, the bytes of each number of a block; 128
// makes 0.
constexpr std::uint8_t kNone = 128;
alignas(16) constexpr std::uint8_t kColours[2][16] = {
    {0, kNone, 4, kNone, 1, kNone, 5, kNone, 2, kNone, 6, kNone, kNone, kNone, kNone, kNone},
    {8, kNone, 12, kNone, 9, kNone, 13, kNone, 10, kNone, 14, kNone, kNone, kNone, kNone, kNone}};
alignas(16) constexpr std::uint8_t kAlphas[2][16] = {
    {3, kNone, 7, kNone, 3, kNone, 7, kNone, 3, kNone, 7, kNone, 3, kNone, 7, kNone},
    {11, kNone, 15, kNone, 11, kNone, 15, kNone, 11, kNone, 15, kNone, 11, kNone, 15, kNone}};
// Alpha times full is alpha premultiplied.
alignas(16) constexpr std::int16_t kFull[kBlock] = {0, 0, 0, 0, 0, 0, 255, 255};

// Converts a chunk of each row of a group. The rows are in the order of the tile.
template <bool kAlpha>
HWY_INLINE void ConvertChunk(const std::uint8_t* const* rows, std::ptrdiff_t offset,
                             std::int16_t* tile) {
  for (int pair = 0; pair < kChunkPixels / 2; ++pair, tile += kTilePair) {
    const V8 colours = hn::LoadDup128(d8, kColours[pair]);
    const V8 alphas = hn::LoadDup128(d8, kAlphas[pair]);
    const V16 full = hn::LoadDup128(d16, kFull);
    for (int row = 0; row < kGroupRows; row += kBlocks) {
      const V8 pixels = LoadChunks(d8, rows + row, offset);
      V16 numbers = hn::BitCast(d16, hn::TableLookupBytesOr0(pixels, colours));
      if constexpr (kAlpha) {
        const hn::RebindToUnsigned<D16> du16;
        const V16 alpha = hn::BitCast(d16, hn::TableLookupBytesOr0(pixels, alphas));
        const auto products = hn::BitCast(du16, hn::Mul(hn::Or(numbers, full), alpha));
        numbers = hn::BitCast(d16, hn::ShiftRight<kAlphaCut>(products));
      }
      hn::Store(numbers, d16, tile + row * kBlock);
    }
  }
}

// ---- Sums to bytes

// The sums of four vectors of columns.
struct Sums {
  V32 v0, v1, v2, v3;
};

constexpr int kColumnsAtOnce = 4 * kBlocks;

// Where columns lie in band and sums: in such an order that packing puts them right.
HWY_INLINE int Position(int column) {
  const int i = column % kColumnsAtOnce;
  return column - i + i % 4 * kBlocks + i / 4;
}

// The numbers, kept within 0 to 255, in the order of their columns.
HWY_INLINE V8 PackedBytes(const Sums& numbers) {
  alignas(16) constexpr std::uint8_t kOrder[16] = {0, 2, 4, 6, 8, 10, 12, 14,
                                                   1, 3, 5, 7, 9, 11, 13, 15};
  const V16 zero = hn::Zero(d16);
  const V16 most = hn::Set(d16, 255);
  const V16 v01 = hn::ReorderDemote2To(d16, numbers.v0, numbers.v1);
  const V16 v23 = hn::ReorderDemote2To(d16, numbers.v2, numbers.v3);
  const V16 low = hn::Min(hn::Max(v01, zero), most);
  const V16 high = hn::ShiftLeft<8>(hn::Min(hn::Max(v23, zero), most));
  return hn::TableLookupBytes(hn::BitCast(d8, hn::Or(low, high)), hn::LoadDup128(d8, kOrder));
}

// The pixels of an opaque picture whose sums are `cut` bits too long.
HWY_INLINE V8 OpaquePixels(const Sums& sums, int cut) {
  const V32 half = hn::Set(d32, 1 << (cut - 1));
  const auto rounded = [&](V32 v) { return hn::ShiftRightSame(hn::Add(v, half), cut); };
  const V8 bytes =
      PackedBytes({rounded(sums.v0), rounded(sums.v1), rounded(sums.v2), rounded(sums.v3)});
  return hn::Or(bytes, hn::BitCast(d8, hn::Set(d32, static_cast<std::int32_t>(0xFF000000))));
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

// The nearest whole number, by the rounding of a sum that is too large for fractions: each
// processor rounds that alike.
HWY_INLINE V32 Nearest(VF v) {
  const VF large = hn::Set(df, 12582912.0F);
  return hn::Sub(hn::BitCast(d32, hn::Add(v, large)), hn::BitCast(d32, large));
}

// The pixels of a picture with alpha, where `full` is the sum of a full channel. Colours are
// divided by the sum of alpha itself, overshooting or not, so what has one colour keeps it.
HWY_INLINE V8 AlphaPixels(const Sums& sums, float full) {
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

// Stores the pixels of kColumnsAtOnce columns, of which there are only `count` more.
HWY_INLINE void StorePixels(V8 pixels, int count, std::uint8_t* to) {
  if (count >= kColumnsAtOnce) {
    hn::StoreU(pixels, d8, to);
    return;
  }
  alignas(64) std::uint8_t bytes[kColumnsAtOnce * kPixelBytes];
  hn::Store(pixels, d8, bytes);
  for (std::ptrdiff_t i = 0; i < count * kPixelBytes; ++i) to[i] = bytes[i];
}

}  // namespace
}  // namespace morvantile::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#endif  // MORVANTILE_PLATFORM_IMAGING_PIXELS_INL_H
