// The weights of the Lanczos filter along one axis, in fixed point.

#ifndef MORVANTILE_PLATFORM_IMAGING_WEIGHTS_H
#define MORVANTILE_PLATFORM_IMAGING_WEIGHTS_H

#include <cstddef>
#include <cstdint>
#include <vector>

namespace morvantile {

// How the samples of a result are made from those of a source, along one axis.
//
// The vector code multiplies and adds two samples at a time, so the samples of the source are taken
// in pairs: pair p holds the samples 2 p - offset and 2 p - offset + 1, of which one may lie
// outside the source at either end. The offset is the one that makes the windows shorter. Every
// result sample has a window of the same number of pairs; a pair that it doesn't need has weight 0.
struct Filter {
  int offset = 0;
  int source_pairs = 0;
  // Pairs in a window.
  int pairs = 0;
  // A weight of 1 is 1 << bits: as fine as 16 bits can hold the largest weight, for the precision
  // that a long window needs, but then a sum of weighted samples has to be cut down by `excess`
  // bits as it grows.
  int bits = 0;
  int excess = 0;
  // For each result sample, the first pair of its window; never decreases.
  std::vector<int> first;
  // For each pair of each window, the weights of its two samples. Those of a window sum up to
  // exactly 1 << bits.
  std::vector<std::int16_t> weights;

  [[nodiscard]] const std::int16_t* WeightsOf(int i) const {
    return weights.data() + std::ptrdiff_t{2} * pairs * i;
  }
};

// The filter from `source_size` samples to `result_size`, both at least 1.
//
// Lanczos with three lobes, sinc(x) sinc(x / 3) for |x| < 3, in units of a source sample, or of a
// result sample where that is larger; the centres of the first and of the last samples lie half a
// sample inside of the common ends.
Filter LanczosFilter(int source_size, int result_size);

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_IMAGING_WEIGHTS_H
