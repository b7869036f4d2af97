#include "dialogs/resizer_window.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/text/text.h"
#include "tests/installed_host.h"

namespace morvantile {
namespace {

std::string Pair(std::int64_t one, std::int64_t other) { return Str(one) + " x " + Str(other); }

// Records where a canvas draws its picture.
struct Recorder : Graphics {
  std::string place;

  void DrawPicture(const Ref<Picture>&, int x, int y, int, int, int, int, int, int) override {
    place = " at " + Pair(x, y);
  }
};

class ResizerWindowTest : public testing::Test {
 protected:
  ~ResizerWindowTest() override { window->Close(); }

  void OpenOn(int width, int height) {
    if (window != nullptr) window->Close();
    host.clipboard_picture = Picture::Create(width, height, false);
    window = ResizerWindow::Instance(settings);
  }

  // Which segment is lit, the two labels, and the size of the new picture and its place.
  [[nodiscard]] std::string Outcome() const {
    std::string lit;
    for (int i = 0; i < 3; ++i) lit += window->ModeSelector()->Items(i).Selected() ? "WH%"[i] : '.';
    const Ref<Picture> clip = window->NewClip;
    Recorder recorder;
    window->Preview()->HostPaint(recorder);
    return lit + " " + window->ScaleFactorLabel()->Text() + ", " + window->NewSizeLabel()->Text() +
           ", " + (clip ? Pair(clip->Width(), clip->Height()) : "none") + recorder.place;
  }

  InstalledHost host;
  Ref<plist> settings = New<plist>(nullptr, false);
  Ref<ResizerWindow> window;
};

TEST_F(ResizerWindowTest, OpensAtHalfTheSizeInTheMiddleAsFarAsTheScreenLeavesRoom) {
  OpenOn(640, 480);
  EXPECT_EQ(Outcome(), "..% 50%, New Size: 320 x 240, 320 x 240 at 40 x 10");
  EXPECT_EQ(window->OriginalSize()->Text(), "Original Size: 640 x 480");
  EXPECT_EQ(Pair(window->Left(), window->Top()), "500 x 184");
  EXPECT_EQ(window->ScaleButton()->Caption + window->CancelButton()->Caption, "OKDon't Scale");
  EXPECT_EQ(window->ScaleSlider()->Minimum, 1);
  host.screens = {{1440, 600, 0, 32, 1440, 568}};
  OpenOn(10, 10);
  EXPECT_EQ(Pair(window->Left(), window->Top()), "500 x 62");
}

TEST_F(ResizerWindowTest, OpensOnTheRememberedModeAndSliderAndHandsThemBack) {
  const std::tuple<double, double, const char*, const char*> rows[] = {
      {1, 33.9, ".H. 198, New Size: 264 x 198, 264 x 198 at 68 x 31", "1, 33"},
      {0, 1, "W.. 6, New Size: 6 x 4, 6 x 4 at 197 x 128", "0, 1"},
      {2, 100, "..% 100%, New Size: 640 x 480, 640 x 480 at 0 x 0", "2, 100"},
      {3, 1e300, "..% 600, New Size: 600 x 450, 600 x 450 at 0 x 0", "0, 100"},
      {-1, -1e300, "..% 6, New Size: 6 x 4, 6 x 4 at 197 x 128", "0, 1"},
  };
  plistDict& kept = *settings->root;
  for (const auto& [mode, slider, outcome, handed_back] : rows) {
    kept.SetInteger("Scale Mode", mode);
    kept.SetReal("Slider Value", slider);
    OpenOn(640, 480);
    EXPECT_EQ(Outcome(), outcome);
    window->Close();
    EXPECT_EQ(kept.GetString("Scale Mode") + ", " + kept.GetString("Slider Value"), handed_back);
  }
}

TEST_F(ResizerWindowTest, TheSliderMeansWidthHeightOrPercentAndSidesAreCutAndNotRounded) {
  const std::tuple<int, int, int, int, const char*> rows[] = {
      {640, 480, 0, 50, "W.. 300, New Size: 300 x 225, 300 x 225 at 50 x 17"},
      {640, 480, 1, 50, ".H. 300, New Size: 400 x 300, 400 x 300 at 0 x 0"},
      {1000, 100, 2, 100, "..% 100%, New Size: 1000 x 100, 1000 x 100 at 0 x 80"},
      {11, 11, 0, 5, "W.. 30, New Size: 29 x 29, 29 x 29 at 185 x 115"},
      {100, 100, 2, 29, "..% 29%, New Size: 28 x 28, 28 x 28 at 186 x 116"},
      {1000, 5, 0, 1, "W.. 6, New Size: 6 x 0, 6 x 1 at 197 x 129"},
      {1, 30000, 0, 100, "W.. 600, New Size: 600 x 18000000, none"},
  };
  for (const auto& [width, height, mode, slider, outcome] : rows) {
    OpenOn(width, height);
    window->ModeSelector()->UserPress(mode);
    window->ScaleSlider()->SetValue(slider);
    EXPECT_EQ(Outcome(), outcome) << Pair(width, height);
  }
}

TEST_F(ResizerWindowTest, AnotherActiveWindowClosesItWithThePictureButNotTheInfoWindow) {
  OpenOn(10, 10);
  window->UserDeactivated();
  EXPECT_FALSE(window->Closed()) << "it was not active yet";
  host.scripts.emplace_back([&](Window& shown) {
    window->InfoButton()->UserMouseDown(1, 1);
    EXPECT_FALSE(window->ShowingInfo || shown.Closed());
    shown.UserActivated();
    shown.UserDeactivated();
    EXPECT_TRUE(shown.Closed());
  });
  host.scripts.emplace_back([&](Window& info) {
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
