#include "platform/qt/widgets/placement.h"

#include <QGuiApplication>
#include <QScreen>
#include <algorithm>
#include <cmath>

namespace morvantile {
namespace {

constexpr int kTitleBar = 30;

// What the primary screen has free for the content of a window.
QRect Room() {
  return QGuiApplication::primaryScreen()->availableGeometry().adjusted(0, kTitleBar, 0, 0);
}

}  // namespace

QPoint OriginOfScreens() { return QGuiApplication::primaryScreen()->geometry().topLeft(); }

double DrawnScale(const Window& window) {
  if (window.Resizeable) return 1;
  const QRect room = Room();
  return std::min({1.0, static_cast<double>(room.width()) / std::max(1, window.Width()),
                   static_cast<double>(room.height()) / std::max(1, window.Height())});
}

QRect DrawnRectangle(const Window& window, double scale) {
  const QPoint origin = OriginOfScreens();
  const QRect wanted(origin.x() + window.Left(), origin.y() + window.Top(), window.Width(),
                     window.Height());
  if (scale == 1) return wanted;
  const QRect room = Room();
  QRect drawn(QPoint(), Scaled(wanted, scale).size());
  drawn.moveTopLeft({room.x() + (room.width() - drawn.width()) / 2, room.y()});
  return drawn;
}

QRect Scaled(const QRect& rectangle, double scale) {
  const auto pixels = [scale](int length) { return static_cast<int>(std::floor(length * scale)); };
  return {pixels(rectangle.x()), pixels(rectangle.y()), pixels(rectangle.width()),
          pixels(rectangle.height())};
}

}  // namespace morvantile
