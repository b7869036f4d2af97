// Vectors of samples and their weighted sums, compiled for each processor.

#if defined(MORVANTILE_PLATFORM_IMAGING_VECTORS_INL_H) == defined(HWY_TARGET_TOGGLE)
#ifdef MORVANTILE_PLATFORM_IMAGING_VECTORS_INL_H
#undef MORVANTILE_PLATFORM_IMAGING_VECTORS_INL_H
#else
#define MORVANTILE_PLATFORM_IMAGING_VECTORS_INL_H
#endif

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "hwy/highway.h"
#include "platform/imaging/blocks.h"

HWY_BEFORE_NAMESPACE();
namespace morvantile::HWY_NAMESPACE {
namespace {

namespace hn = hwy::HWY_NAMESPACE;

// At most as many lanes as a group has rows, so that it fills whole vectors.
#if HWY_HAVE_SCALABLE
using D32 = hn::FixedTag<std::int32_t, kBlock>;
#else
using D32 = hn::CappedTag<std::int32_t, kGroupRows>;
#endif
using D16 = hn::Repartition<std::int16_t, D32>;
using D8 = hn::Repartition<std::uint8_t, D32>;
using D64 = hn::Repartition<std::int64_t, D32>;
using DF = hn::Repartition<float, D32>;
using V8 = hn::VFromD<D8>;
using V16 = hn::VFromD<D16>;
using V32 = hn::VFromD<D32>;
using VF = hn::VFromD<DF>;

constexpr D8 kD8;
constexpr D16 kD16;
constexpr D32 kD32;
constexpr D64 kD64;
constexpr DF kDf;

constexpr std::ptrdiff_t kLanes = hn::MaxLanes(kD32);

// A vector for each channel, as many of them as are kept.
template <int kChannels>
struct Vectors {
  V32 of[std::size_t{kChannels}];
};

template <int kChannels>
HWY_INLINE Vectors<kChannels> AllOf(V32 value) {
  Vectors<kChannels> all;
  for (int c = 0; c < kChannels; ++c) all.of[c] = value;
  return all;
}

// A vector of each channel, whose planes lie `plane` numbers apart.
template <int kChannels>
HWY_INLINE Vectors<kChannels> Load(const std::int32_t* from, std::ptrdiff_t plane) {
  Vectors<kChannels> vectors;
  for (int c = 0; c < kChannels; ++c) vectors.of[c] = hn::Load(kD32, from + plane * c);
  return vectors;
}

template <int kChannels>
HWY_INLINE void Store(const Vectors<kChannels>& vectors, std::int32_t* to, std::ptrdiff_t plane) {
  for (int c = 0; c < kChannels; ++c) hn::Store(vectors.of[c], kD32, to + plane * c);
}

// Adds the weighted sum of the neighbours in each pair, cut down by `excess` bits if there are
// such.
template <bool kExcess>
HWY_INLINE V32 AddWeighted(V32 sum, V16 samples, V16 weights, int excess) {
  V32 rest = hn::Zero(kD32);
  const V32 products = hn::ReorderWidenMulAccumulate(kD32, samples, weights, hn::Zero(kD32), rest);
  V32 weighted = hn::RearrangeToOddPlusEven(products, rest);
  if constexpr (kExcess) {
    const V32 half = hn::Set(kD32, 1 << (excess - 1));
    weighted = hn::ShiftRightSame(hn::Add(weighted, half), excess);
  }
  return hn::Add(sum, weighted);
}

HWY_INLINE V16 WeightsOfPair(const std::int16_t* weights) {
  std::int32_t both;
  std::memcpy(&both, weights, sizeof(both));
  return hn::BitCast(kD16, hn::Set(kD32, both));
}

// Adds the pairs of samples, weighted, to the sums of their channels.
template <bool kExcess, int kChannels>
HWY_INLINE void Add(const Vectors<kChannels>& pairs, const std::int16_t* weights, int excess,
                    Vectors<kChannels>& sums) {
  const V16 weight = WeightsOfPair(weights);
  for (int c = 0; c < kChannels; ++c) {
    sums.of[c] = AddWeighted<kExcess>(sums.of[c], hn::BitCast(kD16, pairs.of[c]), weight, excess);
  }
}

}  // namespace
}  // namespace morvantile::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#endif  // MORVANTILE_PLATFORM_IMAGING_VECTORS_INL_H
