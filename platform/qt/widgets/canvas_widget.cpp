#include "platform/qt/widgets/canvas_widget.h"

#include <QIcon>
#include <QMouseEvent>
#include <QPainter>
#include <QShortcut>
#include <algorithm>
#include <cmath>

#include "platform/qt/clipboard/picture_image.h"

namespace morvantile {
namespace {

class WidgetGraphics : public Graphics {
 public:
  WidgetGraphics(QPainter& painter, const QSize& canvas) : painter_(painter), canvas_(canvas) {}

  void DrawPicture(const Ref<Picture>& picture, int x, int y, int dest_width, int dest_height,
                   int source_x, int source_y, int source_width, int source_height) override {
    if (picture == nullptr) return;
    if (source_width == kWhole) source_width = picture->Width();
    if (source_height == kWhole) source_height = picture->Height();
    if (dest_width == kWhole) dest_width = source_width;
    if (dest_height == kWhole) dest_height = source_height;
    QRect target(x, y, dest_width, dest_height);
    QRect source(source_x, source_y, source_width, source_height);
    if (target.size() == source.size()) {
      target &= QRect(QPoint(), canvas_);
      source = target.translated(source_x - x, source_y - y);
    }
    const QImage image = ImageOver(picture);
    if (picture->metadata.profile == nullptr) return painter_.drawImage(target, image, source);
    painter_.drawImage(target, InSrgb(image.copy(source)));
  }

 private:
  QPainter& painter_;
  QSize canvas_;
};

bool IsWhole(qreal ratio) { return ratio == std::floor(ratio); }

}  // namespace

CanvasWidget::CanvasWidget(Canvas& canvas, QWidget& parent) : QWidget(&parent), canvas_(&canvas) {
  setFocusPolicy(canvas.AcceptFocus ? Qt::StrongFocus : Qt::NoFocus);
  if (canvas.Shortcut.empty()) return;
  auto* shortcut = new QShortcut(QKeySequence(QString::fromStdString(canvas.Shortcut)), this);
  QObject::connect(shortcut, &QShortcut::activated, this, [this] { Press(); });
}

QAccessible::Role CanvasWidget::Role() const {
  return IsPressable() ? QAccessible::Button : QAccessible::Graphic;
}

double CanvasWidget::Scale() const {
  return static_cast<double>(width()) / std::max(1, canvas_->Width);
}

void CanvasWidget::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::SmoothPixmapTransform, !IsWhole(devicePixelRatioF() * Scale()));
  if (canvas_->Backdrop != nullptr) {
    const QString name = QString::fromStdString(canvas_->Backdrop->Name());
    QIcon(":/" + name + ".png").paint(&painter, rect());
  }
  painter.scale(Scale(), Scale());
  WidgetGraphics graphics(painter, {canvas_->Width, canvas_->Height});
  canvas_->HostPaint(graphics);
}

void CanvasWidget::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  const QPointF position = event->position() / Scale();
  canvas_->UserMouseDown(static_cast<int>(position.x()), static_cast<int>(position.y()));
}

}  // namespace morvantile
