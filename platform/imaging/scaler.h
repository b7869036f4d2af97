// Resampling of pictures.

#ifndef MORVANTILE_PLATFORM_IMAGING_SCALER_H
#define MORVANTILE_PLATFORM_IMAGING_SCALER_H

#include <cstdint>

#include "platform/imaging/picture.h"

namespace morvantile {

// A new picture of `width` x `height` pixels made from `source`, which stays as it is.
//
// The method is Lanczos with three lobes, widened by the reduction factor, its weights normalised
// over the samples that exist; pixel centres are aligned, colours are weighted by alpha, and no
// gamma is applied. The original size gives the same pixels, bit for bit.
//
// A side below 1 is taken as 1. Nil if `source` is nil or the result would be larger than a Picture
// can be.
Ref<Picture> Resample(const Ref<Picture>& source, std::int64_t width, std::int64_t height);

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_IMAGING_SCALER_H
