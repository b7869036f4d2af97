#include "platform/imaging/picture.h"

#include <bit>
#include <cstddef>
#include <utility>

#include "platform/imaging/aligned.h"

namespace morvantile {

Ref<Picture> Picture::Create(std::int64_t width, std::int64_t height, bool has_alpha,
                             Ref<Picture> spare) {
  if (width < 1 || height < 1 || width > kMaxBytes / 4) return nullptr;
  constexpr auto kStep = static_cast<std::int64_t>(kAlignment);
  const std::int64_t stride = (4 * width + kStep - 1) / kStep * kStep;
  if (height > kMaxBytes / stride) return nullptr;
  const auto bytes = static_cast<std::size_t>(stride * height);
  Ref<Picture> picture(new Picture);
  if (spare.IsOnlyOwner() && spare->own_bytes_ >= bytes) {
    picture->own_ = std::move(spare->own_);
    picture->own_bytes_ = spare->own_bytes_;
  } else {
    spare = nullptr;
    // Room for a larger picture to come; what isn't used takes no memory.
    picture->own_bytes_ = std::bit_ceil(bytes);
    picture->own_ = MakeAlignedBytes(picture->own_bytes_);
    if (picture->own_ == nullptr) return nullptr;
  }
  picture->width_ = static_cast<int>(width);
  picture->height_ = static_cast<int>(height);
  picture->stride_ = stride;
  picture->has_alpha_ = has_alpha;
  picture->pixels_ = picture->own_.get();
  return picture;
}

Ref<Picture> Picture::Wrap(int width, int height, std::ptrdiff_t stride, const std::uint8_t* pixels,
                           bool has_alpha, std::shared_ptr<const void> keeper) {
  Ref<Picture> picture(new Picture);
  picture->width_ = width;
  picture->height_ = height;
  picture->stride_ = stride;
  picture->has_alpha_ = has_alpha;
  picture->pixels_ = pixels;
  picture->keeper_ = std::move(keeper);
  return picture;
}

}  // namespace morvantile
