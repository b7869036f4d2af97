#ifndef MORVANTILE_PLATFORM_UI_CONTROLS_CHECK_BOX_H
#define MORVANTILE_PLATFORM_UI_CONTROLS_CHECK_BOX_H

#include <functional>
#include <string>

#include "platform/core/export.h"
#include "platform/ui/controls/control.h"

namespace morvantile {

// A box that is checked or not.
class MORVANTILE_API CheckBox : public Control {
 public:
  std::string Caption;

  bool Value() const { return value_; }
  void SetValue(bool value) {
    if (value == value_) return;
    value_ = value;
    Changed();
    Raise(Action, *this);
  }

  // Raised when the value has become another, by the program or the user.
  std::function<void(CheckBox&)> Action;

 private:
  bool value_ = false;
};

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_UI_CONTROLS_CHECK_BOX_H
