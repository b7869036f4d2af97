// Drawing on a canvas.

#ifndef MORVANTILE_PLATFORM_UI_GRAPHICS_H
#define MORVANTILE_PLATFORM_UI_GRAPHICS_H

#include "platform/imaging/picture.h"

namespace morvantile {

// The surface that a Paint handler draws on; valid during the event only. Coordinates are logical
// pixels from the canvas's top left corner, and what lies outside the canvas is cut off.
class Graphics {
 public:
  // For a width or height: that of the whole picture.
  static constexpr int kWhole = -10000;

  Graphics() = default;
  Graphics(const Graphics&) = delete;
  Graphics& operator=(const Graphics&) = delete;
  virtual ~Graphics() = default;

  // Draws the part of the picture from (sourceX, sourceY) of the given source size, scaled to the
  // given destination size, with its top left corner at (x, y). Nil draws nothing.
  virtual void DrawPicture(const Ref<Picture>& picture, int x, int y, int destWidth = kWhole,
                           int destHeight = kWhole, int sourceX = 0, int sourceY = 0,
                           int sourceWidth = kWhole, int sourceHeight = kWhole) = 0;
};

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_UI_GRAPHICS_H
