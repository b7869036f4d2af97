#include "platform/qt/widgets/contrast.h"

#include <algorithm>
#include <cmath>

namespace morvantile {
namespace {

// The part of a channel's value, 0 to 1, in linear light (WCAG 2.1, "relative luminance").
double Linear(double channel) {
  return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double Luminance(const QColor& color) {
  return 0.2126 * Linear(color.redF()) + 0.7152 * Linear(color.greenF()) +
         0.0722 * Linear(color.blueF());
}

}  // namespace

double Contrast(const QColor& one, const QColor& other) {
  const auto [darker, lighter] = std::minmax({Luminance(one), Luminance(other)});
  return (lighter + 0.05) / (darker + 0.05);
}

QColor WithContrast(const QColor& color, const QColor& background, double contrast) {
  const bool lighten = Contrast(Qt::white, background) > Contrast(Qt::black, background);
  QColor wanted = color.toHsl();
  while (Contrast(wanted, background) < contrast) {
    const int lightness = wanted.lightness() + (lighten ? 1 : -1);
    if (lightness < 0 || lightness > 255) return lighten ? Qt::white : Qt::black;
    wanted.setHsl(wanted.hslHue(), wanted.hslSaturation(), lightness, color.alpha());
  }
  return wanted.toRgb();
}

void DrawFocusRing(QPainter& painter, const QRectF& box, const QColor& background,
                   const QPalette& palette) {
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(
      QPen(WithContrast(palette.color(QPalette::Highlight), background, kContrastOfParts), 2));
  painter.drawRoundedRect(box.adjusted(1, 1, -1, -1), 3, 3);
}

}  // namespace morvantile
