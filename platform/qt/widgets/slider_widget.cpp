#include "platform/qt/widgets/slider_widget.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOptionSlider>
#include <algorithm>

#include "platform/qt/widgets/contrast.h"

namespace morvantile {

void SliderWidget::paintEvent(QPaintEvent* event) {
  QSlider::paintEvent(event);
  QPainter painter(this);
  DrawTicks(painter);
  if (hasFocus()) {
    DrawFocusRing(painter, HandleRectangle().adjusted(-2, -2, 2, 2) & QRectF(rect()),
                  palette().color(QPalette::Window), palette());
  }
}

QRectF SliderWidget::HandleRectangle() const {
  QStyleOptionSlider option;
  initStyleOption(&option);
  return style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, this);
}

// Over those of the style, and where it draws them.
void SliderWidget::DrawTicks(QPainter& painter) const {
  QStyleOptionSlider option;
  initStyleOption(&option);
  const int handle = style()->pixelMetric(QStyle::PM_SliderLength, &option, this);
  const int length = style()->pixelMetric(QStyle::PM_SliderTickmarkOffset, &option, this);
  painter.setPen(WithContrast(palette().color(QPalette::Mid), palette().color(QPalette::Window),
                              kContrastOfParts));
  for (int value = minimum(); value <= maximum() + 1; value += tickInterval()) {
    const int x =
        handle / 2 + QStyle::sliderPositionFromValue(minimum(), maximum(),
                                                     std::min(value, maximum()), width() - handle);
    if ((tickPosition() & TicksAbove) != 0) painter.drawLine(x, 1, x, length);
    if ((tickPosition() & TicksBelow) != 0) painter.drawLine(x, height() - 2, x, height() - length);
  }
}

}  // namespace morvantile
