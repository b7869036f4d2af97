#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "app/app.h"
#include "platform/ui/headless_host.h"
#include "platform/ui/segmented_control.h"
#include "platform/ui/slider.h"
#include "plist/plist.h"
#include "tests/platform/files/scratch_folder.h"

namespace morvantile {
namespace {

constexpr const char* kSettings = "config/Morvantile/Morvantile Preferences";

template <typename C>
Ref<C> Find(Window& window) {
  for (const Ref<Control>& control : window.Controls()) {
    if (auto* found = dynamic_cast<C*>(control.get())) return Ref<C>(found);
  }
  return nullptr;
}

class RunTest : public testing::Test {
 protected:
  RunTest() {
    InstallHost(&host);
    setenv("XDG_CONFIG_HOME", folder.Path("config").c_str(), 1);
    PutPicture();
  }
  ~RunTest() override { InstallHost(nullptr); }

  void PutPicture() {
    original = Picture::Create(640, 480, false);
    for (int y = 0; y < 480; ++y) std::fill_n(original->MutableRow(y), 4 * 640, 7);
    host.clipboardPicture = original;
  }

  int Run() {
    const Ref<App> app = New<App>();
    return host.Run(*app);
  }

  // A run whose user sets mode and slider and presses OK.
  void RunWith(int mode, int slider) {
    host.scripts.emplace_back([mode, slider](Window& shown) {
      Find<SegmentedControl>(shown)->UserPress(mode);
      Find<Slider>(shown)->SetValue(slider);
      shown.FindDefaultButton()->UserPress();
    });
    EXPECT_EQ(Run(), 0);
  }

  // A run whose user presses OK at once.
  void RunWithOk() {
    host.scripts.emplace_back([](Window& shown) { shown.FindDefaultButton()->UserPress(); });
    EXPECT_EQ(Run(), 0);
    EXPECT_TRUE(host.messages.empty());
  }

  std::string Size() const {
    return std::to_string(host.clipboardPicture->Width()) + " x " +
           std::to_string(host.clipboardPicture->Height());
  }

  bool Exists(const char* name) const { return std::filesystem::exists(folder.Path(name)); }

  ScratchFolder folder;
  HeadlessHost host;
  Ref<Picture> original;
};

TEST_F(RunTest, WithoutAPictureItQuitsSilentlyAndTouchesNothing) {
  host.SetClipboardText("text");
  EXPECT_EQ(Run(), 0);
  EXPECT_EQ(host.windowsShown, 0);
  EXPECT_TRUE(host.messages.empty());
  EXPECT_EQ(host.clipboardText, "text");
  EXPECT_FALSE(Exists("config"));
}

TEST_F(RunTest, AFirstOkScalesByHalfAndWritesTheSettings) {
  RunWithOk();
  EXPECT_EQ(Size(), "320 x 240");
  EXPECT_EQ(folder.Content(kSettings),
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
            "<!DOCTYPE plist PUBLIC \"-//Apple Computer//DTD PLIST 1.0//EN\" "
            "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
            "<plist version=\"1.0\">\n"
            "<dict>\n"
            "\t<key>Scale Mode</key>\n"
            "\t<integer>2</integer>\n"
            "\t<key>Slider Value</key>\n"
            "\t<real>50</real>\n"
            "</dict>\n"
            "</plist>\n");
  EXPECT_EQ(folder.Permissions(kSettings),
            std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
}

TEST_F(RunTest, TheNextRunOpensOnWhatWasRemembered) {
  RunWith(1, 20);
  EXPECT_EQ(Size(), "160 x 120");
  PutPicture();
  RunWithOk();
  EXPECT_EQ(Size(), "160 x 120");
}

TEST_F(RunTest, DontScaleLeavesPictureAndSettings) {
  host.scripts.emplace_back([](Window& shown) {
    Find<Slider>(shown)->SetValue(7);
    shown.FindCancelButton()->UserPress();
  });
  EXPECT_EQ(Run(), 0);
  EXPECT_EQ(host.clipboardPicture, original);
  EXPECT_TRUE(Exists("config/Morvantile"));
  EXPECT_FALSE(Exists(kSettings));
}

TEST_F(RunTest, ClosingAWindowWithoutACloseButtonMeansDontScale) {
  host.scripts.emplace_back([](Window& shown) { shown.UserClose(); });
  EXPECT_EQ(Run(), 0);
  EXPECT_EQ(host.clipboardPicture, original);
}

TEST_F(RunTest, AFolderInPlaceOfTheSettingsFileStopsNothing) {
  std::filesystem::create_directories(folder.Path(kSettings));
  RunWithOk();
  EXPECT_EQ(Size(), "320 x 240");
  EXPECT_TRUE(std::filesystem::is_directory(folder.Path(kSettings)));
}

TEST_F(RunTest, SettingsThatAreNoPropertyListStopNothing) {
  std::filesystem::create_directories(folder.Path("config/Morvantile"));
  folder.Put(kSettings, "not a property list\n");
  RunWithOk();
  EXPECT_EQ(Size(), "320 x 240");
  PutPicture();
  RunWithOk();
  EXPECT_EQ(folder.Content(kSettings).substr(0, 20), "not a property list\n");
}

TEST_F(RunTest, AnUnusableConfigurationFolderStopsNothing) {
  folder.Put("config", "a file where the folder should be");
  RunWithOk();
  EXPECT_EQ(Size(), "320 x 240");
  EXPECT_EQ(folder.Content("config"), "a file where the folder should be");
}

TEST_F(RunTest, SettingsInBinaryFormStayBinary) {
  RunWith(0, 10);
  const Ref<plist> document = New<plist>(folder.Item(kSettings), false);
  document->Save(false, true);
  ASSERT_EQ(folder.Content(kSettings).substr(0, 6), "bplist");
  PutPicture();
  RunWithOk();
  EXPECT_EQ(Size(), "60 x 45");
  EXPECT_EQ(folder.Content(kSettings).substr(0, 6), "bplist");
}

}  // namespace
}  // namespace morvantile
