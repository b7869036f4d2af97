#include "platform/imaging/scaler.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <new>
#include <vector>

#include "platform/imaging/weights.h"

namespace morvantile {
namespace {

// One pixel between the passes: premultiplied blue, green, red, and alpha, 0 to 255.
using Pixel = std::array<float, 4>;

Ref<Picture> Copy(const Picture& source) {
  Ref<Picture> copy = Picture::Create(source.Width(), source.Height(), source.HasAlpha());
  if (copy == nullptr) return nullptr;
  for (int y = 0; y < source.Height(); ++y) {
    std::memcpy(copy->MutableRow(y), source.Row(y), 4 * static_cast<std::size_t>(source.Width()));
  }
  return copy;
}

Pixel Premultiplied(const std::uint8_t* bytes, bool hasAlpha) {
  const float alpha = hasAlpha ? bytes[3] : 255;
  const float factor = alpha / 255;
  return {bytes[0] * factor, bytes[1] * factor, bytes[2] * factor, alpha};
}

std::uint8_t Rounded(float value) {
  return static_cast<std::uint8_t>(std::clamp(value + 0.5F, 0.0F, 255.0F));
}

void StoreStraight(const Pixel& pixel, std::uint8_t* bytes) {
  bytes[3] = Rounded(pixel[3]);
  for (std::size_t c = 0; c < 3; ++c) {
    bytes[c] = bytes[3] == 0 ? 0 : Rounded(pixel[c] * 255 / pixel[3]);
  }
}

template <typename At>
Pixel WeightedSum(const Window& window, At at) {
  Pixel sum{};
  for (std::size_t i = 0; i < window.weights.size(); ++i) {
    const Pixel pixel = at(window.first + static_cast<int>(i));
    for (std::size_t c = 0; c < 4; ++c) sum[c] += static_cast<float>(window.weights[i]) * pixel[c];
  }
  return sum;
}

// The rows of the source in the width of the result.
std::vector<Pixel> Horizontally(const Picture& source, int width) {
  std::vector<Pixel> result(static_cast<std::size_t>(width) *
                            static_cast<std::size_t>(source.Height()));
  const std::vector<Window> windows = LanczosWindows(source.Width(), width);
  auto pixel = result.begin();
  for (int y = 0; y < source.Height(); ++y) {
    for (const Window& window : windows) {
      *pixel++ = WeightedSum(window, [&](int x) {
        return Premultiplied(source.Row(y) + std::ptrdiff_t{4} * x, source.HasAlpha());
      });
    }
  }
  return result;
}

void Vertically(const std::vector<Pixel>& rows, int sourceHeight, Picture& result) {
  const auto width = static_cast<std::size_t>(result.Width());
  int y = 0;
  for (const Window& window : LanczosWindows(sourceHeight, result.Height())) {
    std::uint8_t* bytes = result.MutableRow(y++);
    for (std::size_t x = 0; x < width; ++x, bytes += 4) {
      const auto at = [&](int row) { return rows[static_cast<std::size_t>(row) * width + x]; };
      StoreStraight(WeightedSum(window, at), bytes);
    }
  }
}

}  // namespace

Ref<Picture> Resample(const Ref<Picture>& source, std::int64_t width, std::int64_t height) {
  if (source == nullptr) return nullptr;
  width = std::max<std::int64_t>(width, 1);
  height = std::max<std::int64_t>(height, 1);
  if (width == source->Width() && height == source->Height()) return Copy(*source);

  Ref<Picture> result = Picture::Create(width, height, source->HasAlpha());
  if (result == nullptr) return nullptr;
  try {
    Vertically(Horizontally(*source, result->Width()), source->Height(), *result);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
  return result;
}

}  // namespace morvantile
