#include "dialogs/resizer_window.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <tuple>
#include <vector>

#include "platform/ui/headless_host.h"

namespace morvantile {
namespace {

using ScaleMode = ResizerWindow::ScaleMode;

Ref<Picture> Plain(int width, int height) {
  Ref<Picture> picture = Picture::Create(width, height, false);
  for (int y = 0; y < height; ++y) {
    std::fill_n(picture->MutableRow(y), 4 * width, std::uint8_t{0x80});
  }
  return picture;
}

// Records where a canvas draws its picture.
class Recorder : public Graphics {
 public:
  std::vector<std::tuple<int, int>> origins;

  void DrawPicture(const Ref<Picture>& /*picture*/, int x, int y, int destWidth, int destHeight,
                   int sourceX, int sourceY, int sourceWidth, int sourceHeight) override {
    EXPECT_EQ(std::make_tuple(destWidth, destHeight, sourceX, sourceY, sourceWidth, sourceHeight),
              std::make_tuple(kWhole, kWhole, 0, 0, kWhole, kWhole));
    origins.emplace_back(x, y);
  }
};

class ResizerWindowTest : public testing::Test {
 protected:
  ResizerWindowTest() { InstallHost(&host); }
  ~ResizerWindowTest() override {
    if (window != nullptr) window->Close();
    InstallHost(nullptr);
  }

  void OpenOn(int width, int height) {
    if (window != nullptr) window->Close();
    host.clipboardPicture = Plain(width, height);
    window = ResizerWindow::Instance(settings);
  }

  void Set(ScaleMode mode, int slider) {
    window->ModeSelector()->UserPress(static_cast<int>(mode));
    window->ScaleSlider()->SetValue(slider);
  }

  // Mode, slider, the two labels and the size of the picture as one line.
  std::string Outcome() const {
    return window->ScaleFactorLabel()->Text() + ", " + window->NewSizeLabel()->Text() + ", " +
           std::to_string(window->NewClip->Width()) + " x " +
           std::to_string(window->NewClip->Height());
  }

  std::vector<std::tuple<int, int>> PaintedAt() const {
    Recorder recorder;
    window->Preview()->HostPaint(recorder);
    return recorder.origins;
  }

  HeadlessHost host;
  Ref<plist> settings = New<plist>(nullptr, false);
  Ref<ResizerWindow> window;
};

TEST_F(ResizerWindowTest, OpensOnHalfTheSizeOfTheClipboardsPicture) {
  OpenOn(640, 480);
  EXPECT_EQ(window->OriginalSize()->Text(), "Original Size: 640 x 480");
  EXPECT_EQ(window->Mode, ScaleMode::Percent);
  EXPECT_TRUE(window->ModeSelector()->Items(2).Selected());
  EXPECT_EQ(window->ScaleSlider()->Value(), 50);
  EXPECT_EQ(Outcome(), "50%, New Size: 320 x 240, 320 x 240");
}

TEST_F(ResizerWindowTest, OpensOnTheRememberedModeAndSliderAndHandsThemBack) {
  settings->root->SetInteger("Scale Mode", 1);
  settings->root->SetReal("Slider Value", 33.9);
  OpenOn(640, 480);
  EXPECT_TRUE(window->ModeSelector()->Items(1).Selected());
  EXPECT_EQ(Outcome(), "198, New Size: 264 x 198, 264 x 198");
  Set(ScaleMode::Width, 20);
  window->CancelButton()->UserPress();
  EXPECT_EQ(settings->root->GetString("Scale Mode"), "0");
  EXPECT_EQ(settings->root->GetReal("Slider Value"), 20.0);
}

TEST_F(ResizerWindowTest, AModeThatThereIsNotLightsPercentButMeansAWidth) {
  settings->root->SetInteger("Scale Mode", 5);
  settings->root->SetReal("Slider Value", 1e300);
  OpenOn(1200, 600);
  EXPECT_TRUE(window->ModeSelector()->Items(2).Selected());
  EXPECT_EQ(Outcome(), "600, New Size: 600 x 300, 600 x 300");
  window->Close();
  EXPECT_EQ(settings->root->GetInteger("Scale Mode"), 0);
}

TEST_F(ResizerWindowTest, TheSliderMeansWidthHeightOrPercent) {
  OpenOn(640, 480);
  Set(ScaleMode::Width, 50);
  EXPECT_EQ(Outcome(), "300, New Size: 300 x 225, 300 x 225");
  EXPECT_EQ(window->ScaleFactor, 0.46875);
  Set(ScaleMode::Height, 50);
  EXPECT_EQ(Outcome(), "300, New Size: 400 x 300, 400 x 300");
  EXPECT_EQ(window->ScaleFactor, 0.625);
  Set(ScaleMode::Percent, 50);
  EXPECT_EQ(Outcome(), "50%, New Size: 320 x 240, 320 x 240");
  Set(ScaleMode::Percent, 100);
  EXPECT_EQ(Outcome(), "100%, New Size: 640 x 480, 640 x 480");
}

TEST_F(ResizerWindowTest, SidesThatFallJustShortAreCutAndNotRounded) {
  OpenOn(11, 11);
  Set(ScaleMode::Width, 5);
  EXPECT_EQ(11 * window->ScaleFactor, 29.999999999999996);
  EXPECT_EQ(Outcome(), "30, New Size: 29 x 29, 29 x 29");
  OpenOn(7, 7);
  Set(ScaleMode::Width, 79);
  EXPECT_EQ(Outcome(), "474, New Size: 473 x 473, 473 x 473");
  OpenOn(100, 100);
  Set(ScaleMode::Percent, 29);
  EXPECT_EQ(100 * window->ScaleFactor, 28.999999999999996);
  EXPECT_EQ(Outcome(), "29%, New Size: 28 x 28, 28 x 28");
  Set(ScaleMode::Percent, 57);
  EXPECT_EQ(Outcome(), "57%, New Size: 56 x 56, 56 x 56");
  Set(ScaleMode::Percent, 58);
  EXPECT_EQ(Outcome(), "58%, New Size: 57 x 57, 57 x 57");
}

TEST_F(ResizerWindowTest, SmallPicturesGrowAndThinOnesKeepAPixel) {
  OpenOn(100, 50);
  Set(ScaleMode::Width, 100);
  EXPECT_EQ(Outcome(), "600, New Size: 600 x 300, 600 x 300");
  OpenOn(1000, 5);
  Set(ScaleMode::Width, 1);
  EXPECT_EQ(Outcome(), "6, New Size: 6 x 0, 6 x 1");
}

TEST_F(ResizerWindowTest, APictureTooLargeToMakeLeavesNothingForTheClipboard) {
  OpenOn(1, 30000);
  Set(ScaleMode::Width, 100);
  EXPECT_EQ(window->NewClip, nullptr);
  EXPECT_EQ(window->NewSizeLabel()->Text(), "New Size: 600 x 18000000");
  EXPECT_TRUE(PaintedAt().empty());
  host.scripts.emplace_back([&](Window&) { window->ScaleButton()->UserPress(); });
  EXPECT_EQ(window->GetClip(), nullptr);
}

TEST_F(ResizerWindowTest, ThePreviewCentresWhatFitsAndCutsWhatDoesNot) {
  OpenOn(101, 51);
  Set(ScaleMode::Percent, 100);
  EXPECT_EQ(PaintedAt(), (std::vector<std::tuple<int, int>>{{149, 104}}));
  OpenOn(1000, 100);
  Set(ScaleMode::Percent, 100);
  EXPECT_EQ(PaintedAt(), (std::vector<std::tuple<int, int>>{{0, 80}}));
}

TEST_F(ResizerWindowTest, StandsInTheMiddleAsFarAsTheScreenLeavesRoom) {
  OpenOn(10, 10);
  EXPECT_EQ(window->Left(), 500);
  EXPECT_EQ(window->Top(), 184);
  window->Close();
  host.screens = {{1440, 600, 0, 32, 1440, 568}};
  OpenOn(10, 10);
  EXPECT_EQ(window->Top(), 62);
}

TEST_F(ResizerWindowTest, DontScaleLetsGoOfThePicture) {
  OpenOn(10, 10);
  host.scripts.emplace_back([&](Window&) { window->CancelButton()->UserPress(); });
  EXPECT_EQ(window->GetClip(), nullptr);
  EXPECT_TRUE(window->Closed());
}

TEST_F(ResizerWindowTest, AnotherActiveWindowClosesItWithThePicture) {
  OpenOn(10, 10);
  host.scripts.emplace_back([&](Window& shown) {
    const Ref<Picture> last = window->NewClip;
    shown.UserDeactivated();
    EXPECT_TRUE(shown.Closed());
    EXPECT_EQ(window->NewClip, last);
    shown.Close();
    shown.UserDeactivated();
  });
  EXPECT_NE(window->GetClip(), nullptr);
}

TEST_F(ResizerWindowTest, ADeactivationBeforeTheFirstActivationIsNone) {
  OpenOn(10, 10);
  window->UserDeactivated();
  EXPECT_FALSE(window->Closed());
}

TEST_F(ResizerWindowTest, TheInfoWindowMayTakeTheActivation) {
  OpenOn(10, 10);
  host.scripts.emplace_back([&](Window& shown) {
    window->InfoButton()->UserMouseDown(1, 1);
    EXPECT_FALSE(window->ShowingInfo);
    EXPECT_FALSE(shown.Closed());
    shown.UserActivated();
    shown.UserDeactivated();
    EXPECT_TRUE(shown.Closed());
  });
  host.scripts.emplace_back([&](Window& info) {
    EXPECT_TRUE(window->ShowingInfo);
    window->UserDeactivated();
    info.UserKeyDown("x");
  });
  window->GetClip();
  EXPECT_EQ(host.windowsShown, 2);
}

TEST_F(ResizerWindowTest, APictureTakenAwayBeforeItOpensEndsItAtOnce) {
  window = ResizerWindow::Instance(settings);
  EXPECT_EQ(window->GetClip(), nullptr);
  EXPECT_EQ(host.windowsShown, 0);
}

}  // namespace
}  // namespace morvantile
