#include "platform/qt/desktop_choice.h"

#include <QByteArray>
#include <QtGlobal>

#include "platform/core/exceptions.h"
#include "platform/qt/clipboard/clipboard_wayland.h"

namespace morvantile {
namespace {

bool IsSet(const char* variable) { return !qEnvironmentVariableIsEmpty(variable); }

void PreferPlatform(const char* platform) {
  if (!IsSet("QT_QPA_PLATFORM")) {
    qputenv("QT_QPA_PLATFORM", QByteArray(platform));
  }
}

}  // namespace

std::unique_ptr<SystemClipboard> ChooseDesktop() {
  if (!IsSet("DISPLAY") && !IsSet("WAYLAND_DISPLAY") && !IsSet("QT_QPA_PLATFORM")) {
    throw RuntimeException("there is no desktop to show a window on");
  }
  if (!IsSet("WAYLAND_DISPLAY")) return nullptr;
  if (auto clipboard = OpenDataControlClipboard()) {
    PreferPlatform("wayland;xcb");
    return clipboard;
  }
  PreferPlatform(IsSet("DISPLAY") ? "xcb" : "wayland");
  return nullptr;
}

}  // namespace morvantile
