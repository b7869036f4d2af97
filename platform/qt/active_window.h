// Which window of the desktop is the active one.

#ifndef MORVANTILE_PLATFORM_QT_ACTIVE_WINDOW_H
#define MORVANTILE_PLATFORM_QT_ACTIVE_WINDOW_H

#include <QAbstractNativeEventFilter>
#include <QWidget>
#include <functional>
#include <string>

namespace morvantile {

// Whether a window other than `window` has become the active one; to be asked when the toolkit says
// that `window` is inactive. It says so after every keyboard grab of more than 100 ms as well: a
// title bar that is dragged, a global key that is held, a screen locker.
//
// On X11 the window manager decides by _NET_ACTIVE_WINDOW (Extended Window Manager Hints), or, if
// it doesn't keep that property, the input focus does, which a grab leaves alone. If no window is
// active, none other is; except under XWayland, where the active one is then a Wayland window,
// which X programs can't see. On other desktops the toolkit is right: true.
bool AnotherWindowIsActive(const QWidget& window);

// Whether the user still holds a key such as Alt or Super, with which one switches between windows:
// some window managers make the next window active at once, and the old one again if the switch is
// cancelled. Only known on X11.
bool ASwitchMayBeUnderWay();

// Brings a shown window to the front and makes it the active one, as far as the desktop allows.
// `token` is the start-up notification ID (X11) or the activation token (Wayland) of the launch
// that asks for it; empty if there is none.
void ActivateWindow(QWidget& window, const std::string& token);

// Calls `changed` from the event loop when the answer of AnotherWindowIsActive may have become
// another one, for as long as the object lives. Never does on desktops other than X11.
class ActiveWindowWatch : public QAbstractNativeEventFilter {
 public:
  explicit ActiveWindowWatch(std::function<void()> changed);
  ~ActiveWindowWatch() override;
  ActiveWindowWatch(const ActiveWindowWatch&) = delete;
  ActiveWindowWatch& operator=(const ActiveWindowWatch&) = delete;

  bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;

 private:
  QObject context_;
  std::function<void()> changed_;
};

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_QT_ACTIVE_WINDOW_H
