#ifndef MORVANTILE_PLATFORM_UI_CONTROLS_EDIT_FIELD_H
#define MORVANTILE_PLATFORM_UI_CONTROLS_EDIT_FIELD_H

#include <functional>
#include <string>

#include "platform/core/export.h"
#include "platform/ui/controls/control.h"

namespace morvantile {

// One line of text that the user can edit.
class MORVANTILE_API EditField : public Control {
 public:
  const std::string& Text() const { return text_; }
  void SetText(const std::string& text) {
    if (text == text_) return;
    text_ = text;
    Changed();
    Raise(TextChange, *this);
  }

  // Raised when the text has become another, by the program or the user.
  std::function<void(EditField&)> TextChange;

 private:
  std::string text_;
};

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_UI_CONTROLS_EDIT_FIELD_H
