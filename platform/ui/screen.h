// The screens of the desktop.

#ifndef MORVANTILE_PLATFORM_UI_SCREEN_H
#define MORVANTILE_PLATFORM_UI_SCREEN_H

#include "platform/core/export.h"

namespace morvantile {

// A screen's size and the part of it that panels leave free, in logical pixels. Positions are
// relative to the top left corner of the primary screen, here and in windows.
struct ScreenGeometry {
  int Width;
  int Height;
  int AvailableLeft;
  int AvailableTop;
  int AvailableWidth;
  int AvailableHeight;
};

// The screen of that number; 0 is the primary one. Throws OutOfBoundsException for any other number
// that has no screen.
MORVANTILE_API ScreenGeometry Screen(int index);

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_UI_SCREEN_H
