#include "platform/qt/active_window.h"

#include <xcb/xcb.h>

#include <QGuiApplication>
#include <QTimer>
#include <QWindow>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>

namespace morvantile {
namespace {

struct Free {
  void operator()(void* memory) const { std::free(memory); }
};

// The reply of an X request; null if the request failed.
template <typename T>
using Reply = std::unique_ptr<T, Free>;

xcb_connection_t* X11() {
  const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  return x11 == nullptr ? nullptr : x11->connection();
}

xcb_atom_t Atom(std::string_view name) {
  const auto cookie =
      xcb_intern_atom(X11(), 0, static_cast<std::uint16_t>(name.size()), name.data());
  const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(X11(), cookie, nullptr));
  return reply == nullptr ? xcb_atom_t{XCB_ATOM_NONE} : reply->atom;
}

xcb_atom_t ActiveWindowAtom() {
  static const xcb_atom_t kAtom = Atom("_NET_ACTIVE_WINDOW");
  return kAtom;
}

xcb_window_t RootWindow() { return xcb_setup_roots_iterator(xcb_get_setup(X11())).data->root; }

// The window that a property of another one names; nothing if there is no such property.
std::optional<xcb_window_t> WindowIn(xcb_window_t window, xcb_atom_t property) {
  const auto cookie = xcb_get_property(X11(), 0, window, property, XCB_ATOM_WINDOW, 0, 1);
  const Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(X11(), cookie, nullptr));
  if (reply == nullptr || xcb_get_property_value_length(reply.get()) < 4) return std::nullopt;
  return *static_cast<const xcb_window_t*>(xcb_get_property_value(reply.get()));
}

// A window manager that has died leaves its properties behind, but not the window that they name.
bool HasWindowManager() {
  static const xcb_atom_t kCheck = Atom("_NET_SUPPORTING_WM_CHECK");
  const std::optional<xcb_window_t> manager = WindowIn(RootWindow(), kCheck);
  return manager && WindowIn(*manager, kCheck) == manager;
}

std::optional<xcb_window_t> InputFocus() {
  const Reply<xcb_get_input_focus_reply_t> reply(
      xcb_get_input_focus_reply(X11(), xcb_get_input_focus(X11()), nullptr));
  if (reply == nullptr) return std::nullopt;
  const bool is_window = reply->focus != XCB_INPUT_FOCUS_POINTER_ROOT &&
                         reply->focus != XCB_INPUT_FOCUS_NONE && reply->focus != RootWindow();
  if (!is_window) return XCB_WINDOW_NONE;
  return reply->focus;
}

std::optional<xcb_window_t> ActiveX11Window() {
  if (HasWindowManager()) {
    if (const auto active = WindowIn(RootWindow(), ActiveWindowAtom())) return active;
  }
  return InputFocus();
}

// The server's time at which a launch began, in milliseconds: the end of its ID behind "_TIME"
// (freedesktop.org, "Startup Notification Protocol"). 0, the present, if it isn't known.
std::uint32_t TimeOf(const std::string& startup_id) {
  const std::size_t at = startup_id.rfind("_TIME");
  if (at == std::string::npos) return XCB_CURRENT_TIME;
  return static_cast<std::uint32_t>(std::strtoul(startup_id.c_str() + at + 5, nullptr, 10));
}

void ActivateX11Window(xcb_window_t window, std::uint32_t time) {
  constexpr std::uint32_t kAskedByUser = 2;
  xcb_client_message_event_t message{};
  message.response_type = XCB_CLIENT_MESSAGE;
  message.format = 32;
  message.window = window;
  message.type = ActiveWindowAtom();
  message.data.data32[0] = kAskedByUser;
  message.data.data32[1] = time;
  xcb_send_event(X11(), 0, RootWindow(),
                 XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                 reinterpret_cast<const char*>(&message));
  xcb_flush(X11());
}

}  // namespace

bool AnotherWindowIsActive(const QWidget& window) {
  if (X11() == nullptr) return true;
  const std::optional<xcb_window_t> active = ActiveX11Window();
  if (!active) return false;
  // A Wayland compositor that runs X programs shows them its Wayland windows as none.
  if (*active == XCB_WINDOW_NONE) return qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
  return *active != window.winId();
}

bool ASwitchMayBeUnderWay() {
  if (X11() == nullptr) return false;
  const auto cookie = xcb_query_pointer(X11(), RootWindow());
  const Reply<xcb_query_pointer_reply_t> reply(xcb_query_pointer_reply(X11(), cookie, nullptr));
  return reply != nullptr && (reply->mask & (XCB_MOD_MASK_1 | XCB_MOD_MASK_4)) != 0;
}

void ActivateWindow(QWidget& window, const std::string& token) {
  window.raise();
  if (X11() != nullptr) {
    ActivateX11Window(static_cast<xcb_window_t>(window.winId()), TimeOf(token));
    return;
  }
  if (!token.empty()) qputenv("XDG_ACTIVATION_TOKEN", QByteArray::fromStdString(token));
  window.activateWindow();
}

ActiveWindowWatch::ActiveWindowWatch(std::function<void()> changed) : changed_(std::move(changed)) {
  if (X11() != nullptr) QCoreApplication::instance()->installNativeEventFilter(this);
}

ActiveWindowWatch::~ActiveWindowWatch() {
  QCoreApplication::instance()->removeNativeEventFilter(this);
}

bool ActiveWindowWatch::nativeEventFilter(const QByteArray& /*type*/, void* message,
                                          qintptr* /*result*/) {
  const auto* event = static_cast<const xcb_generic_event_t*>(message);
  const int kind = event->response_type & 0x7F;
  const bool changed =
      kind == XCB_FOCUS_OUT ||
      (kind == XCB_PROPERTY_NOTIFY &&
       reinterpret_cast<const xcb_property_notify_event_t*>(event)->atom == ActiveWindowAtom());
  if (changed) QTimer::singleShot(0, &context_, changed_);
  return false;
}

}  // namespace morvantile
