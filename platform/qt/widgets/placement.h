// Where a window is on the screens, and how large it is drawn.

#ifndef MORVANTILE_PLATFORM_QT_WIDGETS_PLACEMENT_H
#define MORVANTILE_PLATFORM_QT_WIDGETS_PLACEMENT_H

#include <QPoint>
#include <QRect>

#include "platform/ui/window.h"

namespace morvantile {

// Where the toolkit has the top left corner of the primary screen, which is 0, 0 for windows.
QPoint OriginOfScreens();

// How large a window is drawn: 1, or as much less as makes it fit under a title bar on the primary
// screen. A window that the user can resize is drawn in its own size.
double DrawnScale(const Window& window);

// The rectangle of the content as the toolkit wants it. A window that is drawn smaller is put into
// the middle of what the screen has free.
QRect DrawnRectangle(const Window& window, double scale);

// A rectangle inside a window that is drawn at that scale.
QRect Scaled(const QRect& rectangle, double scale);

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_QT_WIDGETS_PLACEMENT_H
