// Colours that can be told from what is behind them.

#ifndef MORVANTILE_PLATFORM_QT_WIDGETS_CONTRAST_H
#define MORVANTILE_PLATFORM_QT_WIDGETS_CONTRAST_H

#include <QColor>
#include <QPainter>
#include <QPalette>
#include <QRectF>

namespace morvantile {

// The least contrasts of text, and of what a control shows besides text (WCAG 2.1, 1.4.3, 1.4.11).
constexpr double kContrastOfText = 4.5;
constexpr double kContrastOfParts = 3.0;

// The contrast of two opaque colours, 1 to 21: (L + 0.05) / (l + 0.05), where L and l are the
// relative luminances of the lighter and the darker one (WCAG 2.1, "contrast ratio").
double Contrast(const QColor& one, const QColor& other);

// The colour itself if its contrast to the background is at least `contrast`; else one of the same
// hue, as much darker or lighter as that needs. Black or white if no other will do.
QColor WithContrast(const QColor& color, const QColor& background, double contrast);

// Draws the ring that shows that a control has the focus, along the inside of `box`, over a
// background of that colour.
void DrawFocusRing(QPainter& painter, const QRectF& box, const QColor& background,
                   const QPalette& palette);

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_QT_WIDGETS_CONTRAST_H
