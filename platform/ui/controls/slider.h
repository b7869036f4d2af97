#ifndef MORVANTILE_PLATFORM_UI_CONTROLS_SLIDER_H
#define MORVANTILE_PLATFORM_UI_CONTROLS_SLIDER_H

#include <algorithm>
#include <cstdint>
#include <functional>

#include "platform/ui/controls/control.h"

namespace morvantile {

// A horizontal slider over the integers from Minimum to Maximum.
class Slider : public Control {
 public:
  enum Ticks { kTicksNone = 0, kTicksAbove = 1, kTicksBelow = 2, kTicksBoth = 3 };

  int Minimum = 0;
  int Maximum = 100;
  int LineStep = 1;         // what an arrow key moves
  int PageStep = 20;        // what Page Up and Page Down move
  bool LiveScroll = false;  // the value follows the thumb while it is dragged
  int TickStyle = kTicksNone;
  int AccessibleUnit = 1;  // what a step of 1 means to who has the value read out

  int Value() const { return value_; }
  // A value outside the range becomes the nearest end of it. Raises ValueChanged if that makes
  // another value than before.
  void SetValue(std::int64_t value) {
    const int clamped = static_cast<int>(std::clamp<std::int64_t>(value, Minimum, Maximum));
    if (clamped == value_) return;
    value_ = clamped;
    Changed();
    Raise(ValueChanged, *this);
  }

  std::function<void(Slider&)> ValueChanged;

 private:
  int value_ = 0;
};

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_UI_CONTROLS_SLIDER_H
