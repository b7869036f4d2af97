// The fonts of the controls.

#ifndef MORVANTILE_PLATFORM_QT_WIDGETS_FONTS_H
#define MORVANTILE_PLATFORM_QT_WIDGETS_FONTS_H

#include <QFont>
#include <QSize>
#include <QString>
#include <QWidget>

#include "platform/ui/controls/control.h"

namespace morvantile {

// What the text of a button leaves free of it: left and right, above and below together.
constexpr QSize kButtonMargins(8, 4);

// The font that a control asks for by TextFont and TextSize, in a window drawn at `scale`. "System"
// has the size of the desktop's font, or that of the layouts if it is larger, and at most what the
// control's height has room for.
QFont FontFor(const Control& control, double scale);

// The font, made smaller as far as `text` needs it to fit into `room`, in logical pixels.
QFont ShrunkToFit(QFont font, const QString& text, const QSize& room);

// Sets all buttons of a window to the largest font in which every text fits.
void FitButtons(const QWidget& window);

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_QT_WIDGETS_FONTS_H
