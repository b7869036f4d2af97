#include "platform/qt/widgets/fonts.h"

#include <QFontInfo>
#include <QFontMetrics>
#include <QGuiApplication>
#include <algorithm>

namespace morvantile {
namespace {

// The layouts are made for fonts of these sizes; a desktop with a larger one may not outgrow them.
constexpr int kSystemPixels = 13;
constexpr int kSmallSystemPixels = 11;
constexpr int kSmallestPixels = 7;

QFont SystemFont(int pixels) {
  QFont font = QGuiApplication::font();
  font.setPixelSize(pixels);
  return font;
}

}  // namespace

QFont FontFor(const Control& control, double scale) {
  const int pixels = control.TextFont == "SmallSystem" ? kSmallSystemPixels : kSystemPixels;
  QFont font = SystemFont(static_cast<int>(pixels * scale));
  if (control.TextFont != "System" && control.TextFont != "SmallSystem") {
    font.setFamilies({QString::fromStdString(control.TextFont), font.family()});
    if (control.TextFont.ends_with(" Black")) font.setWeight(QFont::Black);
  }
  if (control.TextSize > 0) font.setPointSizeF(control.TextSize * scale);
  return font;
}

QFont ShrunkToFit(QFont font, const QString& text, int width) {
  int pixels = QFontInfo(font).pixelSize();
  while (pixels > kSmallestPixels && QFontMetrics(font).horizontalAdvance(text) > width) {
    font.setPixelSize(--pixels);
  }
  return font;
}

}  // namespace morvantile
