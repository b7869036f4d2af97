// How long a step of the slider takes, from the change of its value to the painted preview.
//
// Run on a display: bench_drag [WIDTH HEIGHT]. Prints milliseconds, by mode.

#include <QApplication>
#include <QElapsedTimer>
#include <QSlider>
#include <QWidget>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "dialogs/resizer_window.h"
#include "platform/qt/qt_host.h"
#include "platform/ui/application.h"

namespace morvantile {
namespace {

constexpr int kSteps = 100;

Ref<Picture> Noise(int width, int height) {
  Ref<Picture> picture = Picture::Create(width, height, false);
  std::uint32_t state = 1;
  for (int y = 0; y < height; ++y) {
    std::uint8_t* row = picture->MutableRow(y);
    for (int x = 0; x < 4 * width; ++x) {
      state = state * 1664525 + 1013904223;
      row[x] = static_cast<std::uint8_t>(state >> 24);
    }
  }
  return picture;
}

// Tells when a widget has been painted.
class PaintWatch : public QObject {
 public:
  int paints = 0;

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint) {
      watched->removeEventFilter(this);
      QCoreApplication::sendEvent(watched, event);
      watched->installEventFilter(this);
      ++paints;
      return true;
    }
    return QObject::eventFilter(watched, event);
  }
};

// The milliseconds of each step of a drag from one end of the slider to the other.
std::vector<double> Drag(QSlider& slider, PaintWatch& watch) {
  std::vector<double> times;
  slider.setValue(slider.maximum());
  for (int step = 0; step < kSteps; ++step) {
    const int before = watch.paints;
    QElapsedTimer clock;
    clock.start();
    slider.setValue(slider.minimum() + step);
    while (watch.paints == before) QCoreApplication::processEvents();
    times.push_back(static_cast<double>(clock.nsecsElapsed()) / 1e6);
  }
  std::sort(times.begin(), times.end());
  return times;
}

class Measurement : public Application {
 public:
  Measurement(int width, int height) : picture_(Noise(width, height)) {}

  void Event_Open() override {
    CurrentHost().SetClipboardPicture(picture_);
    const Ref<ResizerWindow> window = ResizerWindow::Instance(New<plist>(nullptr, false));
    QMetaObject::invokeMethod(
        qApp, [this, window] { Measure(*window); }, Qt::QueuedConnection);
    window->ShowModal();
    Quit(0);
  }

 private:
  void Measure(ResizerWindow& window) {
    QWidget* dialog = QApplication::activeModalWidget();
    auto* slider = dialog->findChild<QSlider*>("ScaleSlider");
    auto* preview = dialog->findChild<QWidget*>("Preview");
    PaintWatch watch;
    preview->installEventFilter(&watch);
    std::printf("%-10s %8s %8s\n", "mode", "median", "worst");
    for (const char* mode : {"width", "height", "per cent"}) {
      window.ModeSelector()->UserPress(modes_++);
      const std::vector<double> times = Drag(*slider, watch);
      std::printf("%-10s %8.2f %8.2f\n", mode, times[times.size() / 2], times.back());
    }
    preview->removeEventFilter(&watch);
    window.Close();
  }

  Ref<Picture> picture_;
  int modes_ = 0;
};

}  // namespace
}  // namespace morvantile

int main(int argc, char** argv) {
  using morvantile::New;
  const int width = argc > 2 ? std::atoi(argv[1]) : 3840;
  const int height = argc > 2 ? std::atoi(argv[2]) : 2160;
  morvantile::StayBehind stay_behind;
  morvantile::SingleInstance instance;
  morvantile::QtHost host(1, argv, stay_behind, instance);
  morvantile::InstallHost(&host);
  const auto measurement = New<morvantile::Measurement>(width, height);
  measurement->Event_Open();
  return 0;
}
