#ifndef MORVANTILE_PLATFORM_QT_WIDGETS_SLIDER_WIDGET_H
#define MORVANTILE_PLATFORM_QT_WIDGETS_SLIDER_WIDGET_H

#include <QSlider>

#include "platform/ui/controls/slider.h"

namespace morvantile {

// A slider whose ticks can be seen in every theme, and that shows whether it has the focus.
class SliderWidget : public QSlider {
 public:
  SliderWidget(const Slider& slider, QWidget& parent)
      : QSlider(Qt::Horizontal, &parent), slider_(&slider) {}

  // What a step means to who has the value read out.
  [[nodiscard]] int AccessibleUnit() const { return slider_->AccessibleUnit; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  [[nodiscard]] QRectF HandleRectangle() const;
  void DrawTicks(QPainter& painter) const;

  const Slider* slider_;
};

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_QT_WIDGETS_SLIDER_WIDGET_H
