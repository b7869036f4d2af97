#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "app/app.h"
#include "dialogs/resizer_window.h"
#include "plist/plist.h"
#include "tests/installed_host.h"
#include "tests/platform/files/scratch_folder.h"

namespace morvantile {
namespace {

constexpr const char* kSettings = "config/Morvantile/Morvantile Preferences";

void PressOk(Window& shown) { shown.FindDefaultButton()->UserPress(); }
void PressDontScale(Window& shown) { shown.FindCancelButton()->UserPress(); }
void CloseWindow(Window& shown) { shown.UserClose(); }

struct RunTest : testing::Test {
  RunTest() { setenv("XDG_CONFIG_HOME", folder.Path("config").c_str(), 1); }

  // A run with a picture of 640 by 480 on the clipboard, and a user who does that to the window;
  // returns the size of the picture then.
  std::string Run(const std::function<void(Window&)>& user) {
    host.clipboard_picture = original;
    host.scripts = {[&](Window& shown) {
      user(shown);
      EXPECT_TRUE(shown.Closed());
    }};
    const Ref<App> app = New<App>();
    EXPECT_EQ(host.Run(*app), 0);
    EXPECT_TRUE(host.messages.empty());
    return std::to_string(host.clipboard_picture->Width()) + " x " +
           std::to_string(host.clipboard_picture->Height());
  }

  ScratchFolder folder;
  InstalledHost host;
  const Ref<Picture> original = Picture::Create(640, 480, false);
};

TEST_F(RunTest, WithoutAPictureItQuitsSilentlyAndTouchesNothing) {
  host.SetClipboardText("text");
  const Ref<App> app = New<App>();
  EXPECT_EQ(host.Run(*app) + host.windows_shown, 0);
  EXPECT_TRUE(host.messages.empty());
  EXPECT_EQ(host.clipboard_text, "text");
  EXPECT_EQ(folder.Names(), std::vector<std::string>());
}

TEST_F(RunTest, OkScalesByWhatIsSetAndTheNextRunRemembersIt) {
  EXPECT_EQ(Run(PressOk), "320 x 240");
  EXPECT_NE(folder.Content(kSettings).find("<key>Scale Mode</key>\n\t<integer>2</integer>\n\t"
                                           "<key>Slider Value</key>\n\t<real>50</real>\n</dict>"),
            std::string::npos);
  EXPECT_EQ(folder.Permissions(kSettings),
            std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
  const auto set = [](Window& shown) {
    auto& window = dynamic_cast<ResizerWindow&>(shown);
    window.ModeSelector()->UserPress(1);
    window.ScaleSlider()->SetValue(20);
    PressOk(shown);
  };
  EXPECT_EQ(Run(set), "160 x 120");
  EXPECT_EQ(Run(PressOk), "160 x 120");
  New<plist>(folder.Item(kSettings), false)->Save(false, true);
  EXPECT_EQ(Run(PressOk), "160 x 120");
  EXPECT_EQ(folder.Content(kSettings).substr(0, 6), "bplist") << "binary settings stay so";
}

TEST_F(RunTest, DontScaleOrClosingTheWindowLeavesPictureAndSettings) {
  for (const auto& leave : {PressDontScale, CloseWindow}) {
    Run(leave);
    EXPECT_EQ(host.clipboard_picture, original);
  }
  EXPECT_TRUE(folder.Item("config/Morvantile")->Exists());
  EXPECT_FALSE(folder.Item(kSettings)->Exists());
}

TEST_F(RunTest, SettingsThatCantBeReadOrWrittenStopNothing) {
  folder.Put("config", "a file where the folder should be");
  EXPECT_EQ(Run(PressOk), "320 x 240");
  std::filesystem::remove(folder.Path("config"));
  std::filesystem::create_directories(folder.Path(kSettings));
  EXPECT_EQ(Run(PressOk), "320 x 240");
  std::filesystem::remove(folder.Path(kSettings));
  folder.Put(kSettings, "not a property list\n");
  for (int run = 0; run < 2; ++run) EXPECT_EQ(Run(PressOk), "320 x 240");
  EXPECT_EQ(folder.Content(kSettings).substr(0, 20), "not a property list\n");
}

}  // namespace
}  // namespace morvantile
