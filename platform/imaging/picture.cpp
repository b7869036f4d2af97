#include "platform/imaging/picture.h"

#include <bit>
#include <utility>

#include "platform/imaging/aligned.h"

namespace morvantile {

Ref<Picture> Picture::Create(std::int64_t width, std::int64_t height, bool hasAlpha,
                             Ref<Picture> spare) {
  if (width < 1 || height < 1 || width > kMaxBytes / 4) return nullptr;
  constexpr auto kStep = static_cast<std::int64_t>(kAlignment);
  const std::int64_t stride = (4 * width + kStep - 1) / kStep * kStep;
  if (height > kMaxBytes / stride) return nullptr;
  const auto bytes = static_cast<std::size_t>(stride * height);
  if (!spare.IsOnlyOwner() || spare->writableBytes_ < bytes) {
    spare = nullptr;
    spare = WithStorage(bytes);
  }
  if (spare == nullptr) return nullptr;

  Ref<Picture> picture = Wrap(static_cast<int>(width), static_cast<int>(height), stride,
                              spare->writable_, hasAlpha, std::move(spare->keeper_));
  picture->writable_ = spare->writable_;
  picture->writableBytes_ = spare->writableBytes_;
  return picture;
}

// Room for a larger picture to come too: what isn't used takes no memory.
Ref<Picture> Picture::WithStorage(std::size_t bytes) {
  bytes = std::bit_ceil(bytes);
  AlignedBytes storage = MakeAlignedBytes(bytes);
  if (storage == nullptr) return nullptr;
  Ref<Picture> picture(new Picture);
  picture->writable_ = storage.get();
  picture->writableBytes_ = bytes;
  picture->keeper_ = std::shared_ptr<const void>(std::move(storage));
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
