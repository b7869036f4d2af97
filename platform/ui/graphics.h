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

  // Draws the part of the picture from (source_x, source_y) of the given source size, scaled to the
  // given destination size, with its top left corner at (x, y). Nil draws nothing.
  virtual void DrawPicture(const Ref<Picture>& picture, int x, int y, int dest_width = kWhole,
                           int dest_height = kWhole, int source_x = 0, int source_y = 0,
                           int source_width = kWhole, int source_height = kWhole) = 0;
};

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_UI_GRAPHICS_H
