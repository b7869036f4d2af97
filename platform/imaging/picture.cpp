#include "platform/imaging/picture.h"

#include <utility>

#include "platform/imaging/aligned.h"

namespace morvantile {

Ref<Picture> Picture::Create(std::int64_t width, std::int64_t height, bool hasAlpha) {
  if (width < 1 || height < 1 || width > kMaxBytes / 4 || height > kMaxBytes / (4 * width)) {
    return nullptr;
  }
  const std::int64_t stride = 4 * width;
  AlignedBytes storage = MakeAlignedBytes(static_cast<std::size_t>(stride * height));
  if (storage == nullptr) return nullptr;

  std::uint8_t* const pixels = storage.get();
  Ref<Picture> picture = Wrap(static_cast<int>(width), static_cast<int>(height), stride, pixels,
                              hasAlpha, std::shared_ptr<const void>(std::move(storage)));
  picture->writable_ = pixels;
  return picture;
}

Ref<Picture> Picture::Wrap(int width, int height, std::ptrdiff_t stride, const std::uint8_t* pixels,
                           bool hasAlpha, std::shared_ptr<const void> keeper) {
  Ref<Picture> picture(new Picture);
  picture->width_ = width;
  picture->height_ = height;
  picture->stride_ = stride;
  picture->hasAlpha_ = hasAlpha;
  picture->pixels_ = pixels;
  picture->keeper_ = std::move(keeper);
  return picture;
}

}  // namespace morvantile
