#include "dialogs/resizer_window.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "platform/text/text.h"
#include "platform/ui/headless_host.h"

namespace morvantile {
namespace {

std::string Size(std::int64_t width, std::int64_t height) {
  return Str(width) + " x " + Str(height);
}

// Records where a canvas draws its picture.
class Recorder : public Graphics {
 public:
  std::string places;

  void DrawPicture(const Ref<Picture>& /*picture*/, int x, int y, int destWidth, int destHeight,
                   int sourceX, int sourceY, int sourceWidth, int sourceHeight) override {
    for (const int side : {destWidth, destHeight, sourceWidth, sourceHeight})
      EXPECT_EQ(side, kWhole);
    places += "at " + Str(x + sourceX) + " " + Str(y + sourceY);
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
    host.clipboard_picture = Picture::Create(width, height, false);
    for (int y = 0; y < height; ++y)
      std::fill_n(host.clipboard_picture->MutableRow(y), 4 * width, 0x80);
    window = ResizerWindow::Instance(settings);
  }

  // Which segment is lit, the two labels, and the size of the new picture.
  std::string Outcome() const {
    std::string lit;
    for (int i = 0; i < 3; ++i) lit += window->ModeSelector()->Items(i).Selected() ? "WH%"[i] : '.';
    const Ref<Picture> clip = window->NewClip;
    return lit + " " + window->ScaleFactorLabel()->Text() + ", " + window->NewSizeLabel()->Text() +
           ", " + (clip ? Size(clip->Width(), clip->Height()) : "none");
  }

  std::string Painted() const {
    Recorder recorder;
    window->Preview()->HostPaint(recorder);
    return recorder.places;
  }

  HeadlessHost host;
  Ref<plist> settings = New<plist>(nullptr, false);
  Ref<ResizerWindow> window;
};

TEST_F(ResizerWindowTest, OpensOnTheRememberedModeAndSliderAndHandsThemBack) {
  const struct {
    double mode, slider;
    const char *outcome, *mode_after, *slider_after;
  } rows[] = {
      {2, 50, "..% 50%, New Size: 320 x 240, 320 x 240", "2", "50"},
      {1, 33.9, ".H. 198, New Size: 264 x 198, 264 x 198", "1", "33"},
      {0, 1, "W.. 6, New Size: 6 x 4, 6 x 4", "0", "1"},
      {3, 1e300, "..% 600, New Size: 600 x 450, 600 x 450", "0", "100"},
      {-1, -1e300, "..% 6, New Size: 6 x 4, 6 x 4", "0", "1"},
  };
  for (const auto& row : rows) {
    if (&row != rows) {  // else by default
      settings->root->SetInteger("Scale Mode", row.mode);
      settings->root->SetReal("Slider Value", row.slider);
    }
    OpenOn(640, 480);
    EXPECT_EQ(window->OriginalSize()->Text(), "Original Size: 640 x 480");
    EXPECT_EQ(Outcome(), row.outcome);
    window->Close();
    EXPECT_EQ(settings->root->GetString("Scale Mode"), row.mode_after);
    EXPECT_EQ(settings->root->GetString("Slider Value"), row.slider_after);
  }
}

TEST_F(ResizerWindowTest, TheSliderMeansWidthHeightOrPercentAndSidesAreCutAndNotRounded) {
  const struct {
    int width, height, mode, slider;
    const char *outcome, *painted;
  } rows[] = {
      {640, 480, 0, 50, "W.. 300, New Size: 300 x 225, 300 x 225", "at 50 17"},
      {640, 480, 1, 50, ".H. 300, New Size: 400 x 300, 400 x 300", "at 0 0"},
      {640, 480, 2, 50, "..% 50%, New Size: 320 x 240, 320 x 240", "at 40 10"},
      {1000, 100, 2, 100, "..% 100%, New Size: 1000 x 100, 1000 x 100", "at 0 80"},
      {101, 51, 2, 100, "..% 100%, New Size: 101 x 51, 101 x 51", "at 149 104"},
      {11, 11, 0, 5, "W.. 30, New Size: 29 x 29, 29 x 29", "at 185 115"},
      {7, 7, 0, 79, "W.. 474, New Size: 473 x 473, 473 x 473", "at 0 0"},
      {100, 100, 2, 29, "..% 29%, New Size: 28 x 28, 28 x 28", "at 186 116"},
      {100, 50, 0, 100, "W.. 600, New Size: 600 x 300, 600 x 300", "at 0 0"},
      {1000, 5, 0, 1, "W.. 6, New Size: 6 x 0, 6 x 1", "at 197 129"},
      {1, 30000, 0, 100, "W.. 600, New Size: 600 x 18000000, none", ""},
  };
  for (const auto& row : rows) {
    OpenOn(row.width, row.height);
    window->ModeSelector()->UserPress(row.mode);
    window->ScaleSlider()->SetValue(row.slider);
    EXPECT_EQ(Outcome() + " " + Painted(), std::string(row.outcome) + " " + row.painted)
        << Size(row.width, row.height);
  }
  host.scripts.emplace_back([&](Window&) { window->ScaleButton()->UserPress(); });
  EXPECT_EQ(window->GetClip(), nullptr) << "what can't be made";
}

TEST_F(ResizerWindowTest, StandsInTheMiddleAsFarAsTheScreenLeavesRoom) {
  OpenOn(10, 10);
  EXPECT_EQ(Size(window->Left(), window->Top()), "500 x 184");
  host.screens = {{1440, 600, 0, 32, 1440, 568}};
  OpenOn(10, 10);
  EXPECT_EQ(Size(window->Left(), window->Top()), "500 x 62");
}

TEST_F(ResizerWindowTest, DontScaleLetsGoOfThePicture) {
  OpenOn(10, 10);
  window->UserDeactivated();
  EXPECT_FALSE(window->Closed()) << "it was not active yet";
  host.scripts.emplace_back([&](Window&) { window->CancelButton()->UserPress(); });
  EXPECT_EQ(window->GetClip(), nullptr);
  EXPECT_TRUE(window->Closed());
}

TEST_F(ResizerWindowTest, AnotherActiveWindowClosesItWithThePictureButNotTheInfoWindow) {
  OpenOn(10, 10);
  host.scripts.emplace_back([&](Window& shown) {
    window->InfoButton()->UserMouseDown(1, 1);
    EXPECT_FALSE(window->ShowingInfo || shown.Closed());
    shown.UserActivated();
    shown.UserDeactivated();
    EXPECT_TRUE(shown.Closed());
    shown.UserDeactivated();
  });
  host.scripts.emplace_back([&](Window& info) {
    EXPECT_TRUE(window->ShowingInfo);
    window->UserDeactivated();
    info.UserKeyDown("x");
  });
  EXPECT_NE(window->GetClip(), nullptr);
  EXPECT_EQ(host.windows_shown, 2);
}

TEST_F(ResizerWindowTest, APictureTakenAwayBeforeItOpensEndsItAtOnce) {
  window = ResizerWindow::Instance(settings);
  EXPECT_EQ(window->GetClip(), nullptr);
  EXPECT_EQ(host.windows_shown, 0);
}

}  // namespace
}  // namespace morvantile
