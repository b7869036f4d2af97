// From the bytes of a picture to samples and from sums back to bytes, compiled for each processor.

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
#include "platform/imaging/vectors-inl.h"

HWY_BEFORE_NAMESPACE();
namespace morvantile::HWY_NAMESPACE {
namespace {

// ---- Bytes to samples

// What ConvertChunk takes of each row.
constexpr int kChunkPixels = 4;

// The 16 bytes at `offset` of as many rows as the vector has blocks, every fourth row.
template <class D>
HWY_INLINE hn::VFromD<D> LoadChunks(D d, const std::uint8_t* const* rows, std::ptrdiff_t offset) {
  if constexpr (hn::MaxLanes(D()) > 16) {
    const hn::Half<D> half;
    return hn::Combine(d, LoadChunks(half, rows + hn::MaxLanes(half) / 16 * kBlock, offset),
                       LoadChunks(half, rows, offset));
  } else {
    return hn::LoadU(d, rows[0] + offset);
  }
}

// The chunks of some rows as channels, the first pixel and the third of each in the lower bytes of
// a pair, the second and the fourth in the upper: a lane is a row.
template <int kChannels>
HWY_INLINE Vectors<kChannels> ByChannel(const std::uint8_t* const* rows, std::ptrdiff_t offset) {
  alignas(16) constexpr std::uint8_t kOrder[16] = {0, 8,  4, 12, 1, 9,  5, 13,
                                                   2, 10, 6, 14, 3, 11, 7, 15};
  const V8 order = hn::LoadDup128(kD8, kOrder);
  const auto row = [&](int i) {
    return hn::BitCast(kD32, hn::TableLookupBytes(LoadChunks(kD8, rows + i, offset), order));
  };
  const V32 row0 = row(0);
  const V32 row1 = row(1);
  const V32 row2 = row(2);
  const V32 row3 = row(3);
  const auto lower01 = hn::BitCast(kD64, hn::InterleaveLower(kD32, row0, row1));
  const auto lower23 = hn::BitCast(kD64, hn::InterleaveLower(kD32, row2, row3));
  const auto upper01 = hn::BitCast(kD64, hn::InterleaveUpper(kD32, row0, row1));
  const auto upper23 = hn::BitCast(kD64, hn::InterleaveUpper(kD32, row2, row3));
  Vectors<kChannels> channels;
  channels.of[0] = hn::BitCast(kD32, hn::InterleaveLower(kD64, lower01, lower23));
  channels.of[1] = hn::BitCast(kD32, hn::InterleaveUpper(kD64, lower01, lower23));
  channels.of[2] = hn::BitCast(kD32, hn::InterleaveLower(kD64, upper01, upper23));
  if constexpr (kChannels == 4) {
    channels.of[3] = hn::BitCast(kD32, hn::InterleaveUpper(kD64, upper01, upper23));
  }
  return channels;
}

// The samples of a pair of columns, the colours multiplied by alpha if there is alpha.
template <int kChannels>
HWY_INLINE Vectors<kChannels> Premultiplied(Vectors<kChannels> pairs) {
  if constexpr (kChannels == 4) {
    const hn::RebindToUnsigned<D16> du16;
    const auto alpha = hn::BitCast(du16, pairs.of[3]);
    for (int c = 0; c < kChannels; ++c) {
      const auto factor = c == 3 ? hn::Set(du16, 255) : alpha;
      const auto product = hn::Mul(hn::BitCast(du16, pairs.of[c]), factor);
      pairs.of[c] = hn::BitCast(kD32, hn::ShiftRight<kAlphaCut>(product));
    }
  }
  return pairs;
}

// Converts a chunk of each row of a group.
template <int kChannels>
HWY_INLINE void ConvertChunk(const std::uint8_t* const* rows, std::ptrdiff_t offset,
                             std::int32_t* tile) {
  const hn::RebindToUnsigned<D16> du16;
  for (std::ptrdiff_t row = 0; row < kGroupRows; row += kLanes) {
    const Vectors<kChannels> bytes = ByChannel<kChannels>(rows + row, offset);
    Vectors<kChannels> first;
    Vectors<kChannels> second;
    for (int c = 0; c < kChannels; ++c) {
      const auto both = hn::BitCast(du16, bytes.of[c]);
      first.of[c] = hn::BitCast(kD32, hn::And(both, hn::Set(du16, 0xFF)));
      second.of[c] = hn::BitCast(kD32, hn::ShiftRight<8>(both));
    }
    Store(Premultiplied(first), tile + row, kTilePlane);
    Store(Premultiplied(second), tile + kChannels * kTilePlane + row, kTilePlane);
  }
}

// ---- Sums to bytes

// The numbers, kept within 0 to 255, as the bytes of pixels.
HWY_INLINE V32 Pixels(V32 blue, V32 green, V32 red, V32 alpha) {
  alignas(16) constexpr std::uint8_t kOrder[16] = {0, 8,  1, 9,  2, 10, 3, 11,
                                                   4, 12, 5, 13, 6, 14, 7, 15};
  const auto bytes = [](V32 v, V32 w) {
    const V16 both = hn::ReorderDemote2To(kD16, v, w);
    return hn::Min(hn::Max(both, hn::Zero(kD16)), hn::Set(kD16, 255));
  };
  const V16 all = hn::Or(bytes(blue, green), hn::ShiftLeft<8>(bytes(red, alpha)));
  return hn::BitCast(kD32,
                     hn::TableLookupBytes(hn::BitCast(kD8, all), hn::LoadDup128(kD8, kOrder)));
}

// The pixels of an opaque picture whose sums are `cut` bits too long.
HWY_INLINE V32 FinishedPixels(const Vectors<3>& sums, int cut) {
  const auto rounded = [&](V32 v) {
    return hn::ShiftRightSame(hn::Add(v, hn::Set(kD32, 1 << (cut - 1))), cut);
  };
  return Pixels(rounded(sums.of[0]), rounded(sums.of[1]), rounded(sums.of[2]), hn::Set(kD32, 255));
}

// The nearest whole number, by the rounding of a sum that is too large for fractions: each
// processor rounds that alike.
HWY_INLINE V32 Nearest(VF v) {
  const VF large = hn::Set(kDf, 12582912.0F);
  return hn::Sub(hn::BitCast(kD32, hn::Add(v, large)), hn::BitCast(kD32, large));
}

// The pixels of a picture with alpha, where a full channel is kFullAlpha << `cut`. Colours are
// divided by the sum of alpha itself, overshooting or not, so what has one colour keeps it; one
// whose alpha comes to 0 is 0.
HWY_INLINE V32 FinishedPixels(const Vectors<4>& sums, int cut) {
  const float full = static_cast<float>(kFullAlpha) * static_cast<float>(1 << cut);
  const VF alpha = hn::ConvertTo(kDf, sums.of[3]);
  const VF factor = hn::IfThenElseZero(hn::Gt(alpha, hn::Set(kDf, full / 510.0F)),
                                       hn::Div(hn::Set(kDf, 255.0F), alpha));
  const auto straight = [&](V32 v) { return Nearest(hn::Mul(hn::ConvertTo(kDf, v), factor)); };
  return Pixels(straight(sums.of[0]), straight(sums.of[1]), straight(sums.of[2]),
                Nearest(hn::Mul(alpha, hn::Set(kDf, 255.0F / full))));
}

}  // namespace
}  // namespace morvantile::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#endif  // MORVANTILE_PLATFORM_IMAGING_PIXELS_INL_H
