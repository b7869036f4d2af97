// Documents whose file or folder fails: what the user had stays, or what is new is there.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <string>
#include <thread>

#include "platform/text/text.h"
#include "tests/platform/files/scratch_folder.h"
#include "tests/plist/sketch.h"

namespace morvantile {
namespace {

namespace fs = std::filesystem;
using testing::AnyOf;

class Faults : public testing::Test {
 protected:
  ScratchFolder folder;
};

TEST_F(Faults, AKillAtAnyMomentOfSaveLeavesTheOldFileOrTheNewOne) {
  const auto content = [](std::int64_t number) {
    Ref<plist> document = NewDocument();
    for (int i = 0; i < 200; ++i) document->root->SetInteger(Str(i), static_cast<double>(number));
    return document;
  };
  folder.Put("a", content(0)->asString());
  chmod(folder.Path("a").c_str(), 0640);
  std::mt19937 random(1);
  for (int round = 0; round < 300; ++round) {
    const std::string before = folder.Content("a");
    const Ref<plist> document = content(round + 1);
    const std::string after = document->asString();
    document->savePath = folder.Item("a");
    const pid_t child = fork();
    if (child == 0) {
      document->Save();
      _exit(0);
    }
    std::this_thread::sleep_for(std::chrono::microseconds(random() % 1500));
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    ASSERT_THAT(folder.Content("a"), AnyOf(before, after)) << "round " << round;
    ASSERT_EQ(folder.Permissions("a"), static_cast<fs::perms>(0640)) << "round " << round;
  }
}

TEST_F(Faults, AFileThatShrinksWhileItIsReadGivesWhatIsLeft) {
  std::string text = "<plist version=\"1.0\">\n<dict>\n";
  for (int i = 0; i < 200'000; ++i) text += "<key>" + Str(i) + "</key>\n<string>text</string>\n";
  const Ref<FolderItem> file = folder.Put("a", text);
  std::thread other([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(15));
    fs::resize_file(folder.Path("a"), 1000);
  });
  const Ref<plist> document = New<plist>(file, false);
  other.join();
  ASSERT_GT(document->root->count(), 0);
  EXPECT_EQ(document->root->GetString("0"), "text");
  EXPECT_TRUE(document->root->rootClass == document);
}

TEST_F(Faults, ALinkStaysALinkAndOneToNothingIsFilled) {
  for (const bool exists : {true, false}) {
    if (exists) folder.Put("target", "<plist>\n<dict>\n</dict>\n</plist>\n");
    fs::remove(folder.Path("link"));
    fs::create_symlink("target", folder.Path("link"));
    const Ref<plist> document = New<plist>(folder.Item("link"), false);
    document->root->SetString("k", "v");
    document->Save();
    EXPECT_TRUE(fs::is_symlink(folder.Path("link")));
    EXPECT_EQ(New<plist>(folder.Item("target"), false)->root->GetString("k"), "v");
    fs::remove(folder.Path("target"));
  }
}

TEST_F(Faults, AFolderThatTakesNoFilesLeavesTheFile) {
  folder.Item("d")->CreateAsFolder();
  folder.Put("d/a", "<plist>\n<dict>\n</dict>\n</plist>\n");
  fs::permissions(folder.Path("d"), static_cast<fs::perms>(0555));
  fs::permissions(folder.Path("d/a"), static_cast<fs::perms>(0644));
  const pid_t child = fork();
  if (child == 0) {
    if (getuid() == 0 && setuid(65534) != 0) _exit(2);  // nothing is forbidden to root
    const Ref<plist> document = New<plist>(folder.Item("d/a"), false);
    document->root->SetString("k", "v");
    document->Save();
    _exit(Report(document) == "Could not open file for saving" ? 0 : 1);
  }
  int status = 0;
  waitpid(child, &status, 0);
  EXPECT_EQ(status, 0);
  EXPECT_EQ(folder.Content("d/a"), "<plist>\n<dict>\n</dict>\n</plist>\n");
  fs::permissions(folder.Path("d"), fs::perms::owner_all);
}

}  // namespace
}  // namespace morvantile
