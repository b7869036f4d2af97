// Documents whose file or folder fails: what the user had stays, or what is new is there.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <string>
#include <thread>
#include <utility>

#include "platform/text/text.h"
#include "tests/platform/files/scratch_folder.h"
#include "tests/plist/sketch.h"

namespace {

thread_local int reads_allowed = -1;  // before each further one fails; negative: none does
thread_local bool a_read_has_failed = false;

}  // namespace

// In place of the C library's, so that a disk can fail.
// NOLINTNEXTLINE(readability-inconsistent-declaration-parameter-name): its names are reserved
extern "C" ssize_t read(int file, void* bytes, std::size_t size) {
  if (reads_allowed == 0) {
    a_read_has_failed = true;
    errno = EIO;
    return -1;
  }
  if (reads_allowed > 0) --reads_allowed;
  return syscall(SYS_read, file, bytes, size);
}

namespace morvantile {
namespace {

namespace fs = std::filesystem;
using testing::AnyOf;
using testing::HasSubstr;

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
  for (int round = 0; round < 40; ++round) {
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

// What an ordinary user, to whom more is forbidden than to root, reads from the file under the key
// "k", and the report after a Save of something else.
std::string ReadAndSavedByAUser(const Ref<FolderItem>& file) {
  std::array<int, 2> ends{};
  EXPECT_EQ(pipe(ends.data()), 0);
  const pid_t child = fork();
  if (child == 0) {
    if (getuid() == 0 && setuid(65534) != 0) _exit(2);
    const Ref<plist> document = New<plist>(file, false);
    const std::string read = document->root->GetString("k", "nothing");
    document->root->SetString("k", "other");
    document->Save();
    const std::string outcome = read + ", " + Report(document);
    _exit(write(ends[1], outcome.data(), outcome.size()) > 0 ? 0 : 1);
  }
  close(ends[1]);
  std::string outcome(500, ' ');
  outcome.resize(
      static_cast<std::size_t>(std::max(read(ends[0], outcome.data(), 500), ssize_t{0})));
  close(ends[0]);
  waitpid(child, nullptr, 0);
  return outcome;
}

TEST_F(Faults, WhatAUserMayNotReadOrWriteIsReadAsFarAsItMayAndStays) {
  const struct {
    int folder_mode;
    int mode;
    bool is_binary;
    const char* outcome;
  } cases[] = {
      {0777, 0444, false, "v, Could not open file for saving"},
      {0777, 0444, true, "v, Could not save file"},
      {0777, 0222, false, "nothing, Could not save file"},
      {0777, 0222, true, "nothing, Could not save file"},
      {0555, 0666, false, "v, Could not open file for saving"},
      {0555, 0666, true, "v, Could not save file"},
  };
  for (const auto& row : cases) {
    fs::create_directory(folder.Path("d"));
    const Ref<plist> document = New<plist>(folder.Item("d/a"), false);
    document->root->SetString("k", "v");
    document->Save(false, row.is_binary);
    const std::string before = folder.Content("d/a");
    chmod(folder.Path("d/a").c_str(), static_cast<mode_t>(row.mode));
    chmod(folder.Path("d").c_str(), static_cast<mode_t>(row.folder_mode));
    EXPECT_EQ(ReadAndSavedByAUser(folder.Item("d/a")), row.outcome) << std::oct << row.mode;
    chmod(folder.Path("d").c_str(), 0700);
    chmod(folder.Path("d/a").c_str(), 0600);
    EXPECT_EQ(folder.Content("d/a"), before);
    fs::remove_all(folder.Path("d"));
  }
}

TEST_F(Faults, AReadThatFailsHalfWayKeepsSaveFromTheFile) {
  for (const bool is_binary : {false, true}) {
    const Ref<plist> document = New<plist>(folder.Item("a"), false);
    for (int i = 0; i < 20'000; ++i) document->root->SetString(Str(i), "a text of some length");
    document->Save(false, is_binary);
    const std::string before = folder.Content("a");
    for (int allowed = 0;; ++allowed) {
      reads_allowed = allowed;
      const Ref<plist> part = New<plist>(folder.Item("a"), false);
      reads_allowed = -1;
      if (!std::exchange(a_read_has_failed, false)) break;
      part->error = false;
      part->Save(true, false);
      EXPECT_EQ(Report(part), "Could not save file") << allowed;
      ASSERT_TRUE(folder.Content("a") == before) << allowed;
    }
    fs::remove(folder.Path("a"));
  }
}

TEST_F(Faults, ABinaryFileKeepsWhatItIsBesidesItsContent) {
  const Ref<plist> made = New<plist>(folder.Item("target"), false);
  made->Save(false, true);
  chmod(folder.Path("target").c_str(), 0640);
  const bool may_give = chown(folder.Path("target").c_str(), 12, 34) == 0;
  fs::create_symlink("target", folder.Path("link"));
  const Ref<plist> document = New<plist>(folder.Item("link"), false);
  document->root->SetString("k", "v");
  document->Save(true, false);
  EXPECT_TRUE(fs::is_symlink(folder.Path("link")));
  EXPECT_EQ(New<plist>(folder.Item("target"), false)->root->GetString("k"), "v");
  struct stat status {};
  ASSERT_EQ(stat(folder.Path("target").c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0640U);
  EXPECT_TRUE(!may_give || (status.st_uid == 12U && status.st_gid == 34U));
}

TEST_F(Faults, AnotherFileLoadedLaterLeavesTheBinaryOneAlone) {
  const Ref<plist> document = New<plist>(folder.Item("binary"), false);
  document->Save(false, true);
  const std::string before = folder.Content("binary");
  document->Load(folder.Item("binary"), nullptr);
  document->Cleanup();
  folder.Put("text", "<plist>\n<dict>\n<key>k</key>\n<string>v</string>\n</dict>\n</plist>\n");
  document->Load(folder.Item("text"), nullptr);
  document->Save(true, false);
  EXPECT_EQ(folder.Content("binary"), before);
  EXPECT_THAT(folder.Content("text"), HasSubstr("<string>v</string>"));
}

}  // namespace
}  // namespace morvantile
