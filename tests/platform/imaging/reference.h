// The definition of the scaler, worked out in double precision, to hold its results against.

#ifndef MORVANTILE_TESTS_PLATFORM_IMAGING_REFERENCE_H
#define MORVANTILE_TESTS_PLATFORM_IMAGING_REFERENCE_H

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/imaging/picture.h"

namespace morvantile {

// Blue, green, red, straight and unrounded, and alpha, 0 to 255 each.
using ExactPixel = std::array<double, 4>;

// Row by row, `width` x `height` pixels.
std::vector<ExactPixel> ExactlyResampled(const Picture& source, int width, int height);

// Where `result` is more than one level off the exact picture, "" if nowhere: a channel of a pixel
// whose alpha is 255, and alpha elsewhere. A colour times alpha may be one and a half off there: of
// that, the rounding of the two bytes to the nearest can take one.
std::string FirstDifference(const Picture& result, const std::vector<ExactPixel>& exact);

// What a picture is filled with.
enum class Content { kNoise, kStripes, kBlocks };

// A picture of the same bytes each time, its alpha bytes included. Rows have `padding` bytes
// behind them; with padding, the picture is one made by Wrap whose storage ends with its last
// pixel.
Ref<Picture> Sample(Content content, int width, int height, bool has_alpha, int padding = 0);

}  // namespace morvantile

#endif  // MORVANTILE_TESTS_PLATFORM_IMAGING_REFERENCE_H
