// Resampling of pictures.

#ifndef MORVANTILE_PLATFORM_IMAGING_SCALER_H
#define MORVANTILE_PLATFORM_IMAGING_SCALER_H

#include <cstdint>

#include "platform/imaging/picture.h"

namespace morvantile {

// A new picture of `width` x `height` pixels made from `source`, which stays as it is. A side below
// 1 is taken as 1. Nil if `source` is nil, if the result would be larger than a Picture can be, or
// if there isn't the memory.
//
// The method is Lanczos with three lobes, widened by the reduction factor, its weights normalised
// over the samples that exist; pixel centres are aligned, colours are weighted by alpha, and no
// gamma is applied. Each channel of a pixel whose alpha is 255 is within one level of the exact
// result, and so are alpha and the colours times alpha elsewhere. The original size
// returns the same pixels, bit for bit.
//
// The result has alpha if the source has. At any other size than the original, the alpha bytes of
// an opaque result are 255, and a pixel whose alpha comes to 0 is 0 in all channels. The bytes are
// the same on every processor. The metadata are those of the source: the colours stay in its colour
// space, and the density is kept, so that half as many pixels make a print of half the size.
//
// If nobody else holds the picture in `spare` and its memory is large enough, the result takes that
// over. So a caller who has done with its last result saves the system the making of fresh pages,
// which takes up to a fifth of the time.
//
// The call returns when the work is done. Threads of the scaler's own, started by the first call
// and asleep between calls, take a part in it; they touch nothing but the pixels.
Ref<Picture> Resample(const Ref<Picture>& source, std::int64_t width, std::int64_t height,
                      Ref<Picture> spare = nullptr);

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_IMAGING_SCALER_H
