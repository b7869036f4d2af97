#include "platform/qt/widgets/fonts.h"

#include <QFontInfo>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QPushButton>
#include <algorithm>
#include <limits>

namespace morvantile {
namespace {

// The layouts are made for fonts of these sizes.
constexpr int kSystemPixels = 13;
constexpr int kSmallSystemPixels = 11;
constexpr int kSmallestPixels = 7;

QFont SystemFont(bool is_small) {
  QFont font = QGuiApplication::font();
  const int pixels = std::max(kSystemPixels, QFontInfo(font).pixelSize());
  font.setPixelSize(is_small ? pixels * kSmallSystemPixels / kSystemPixels : pixels);
  return font;
}

bool Fits(const QFont& font, const QString& text, const QSize& room) {
  const QFontMetrics metrics(font);
  const int width = std::max(metrics.horizontalAdvance(text), metrics.boundingRect(text).width());
  return metrics.height() <= room.height() && width <= room.width();
}

}  // namespace

QFont FontFor(const Control& control, double scale) {
  QFont font = SystemFont(control.TextFont == "SmallSystem");
  if (control.TextFont != "System" && control.TextFont != "SmallSystem") {
    font.setFamilies({QString::fromStdString(control.TextFont), font.family()});
    if (control.TextFont.ends_with(" Black")) font.setWeight(QFont::Black);
  }
  if (control.TextSize > 0) font.setPointSize(control.TextSize);
  font.setPixelSize(static_cast<int>(QFontInfo(font).pixelSize() * scale));
  return ShrunkToFit(font, "", QSize(control.Width, control.Height) * scale);
}

QFont ShrunkToFit(QFont font, const QString& text, const QSize& room) {
  int pixels = QFontInfo(font).pixelSize();
  while (pixels > kSmallestPixels && !Fits(font, text, room)) font.setPixelSize(--pixels);
  return font;
}

void FitButtons(const QWidget& window) {
  const auto buttons = window.findChildren<QPushButton*>(Qt::FindDirectChildrenOnly);
  int pixels = std::numeric_limits<int>::max();
  for (const QPushButton* button : buttons) {
    const QFont fitting =
        ShrunkToFit(button->font(), button->text(), button->size() - kButtonMargins);
    pixels = std::min(pixels, QFontInfo(fitting).pixelSize());
  }
  for (QPushButton* button : buttons) {
    QFont font = button->font();
    font.setPixelSize(pixels);
    button->setFont(font);
  }
}

}  // namespace morvantile
