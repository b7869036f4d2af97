#include "platform/ui/window.h"

#include <algorithm>

#include "platform/core/number.h"
#include "platform/ui/host.h"

namespace morvantile {
namespace {

// Keeps every window that has been built and has not closed yet.
std::vector<Ref<Window>>& OpenWindows() {
  static std::vector<Ref<Window>> windows;
  return windows;
}

Ref<PushButton> FirstButton(const std::vector<Ref<Control>>& controls, bool PushButton::*flag) {
  for (const Ref<Control>& control : controls) {
    auto* button = dynamic_cast<PushButton*>(control.get());
    if (button != nullptr && button->*flag) return Ref<PushButton>(button);
  }
  return nullptr;
}

}  // namespace

void Window::SetTitle(const std::string& title) {
  title_ = title;
  if (peer_ != nullptr) peer_->WindowChanged();
}

void Window::SetLeft(int left) {
  left_ = left;
  RectangleChanged();
}

void Window::SetTop(int top) {
  top_ = top;
  RectangleChanged();
}

void Window::SetWidth(int width) {
  width_ = width;
  RectangleChanged();
}

void Window::SetHeight(int height) {
  height_ = height;
  RectangleChanged();
}

void Window::RectangleChanged() {
  if (peer_ != nullptr) peer_->WindowChanged();
}

Ref<PushButton> Window::FindDefaultButton() const {
  return FirstButton(controls_, &PushButton::Default);
}

Ref<PushButton> Window::FindCancelButton() const {
  return FirstButton(controls_, &PushButton::Cancel);
}

void Window::Build() {
  OpenWindows().emplace_back(this);
  Layout();
  CreateControls();
  for (const Ref<Control>& control : controls_) control->Event_Open();
  Event_Open();
}

void Window::ShowModal() {
  if (closed_) return;
  CurrentHost().ShowModal(Ref<Window>(this));
}

void Window::Close() {
  if (closed_) return;
  closed_ = true;
  const Ref<Window> self(this);
  Event_Close();
  if (peer_ != nullptr) peer_->WindowClosed();
  std::erase(OpenWindows(), self);
}

void Window::UserActivated() { active_ = true; }

void Window::UserDeactivated() {
  if (!active_ || closed_) return;
  active_ = false;
  Event_Deactivate();
}

void Window::UserKeyDown(const std::string& key) {
  if (!closed_) Event_KeyDown(key);
}

void Window::UserClose() {
  const Ref<PushButton> cancel = FindCancelButton();
  if (!CloseButton && cancel != nullptr) {
    cancel->UserPress();
  } else {
    Close();
  }
}

void Window::UserMoved(int left, int top, int width, int height) {
  left_ = left;
  top_ = top;
  width_ = width;
  height_ = height;
}

bool Window::Event_KeyDown(const std::string& /*key*/) { return false; }

void Window::CenterOnFirstScreen() {
  const ScreenGeometry screen = Screen(0);
  SetLeft(static_cast<int>(Truncate(screen.Width / 2.0 - Width() / 2.0)));
  if (Height() < screen.AvailableHeight - 60) {
    SetTop(static_cast<int>(Truncate(screen.AvailableHeight / 2.0 - Height() / 2.0)));
  } else {
    SetTop(screen.AvailableTop + 30);
  }
}

}  // namespace morvantile
