#ifndef MORVANTILE_PLATFORM_UI_CONTROLS_CANVAS_H
#define MORVANTILE_PLATFORM_UI_CONTROLS_CANVAS_H

#include <functional>
#include <string>

#include "platform/ui/controls/control.h"
#include "platform/ui/graphics.h"
#include "platform/ui/resource_picture.h"

namespace morvantile {

// An area that shows a picture of the resources, or what its Paint handler draws.
class Canvas : public Control {
 public:
  Ref<ResourcePicture> Backdrop;
  bool Transparent = true;
  bool EraseBackground = true;
  bool DoubleBuffer = false;
  bool AcceptFocus = false;
  bool AcceptTabs = false;
  bool UseFocusRing = true;
  // A key that does what a press of the mouse does, such as "F1"; empty for none.
  std::string Shortcut;

  std::function<void(Canvas&, Graphics&)> Paint;
  // Raised when a mouse button goes down, at x, y from the canvas's top left corner. True means
  // that the handler wants the rest of the gesture; no canvas has a use for it.
  std::function<bool(Canvas&, int x, int y)> MouseDown;

  // Has the canvas painted again, soon. The background is erased first in any case.
  void Refresh(bool erase_background) {
    static_cast<void>(erase_background);
    Changed();
  }

  // The host wants the canvas drawn.
  void HostPaint(Graphics& graphics) { Raise(Paint, *this, graphics); }
  void UserMouseDown(int x, int y) { Raise(MouseDown, *this, x, y); }
};

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_UI_CONTROLS_CANVAS_H
