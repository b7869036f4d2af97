// Windows.

#ifndef MORVANTILE_PLATFORM_UI_WINDOW_H
#define MORVANTILE_PLATFORM_UI_WINDOW_H

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "platform/core/export.h"
#include "platform/core/ref.h"
#include "platform/ui/controls/control.h"
#include "platform/ui/controls/push_button.h"

namespace morvantile {

// What shows a window on a real desktop; attached for as long as the window is shown.
class MORVANTILE_API WindowPeer {
 public:
  WindowPeer() = default;
  WindowPeer(const WindowPeer&) = delete;
  WindowPeer& operator=(const WindowPeer&) = delete;
  virtual ~WindowPeer() = default;

  // The title or the rectangle has changed.
  virtual void WindowChanged() = 0;
  // The window has closed.
  virtual void WindowClosed() = 0;
};

// A window and its controls. Like the controls it is a plain object: it can be built, driven and
// closed without a desktop. Lengths are logical pixels; the rectangle is that of the content,
// without the frame.
class MORVANTILE_API Window : public Object {
 public:
  int MinWidth = 64;
  int MinHeight = 64;
  int MaxWidth = 32000;
  int MaxHeight = 32000;
  int Frame = 0;
  bool CloseButton = true;
  bool Resizeable = true;
  bool MaximizeButton = false;
  bool MinimizeButton = true;
  bool FullScreenButton = false;
  bool Composite = false;
  bool FullScreen = false;
  bool HasBackColor = false;
  std::int32_t BackColor = 0xFFFFFF;  // 0xRRGGBB, used if HasBackColor is set
  int Placement = 0;
  bool Visible = true;
  bool LiveResize = true;
  bool MenuBarVisible = true;

  const std::string& Title() const { return title_; }
  int Left() const { return left_; }
  int Top() const { return top_; }
  int Width() const { return width_; }
  int Height() const { return height_; }
  void SetTitle(const std::string& title);
  void SetLeft(int left);
  void SetTop(int top);
  void SetWidth(int width);
  void SetHeight(int height);

  const std::vector<Ref<Control>>& Controls() const { return controls_; }
  // The first button with Default, or with Cancel, set; nil if there is none.
  Ref<PushButton> FindDefaultButton() const;
  Ref<PushButton> FindCancelButton() const;
  // The control that has the focus when the window is shown; nil leaves it to the tab order.
  Ref<Control> InitialFocus;
  std::string AccessibleName;  // read out for a window without a title

  // Makes the window ready: applies its properties, makes its controls, opens them in the order of
  // their creation and then raises Event_Open. Whoever makes a window calls it once.
  void Build();

  // Shows the window and dispatches events until it has closed. Returns at once if it has closed
  // before.
  void ShowModal();
  // Raises Event_Close and closes the window. A second call does nothing.
  void Close();
  bool Closed() const { return closed_; }

  // What the desktop tells of the window. Only a deactivation that follows an activation is one.
  void UserActivated();
  void UserDeactivated();
  // A key that no control and no default or cancel button used; `key` is its text, empty for a key
  // that has none.
  void UserKeyDown(const std::string& key);
  // The user asked the desktop to close the window. A window without a close button takes it as its
  // cancel button, if it has one.
  void UserClose();
  // The user moved or resized the window.
  void UserMoved(int left, int top, int width, int height);

  void AttachPeer(WindowPeer* peer) { peer_ = peer; }

 protected:
  virtual void Layout() {}
  virtual void CreateControls() {}
  virtual void Event_Open() {}
  virtual void Event_Close() {}
  virtual void Event_Deactivate() {}
  virtual bool Event_KeyDown(const std::string& key);

  // Makes a control, adds it to the window under the name and sets its rectangle.
  template <typename T>
  Ref<T> AddControl(const std::string& name, int left, int top, int width, int height) {
    Ref<T> control = New<T>();
    control->Name = name;
    control->Left = left;
    control->Top = top;
    control->Width = width;
    control->Height = height;
    controls_.push_back(control);
    return control;
  }

  // Puts the window in the middle of the first screen: by the screen's width across and by its
  // available height down, or 30 below the top of the available part where the window leaves less
  // than 60 of the height free.
  void CenterOnFirstScreen();

 private:
  void RectangleChanged();

  std::string title_;
  int left_ = 0;
  int top_ = 0;
  int width_ = 0;
  int height_ = 0;
  bool active_ = false;
  bool closed_ = false;
  std::vector<Ref<Control>> controls_;
  WindowPeer* peer_ = nullptr;
};

// The open window of class W, which `instance` remembers; made and built by the first call, and
// again by the first call after it has closed. The system keeps it until it closes.
template <typename W, typename... Args>
MORVANTILE_API Ref<W> OpenWindow(BackRef<W>& instance, Args&&... args) {
  if (W* open = instance.get(); open != nullptr && !open->Closed()) return Ref<W>(open);
  Ref<W> made = New<W>(std::forward<Args>(args)...);
  instance = made;
  made->Build();
  return made;
}

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_UI_WINDOW_H
