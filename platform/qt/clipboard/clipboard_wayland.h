// The clipboard of a Wayland compositor that offers the data-control protocol.

#ifndef MORVANTILE_PLATFORM_QT_CLIPBOARD_CLIPBOARD_WAYLAND_H
#define MORVANTILE_PLATFORM_QT_CLIPBOARD_CLIPBOARD_WAYLAND_H

#include <memory>

#include "platform/qt/clipboard/system_clipboard.h"

namespace morvantile {

// Connects to the compositor and returns its clipboard, or null if there is no compositor or it
// offers neither ext-data-control-v1 nor wlr-data-control-unstable-v1. The clipboard needs no
// window, no focus and no toolkit, and is served on a connection of its own.
std::unique_ptr<SystemClipboard> OpenDataControlClipboard();

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_QT_CLIPBOARD_CLIPBOARD_WAYLAND_H
