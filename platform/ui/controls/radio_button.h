#ifndef MORVANTILE_PLATFORM_UI_CONTROLS_RADIO_BUTTON_H
#define MORVANTILE_PLATFORM_UI_CONTROLS_RADIO_BUTTON_H

#include <functional>
#include <string>
#include <vector>

#include "platform/core/export.h"
#include "platform/ui/controls/control.h"

namespace morvantile {

class RadioButton;

// Radio buttons of which at most one is on.
class MORVANTILE_API RadioGroup : public Object {
 public:
  // Adds a button. If it is on, the one that was on goes off. A button is in one group at most, the
  // last one that it was added to. Throws NilObjectException for nil.
  void Add(const Ref<RadioButton>& button);

 private:
  friend class RadioButton;
  void TurnOffOthers(const RadioButton& on);

  std::vector<BackRef<RadioButton>> buttons_;
};

// A button that stays on until another one of its group is turned on.
class MORVANTILE_API RadioButton : public Control {
 public:
  std::string Caption;

  bool Value() const { return value_; }
  // Turning a button on turns the others of its group off; turning it off leaves them as they are.
  void SetValue(bool value);

  // The group that the button is in, or nil.
  const Ref<RadioGroup>& Group() const { return group_; }

  // Raised when the value has become another, by the program or the user.
  std::function<void(RadioButton&)> Action;

 private:
  friend class RadioGroup;

  bool value_ = false;
  Ref<RadioGroup> group_;
};

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_UI_CONTROLS_RADIO_BUTTON_H
