#include <gtest/gtest.h>

#include <QApplication>
#include <QScreen>
#include <QWheelEvent>

#include "platform/qt/widgets/contrast.h"
#include "platform/qt/widgets/slider_widget.h"
#include "platform/qt/widgets/window_widget.h"
#include "platform/ui/controls/label.h"

namespace morvantile {
namespace {

// A window with one control of each kind that shows a text or a focus.
class Sampler : public Window {
 public:
  Ref<Slider> slider;

 protected:
  void CreateControls() override {
    Resizeable = false;
    SetWidth(300);
    SetHeight(QGuiApplication::primaryScreen()->availableGeometry().height() * 2);
    slider = AddControl<Slider>("Slider", 10, 10, 280, 23);
    slider->TickStyle = Slider::kTicksBelow;
    AddControl<PushButton>("Button", 10, 50, 80, 20);
    const Ref<Label> dimmed = AddControl<Label>("Dimmed", 10, 80, 80, 20);
    dimmed->Enabled = false;
    AddControl<Label>("Link", 10, 110, 80, 20)->TextColor = 0x0000FF;
  }
};

// The sampler on the screen, in the theme that a test asks for.
class Widgets : public testing::TestWithParam<const char*> {
 protected:
  void SetUp() override {
    const bool dark = std::string(GetParam()) == "dark";
    QApplication::setPalette(dark ? QPalette(QColor(0x3A, 0x3A, 0x3A), QColor(0x2B, 0x2B, 0x2B))
                                  : QPalette(QColor(0xEF, 0xEF, 0xEF)));
    sampler_->Build();
    shown_ = std::make_unique<WindowWidget>(sampler_, nullptr);
    shown_->show();
    shown_->activateWindow();
    QApplication::processEvents();
  }
  void TearDown() override {
    shown_ = nullptr;
    sampler_->Close();
  }

  template <typename W = QWidget>
  W& Named(const char* name) {
    return *shown_->findChild<W*>(name);
  }
  QColor Background() const { return shown_->palette().color(QPalette::Window); }

  Ref<Sampler> sampler_ = New<Sampler>();
  std::unique_ptr<WindowWidget> shown_;
};

// The highest contrast of a pixel in the lowest rows of an image.
double ContrastAtTheBottom(const QImage& image, const QColor& background) {
  double highest = 0;
  for (int x = 0; x < image.width(); ++x) {
    highest = std::max(highest, Contrast(image.pixelColor(x, image.height() - 3), background));
  }
  return highest;
}

TEST_P(Widgets, TheFocusCanBeSeen) {
  for (const char* name : {"Slider", "Button"}) {
    QWidget& widget = Named(name);
    shown_->setFocus();
    const QImage without = widget.grab().toImage();
    widget.setFocus();
    EXPECT_NE(widget.grab().toImage(), without) << name;
  }
}

TEST_P(Widgets, DimmedTextTicksAndLinksCanBeRead) {
  const auto text = [&](const char* name, QPalette::ColorGroup group) {
    return Contrast(Named(name).palette().color(group, QPalette::WindowText), Background());
  };
  EXPECT_GE(text("Dimmed", QPalette::Disabled), 3.0);
  EXPECT_GE(text("Link", QPalette::Active), 4.5);
  shown_->setFocus();
  EXPECT_GE(ContrastAtTheBottom(Named("Slider").grab().toImage(), Background()), 3.0) << "ticks";
}

TEST_P(Widgets, ANotchOfTheWheelIsOneStep) {
  QWidget& slider = Named("Slider");
  const auto turn = [&](int eighths) {
    QWheelEvent event({5, 5}, slider.mapToGlobal(QPointF(5, 5)), {}, {0, eighths}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&slider, &event);
    return sampler_->slider->Value();
  };
  EXPECT_EQ(turn(240), 2);
  EXPECT_EQ(turn(-120), 1);
  EXPECT_EQ(turn(60), 1) << "half a notch of a fine wheel";
  EXPECT_EQ(turn(60), 2);
}

TEST_P(Widgets, AWindowTooLargeForTheScreenIsDrawnSmaller) {
  const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
  EXPECT_TRUE(screen.contains(shown_->geometry()));
  EXPECT_LT(Named("Link").height(), 10);
}

INSTANTIATE_TEST_SUITE_P(Themes, Widgets, testing::Values("light", "dark"));

}  // namespace
}  // namespace morvantile
