// Pictures in memory.

#ifndef MORVANTILE_PLATFORM_IMAGING_PICTURE_H
#define MORVANTILE_PLATFORM_IMAGING_PICTURE_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "platform/core/export.h"
#include "platform/core/ref.h"

namespace morvantile {

// What a picture says about its pixels. It goes along wherever they go.
struct PictureMetadata {
  // The ICC profile of the colours, of the class for RGB data. Null: there is none, and they are
  // taken for sRGB.
  std::shared_ptr<const std::string> profile;
  // The density, in pixels a metre; 0 if it isn't known.
  int dots_per_metre_x = 0;
  int dots_per_metre_y = 0;
};

// The pixels of a picture: `height` rows of `width` pixels of four bytes, blue, green, red, alpha
// in this order, 0 to 255 each, the colours not multiplied by alpha. Rows begin `stride` bytes
// apart, stride >= 4 * width. A picture that isn't marked as having alpha is opaque, whatever its
// alpha bytes hold.
class MORVANTILE_API Picture : public Object {
 public:
  // The largest pixel storage that a picture may have, in bytes.
  static constexpr std::int64_t kMaxBytes = std::int64_t{1} << 30;

  // A picture of `width` x `height` pixels, each at least 1, with storage of its own whose content
  // is not set. Rows begin at multiples of 64 bytes. Nil if it would need more than
  // kMaxBytes, or if there is not enough memory. If nobody else holds the picture in `spare` and
  // its storage is large enough, the new one takes that over.
  static Ref<Picture> Create(std::int64_t width, std::int64_t height, bool has_alpha,
                             Ref<Picture> spare = nullptr);

  // A picture over pixels that somebody else made, without a copy. `keeper` owns them and is let
  // go together with the picture; nobody may change them in the meantime.
  static Ref<Picture> Wrap(int width, int height, std::ptrdiff_t stride, const std::uint8_t* pixels,
                           bool has_alpha, std::shared_ptr<const void> keeper);

  PictureMetadata metadata;

  int Width() const { return width_; }
  int Height() const { return height_; }
  std::ptrdiff_t Stride() const { return stride_; }
  bool HasAlpha() const { return has_alpha_; }

  const std::uint8_t* Row(int y) const { return pixels_ + stride_ * y; }
  // The row for writing; null for a picture made by Wrap.
  std::uint8_t* MutableRow(int y) { return own_ == nullptr ? nullptr : own_.get() + stride_ * y; }

 private:
  Picture() = default;

  int width_ = 0;
  int height_ = 0;
  std::ptrdiff_t stride_ = 0;
  bool has_alpha_ = false;
  const std::uint8_t* pixels_ = nullptr;
  std::shared_ptr<std::uint8_t[]> own_;
  std::size_t own_bytes_ = 0;  // what of `own_` could be used
  std::shared_ptr<const void> keeper_;
};

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_IMAGING_PICTURE_H
