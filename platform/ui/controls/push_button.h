#ifndef MORVANTILE_PLATFORM_UI_CONTROLS_PUSH_BUTTON_H
#define MORVANTILE_PLATFORM_UI_CONTROLS_PUSH_BUTTON_H

#include <functional>
#include <string>

#include "platform/core/export.h"
#include "platform/ui/controls/control.h"

namespace morvantile {

// A button. Return presses the default button of a window, Escape its cancel button.
class MORVANTILE_API PushButton : public Control {
 public:
  std::string Caption;
  bool Default = false;
  bool Cancel = false;

  std::function<void(PushButton&)> Action;

  // The user pressed the button, with the mouse or a key.
  void UserPress() {
    if (Enabled) Raise(Action, *this);
  }
};

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_UI_CONTROLS_PUSH_BUTTON_H
