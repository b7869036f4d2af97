#include "platform/ui/controls/radio_button.h"

#include <algorithm>

namespace morvantile {

void RadioGroup::Add(const Ref<RadioButton>& button) {
  if (button->group_ != nullptr) {
    std::erase_if(button->group_->buttons_,
                  [&](const BackRef<RadioButton>& member) { return member == button; });
  }
  buttons_.emplace_back(button);
  button->group_ = Ref<RadioGroup>(this);
  if (button->Value()) TurnOffOthers(*button);
}

void RadioGroup::TurnOffOthers(const RadioButton& on) {
  const std::vector<BackRef<RadioButton>> members = buttons_;
  for (const BackRef<RadioButton>& member : members) {
    RadioButton* other = member.get();
    if (other != nullptr && other != &on) other->SetValue(false);
  }
}

void RadioButton::SetValue(bool value) {
  if (value == value_) return;
  value_ = value;
  Changed();
  if (value && group_ != nullptr) group_->TurnOffOthers(*this);
  Raise(Action, *this);
}

}  // namespace morvantile
