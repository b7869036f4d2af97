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

  void DrawPicture(const Ref<Picture>& picture, int x, int y, int destWidth, int destHeight,
                   int sourceX, int sourceY, int sourceWidth, int sourceHeight) override {
    if (picture == nullptr) return;
    if (sourceWidth == kWhole) sourceWidth = picture->Width();
    if (sourceHeight == kWhole) sourceHeight = picture->Height();
    if (destWidth == kWhole) destWidth = sourceWidth;
    if (destHeight == kWhole) destHeight = sourceHeight;
    QRect target(x, y, destWidth, destHeight);
    QRect source(sourceX, sourceY, sourceWidth, sourceHeight);
    if (target.size() == source.size()) {
      target &= QRect(QPoint(), canvas_);
      source = target.translated(sourceX - x, sourceY - y);
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
