// Documents whose file or folder fails: what the user had stays, or what is new is there.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <filesystem>
#include <iostream>

#include "platform/text/text.h"
#include "tests/platform/files/scratch_folder.h"
#include "tests/plist/sketch.h"

namespace {

enum class Fault { kNone, kFailedRead, kFailedChange, kKill } fault = Fault::kNone;
int calls_before_fault = 0;

// A system call, or the fault if this is the call where the disk fails.
template <typename... Arguments>
int Call(bool reads, int number, Arguments... arguments) {
  const bool may_fail = fault != Fault::kNone && reads == (fault == Fault::kFailedRead);
  const bool fails = may_fail && calls_before_fault-- == 0;
  if (!fails) return static_cast<int>(syscall(number, arguments...));
  if (fault == Fault::kKill) raise(SIGKILL);
  errno = EIO;
  return -1;
}

}  // namespace

// In place of the C library's, so that a disk can fail.
// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name): its names are reserved
extern "C" ssize_t read(int file, void* bytes, std::size_t size) {
  return Call(true, SYS_read, file, bytes, size);
}
extern "C" ssize_t write(int file, const void* bytes, std::size_t size) {
  return Call(false, SYS_write, file, bytes, size);
}
extern "C" int fsync(int file) { return Call(false, SYS_fsync, file); }
extern "C" int rename(const char* from, const char* to) noexcept {
  return Call(false, SYS_rename, from, to);
}
// NOLINTEND(readability-inconsistent-declaration-parameter-name)

namespace morvantile {
namespace {

namespace fs = std::filesystem;

// In text form, and where the parameter is true in binary form.
class Faults : public testing::TestWithParam<bool> {
 protected:
  // A file of many values; returns its content.
  // NOLINTNEXTLINE(modernize-use-nodiscard): often only put
  std::string Put(const std::string& value) const {
    const Ref<plist> document = New<plist>(folder.Item("a"), false);
    for (int i = 0; i < 2000; ++i) document->root->SetString(Str(i), value);
    document->Save(false, GetParam());
    chmod(folder.Path("a").c_str(), 0640);
    return folder.Content("a");
  }

  ScratchFolder folder;
};

INSTANTIATE_TEST_SUITE_P(TextAndBinary, Faults, testing::Bool());

TEST_P(Faults, AKillOrFailureAtAnyChangeLeavesTheOldFileOrTheNewOne) {
  const std::string after = Put("new");
  fs::create_symlink("a", folder.Path("link"));
  const Ref<plist> document = New<plist>(folder.Item("link"), false);
  for (const Fault kind : {Fault::kKill, Fault::kFailedChange}) {
    const std::string before = Put("old");
    int status = -1;
    for (calls_before_fault = 0; status != 0; ++calls_before_fault) {
      ASSERT_LT(calls_before_fault, 100);
      const pid_t child = fork();
      if (child == 0) {
        fault = kind;
        document->Save();
        _exit(document->error ? 1 : 0);
      }
      waitpid(child, &status, 0);
      const std::string& expected = status == 0 ? after : before;
      ASSERT_THAT(folder.Content("a"), testing::AnyOf(after, expected)) << calls_before_fault;
      ASSERT_EQ(folder.Permissions("a"), static_cast<fs::perms>(0640)) << calls_before_fault;
      ASSERT_TRUE(fs::is_symlink(folder.Path("link"))) << calls_before_fault;
    }
  }
}

TEST_P(Faults, AReadThatFailsHalfWayKeepsSaveFromTheFile) {
  const std::string before = Put("a text of some length, so that it takes more than one read");
  for (int calls = 0;; ++calls) {
    fault = Fault::kFailedRead;
    calls_before_fault = calls;
    const Ref<plist> part = New<plist>(folder.Item("a"), false);
    fault = Fault::kNone;
    if (calls_before_fault >= 0) break;
    if (!part->error && part->root->count() == 2000) continue;  // a second copy was made
    part->error = false;
    part->Save(true, false);
    EXPECT_EQ(Report(part), "Could not save file") << "at call " << calls;
    ASSERT_TRUE(folder.Content("a") == before) << "at call " << calls;
  }
}

// Reads and saves as an ordinary user, to whom more is forbidden than to root; prints what was read
// under the key "0", and the report.
void ReadAndSaveAsAUser(const Ref<FolderItem>& file) {
  if (getuid() == 0 && setuid(65534) != 0) _exit(2);
  const Ref<plist> document = New<plist>(file, false);
  std::cerr << document->root->GetString("0", "nothing") << ", ";
  document->root->SetString("0", "other");
  document->Save();
  std::cerr << Report(document);
  _exit(0);
}

TEST_P(Faults, WhatAUserMayNotReadOrWriteIsReadAsFarAsItMayAndStays) {
  const char* const kept = GetParam() ? "^v, Could not save" : "^v, Could not open file for saving";
  const std::tuple<mode_t, mode_t, const char*> rows[] = {
      {0777, 0444, kept}, {0555, 0666, kept}, {0777, 0222, "^nothing, Could not save file"}};
  const std::string before = Put("v");
  for (const auto& [mode_of_folder, mode, outcome] : rows) {
    chmod(folder.Path("a").c_str(), mode);
    chmod(folder.Path("").c_str(), mode_of_folder);
    EXPECT_EXIT(ReadAndSaveAsAUser(folder.Item("a")), testing::ExitedWithCode(0), outcome);
    EXPECT_EQ(folder.Content("a"), before) << outcome;
    chmod(folder.Path("").c_str(), 0777);
  }
}

}  // namespace
}  // namespace morvantile
