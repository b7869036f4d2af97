#include <gtest/gtest.h>

#include <QApplication>
#include <QScreen>
#include <memory>

#include "platform/qt/widgets/contrast.h"
#include "platform/qt/widgets/slider_widget.h"
#include "platform/qt/widgets/window_widget.h"
#include "platform/ui/controls/label.h"

namespace morvantile {
namespace {

// A window with one control of each kind that shows a text or a focus, too high for the screen.
struct Sampler : Window {
  void CreateControls() override {
    Resizeable = false;
    SetWidth(300);
    SetHeight(QGuiApplication::primaryScreen()->availableGeometry().height() * 2);
    AddControl<Slider>("Slider", 10, 10, 280, 23)->TickStyle = Slider::kTicksBelow;
    AddControl<PushButton>("Button", 10, 50, 80, 20);
    AddControl<Label>("Dimmed", 10, 80, 80, 20)->Enabled = false;
    AddControl<Label>("Link", 10, 110, 80, 20)->TextColor = 0x0000FF;
  }
};

// The sampler on the screen, with a palette of this colour of windows and buttons.
class Widgets : public testing::TestWithParam<QRgb> {
 protected:
  Widgets() {
    QApplication::setPalette(QPalette(QColor(GetParam())));
    sampler->Build();
    shown = std::make_unique<WindowWidget>(sampler, nullptr);
    shown->show();
    shown->activateWindow();
    QApplication::processEvents();
  }
  ~Widgets() override {
    shown = nullptr;
    sampler->Close();
  }

  QWidget& Named(const char* name) { return *shown->findChild<QWidget*>(name); }
  [[nodiscard]] double ContrastOf(const QColor& colour) const {
    return Contrast(colour, shown->palette().color(QPalette::Window));
  }

  Ref<Sampler> sampler = New<Sampler>();
  std::unique_ptr<WindowWidget> shown;
};

TEST_P(Widgets, TheFocusCanBeSeen) {
  for (const char* name : {"Slider", "Button"}) {
    shown->setFocus();
    const QImage without = Named(name).grab().toImage();
    Named(name).setFocus();
    EXPECT_NE(Named(name).grab().toImage(), without) << name;
  }
}

TEST_P(Widgets, DimmedTextTicksAndLinksCanBeRead) {
  EXPECT_GE(ContrastOf(Named("Dimmed").palette().windowText().color()), 3.0);
  EXPECT_GE(ContrastOf(Named("Link").palette().windowText().color()), 4.5);
  shown->setFocus();
  const QImage slider = Named("Slider").grab().toImage();
  double ticks = 0;
  for (int x = 0; x < slider.width(); ++x) {
    ticks = std::max(ticks, ContrastOf(slider.pixelColor(x, slider.height() - 3)));
  }
  EXPECT_GE(ticks, 3.0);
}

TEST_P(Widgets, AWindowTooLargeForTheScreenIsDrawnSmaller) {
  const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
  EXPECT_TRUE(screen.contains(shown->geometry()));
  EXPECT_LT(Named("Link").height(), 10);
}

INSTANTIATE_TEST_SUITE_P(LightAndDark, Widgets, testing::Values(0xFFEFEFEF, 0xFF3A3A3A));

}  // namespace
}  // namespace morvantile
