// What the tests and the benchmarks of the scaler see beyond its public side.

#ifndef MORVANTILE_PLATFORM_IMAGING_RESAMPLE_INTERNAL_H
#define MORVANTILE_PLATFORM_IMAGING_RESAMPLE_INTERNAL_H

#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/imaging/picture.h"

namespace morvantile {

// Resample with at most `threads` threads, the calling one included; at least 1.
Ref<Picture> ResampleWithThreads(const Ref<Picture>& source, std::int64_t width,
                                 std::int64_t height, int threads, Ref<Picture> spare = nullptr);

// The bytes that such a call would work in, beside source and result; the pixels aren't looked at.
std::size_t WorkingBytes(const Picture& source, int width, int height, int threads);

// The instruction sets that the passes are compiled for and that this processor has, as Highway's
// target bits.
std::vector<std::int64_t> VectorTargets();

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_IMAGING_RESAMPLE_INTERNAL_H
