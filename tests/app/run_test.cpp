#include <gtest/gtest.h>

#include <algorithm>

#include "app/app.h"
#include "dialogs/resizer_window.h"
#include "platform/ui/headless_host.h"

namespace morvantile {
namespace {

class RunTest : public testing::Test {
 protected:
  RunTest() { InstallHost(&host); }
  ~RunTest() override { InstallHost(nullptr); }

  int Run() {
    const Ref<App> app = New<App>();
    return host.Run(*app);
  }

  void PutPicture(int width, int height) {
    original = Picture::Create(width, height, false);
    for (int y = 0; y < height; ++y) std::fill_n(original->MutableRow(y), 4 * width, 7);
    host.clipboardPicture = original;
  }

  HeadlessHost host;
  Ref<Picture> original;
};

TEST_F(RunTest, WithoutAPictureItQuitsSilently) {
  host.clipboardText = "text";
  EXPECT_EQ(Run(), 0);
  EXPECT_EQ(host.windowsShown, 0);
  EXPECT_TRUE(host.messages.empty());
  EXPECT_EQ(host.clipboardText, "text");
}

TEST_F(RunTest, OkReplacesThePicture) {
  PutPicture(640, 480);
  host.scripts.emplace_back([](Window& shown) { shown.FindDefaultButton()->UserPress(); });
  EXPECT_EQ(Run(), 0);
  EXPECT_EQ(host.clipboardPicture->Width(), 320);
  EXPECT_EQ(host.clipboardPicture->Height(), 240);
}

TEST_F(RunTest, DontScaleLeavesThePicture) {
  PutPicture(640, 480);
  host.scripts.emplace_back([](Window& shown) { shown.FindCancelButton()->UserPress(); });
  EXPECT_EQ(Run(), 0);
  EXPECT_EQ(host.clipboardPicture, original);
}

TEST_F(RunTest, ClosingAWindowWithoutACloseButtonMeansDontScale) {
  PutPicture(640, 480);
  host.scripts.emplace_back([](Window& shown) { shown.UserClose(); });
  EXPECT_EQ(Run(), 0);
  EXPECT_EQ(host.clipboardPicture, original);
}

}  // namespace
}  // namespace morvantile
