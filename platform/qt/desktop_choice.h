#ifndef MORVANTILE_PLATFORM_QT_DESKTOP_CHOICE_H
#define MORVANTILE_PLATFORM_QT_DESKTOP_CHOICE_H

#include <memory>

#include "platform/qt/clipboard/system_clipboard.h"

namespace morvantile {

// Decides how to reach the desktop: through which windowing system the toolkit shows windows, and
// through what the clipboard is read and kept. Returns the clipboard, or null if it is the
// toolkit's. Must be called before the toolkit starts. Throws RuntimeException if there is no
// desktop.
//
// On Wayland, where a program without the focus sees no clipboard: a data-control protocol where
// the compositor offers one, with windows of its own kind; else X11, if the compositor runs X
// programs; else the toolkit's own way, with a window that takes the focus first. QT_QPA_PLATFORM,
// if it is set, has the last word on the windows.
std::unique_ptr<SystemClipboard> ChooseDesktop();

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_QT_DESKTOP_CHOICE_H
