#ifndef MORVANTILE_PLATFORM_QT_WIDGETS_CANVAS_WIDGET_H
#define MORVANTILE_PLATFORM_QT_WIDGETS_CANVAS_WIDGET_H

#include <QWidget>

#include "platform/qt/widgets/accessible.h"
#include "platform/ui/controls/canvas.h"

namespace morvantile {

// Shows a canvas: its backdrop in the density that fits the screen, then what its handler draws.
class CanvasWidget : public QWidget, public AccessibleWidget {
 public:
  CanvasWidget(Canvas& canvas, QWidget& parent);

  [[nodiscard]] QAccessible::Role Role() const override;
  [[nodiscard]] bool IsPressable() const override { return canvas_->MouseDown != nullptr; }
  void Press() override { canvas_->UserMouseDown(0, 0); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  // How large it is drawn.
  [[nodiscard]] double Scale() const;

  Ref<Canvas> canvas_;
};

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_QT_WIDGETS_CANVAS_WIDGET_H
