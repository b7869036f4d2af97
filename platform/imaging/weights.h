// The weights of the Lanczos filter along one axis.

#ifndef MORVANTILE_PLATFORM_IMAGING_WEIGHTS_H
#define MORVANTILE_PLATFORM_IMAGING_WEIGHTS_H

#include <vector>

namespace morvantile {

// The samples that one result sample is made of: those from `first` on, one for each weight. The
// weights sum up to 1.
struct Window {
  int first;
  std::vector<double> weights;
};

// The windows of `resultSize` samples made from `sourceSize`, both at least 1.
//
// Lanczos with three lobes, sinc(x) sinc(x / 3) for |x| < 3, in units of a source sample, or of a
// result sample where that is larger.
std::vector<Window> LanczosWindows(int sourceSize, int resultSize);

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_IMAGING_WEIGHTS_H
