#ifndef MORVANTILE_PLATFORM_QT_WIDGETS_CANVAS_WIDGET_H
#define MORVANTILE_PLATFORM_QT_WIDGETS_CANVAS_WIDGET_H

#include <QWidget>

#include "platform/ui/canvas.h"

namespace morvantile {

// Shows a canvas: its backdrop in the density that fits the screen, then what its handler draws.
class CanvasWidget : public QWidget {
 public:
  CanvasWidget(Canvas& canvas, QWidget& parent);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  Ref<Canvas> canvas_;
};

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_QT_WIDGETS_CANVAS_WIDGET_H
