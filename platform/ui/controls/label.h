#ifndef MORVANTILE_PLATFORM_UI_CONTROLS_LABEL_H
#define MORVANTILE_PLATFORM_UI_CONTROLS_LABEL_H

#include <functional>
#include <string>

#include "platform/core/export.h"
#include "platform/ui/controls/control.h"

namespace morvantile {

// One line of text that the user can't edit.
class MORVANTILE_API Label : public Control {
 public:
  enum Align { kAlignLeft = 0, kAlignCenter = 1, kAlignRight = 2 };
  // Text in the colour that the desktop has for text.
  static constexpr std::int32_t kThemeColor = -1;

  int TextAlign = kAlignLeft;
  std::int32_t TextColor = kThemeColor;  // or 0xRRGGBB

  const std::string& Text() const { return text_; }
  void SetText(const std::string& text) {
    text_ = text;
    Changed();
  }

  // Raised once when the window opens.
  std::function<void(Label&)> Open;
  // Raised when a mouse button goes down on the label, at x, y from its top left corner. True means
  // that the handler wants the rest of the gesture; no label has a use for it.
  std::function<bool(Label&, int x, int y)> MouseDown;

  void Event_Open() override { Raise(Open, *this); }
  void UserMouseDown(int x, int y) { Raise(MouseDown, *this, x, y); }

 private:
  std::string text_;
};

// A label under its older name, whose text is also its Caption.
class MORVANTILE_API StaticText : public Label {
 public:
  const std::string& Caption() const { return Text(); }
  void SetCaption(const std::string& caption) { SetText(caption); }
};

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_UI_CONTROLS_LABEL_H
