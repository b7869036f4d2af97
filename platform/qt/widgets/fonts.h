// The fonts of the controls.

#ifndef MORVANTILE_PLATFORM_QT_WIDGETS_FONTS_H
#define MORVANTILE_PLATFORM_QT_WIDGETS_FONTS_H

#include <QFont>
#include <QString>

#include "platform/ui/control.h"

namespace morvantile {

// The font that a control asks for by TextFont and TextSize, in a window drawn at `scale`.
QFont FontFor(const Control& control, double scale);

// The font, made smaller as far as `text` needs it to fit into `width` logical pixels.
QFont ShrunkToFit(QFont font, const QString& text, int width);

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_QT_WIDGETS_FONTS_H
