// What the tests and the benchmarks of the scaler see beyond its public side.

#ifndef MORVANTILE_PLATFORM_IMAGING_RESAMPLE_INTERNAL_H
#define MORVANTILE_PLATFORM_IMAGING_RESAMPLE_INTERNAL_H

#include <cstdint>

#include "platform/imaging/picture.h"

namespace morvantile {

// Resample with at most `threads` threads, the calling one included; at least 1.
Ref<Picture> ResampleWithThreads(const Ref<Picture>& source, std::int64_t width,
                                 std::int64_t height, int threads);

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_IMAGING_RESAMPLE_INTERNAL_H
