#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <iterator>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include "platform/files/binary_stream.h"
#include "platform/files/folder_item.h"
#include "platform/files/text_input_stream.h"
#include "platform/files/text_output_stream.h"
#include "platform/process/shell.h"
#include "tests/platform/files/scratch_folder.h"

namespace {

// How many allocations, and calls of the file system, succeed until one fails, or all; -1 if none.
thread_local int until_allocation_fails = -1;
thread_local int until_call_fails = -1;
thread_local bool fault_stays = false;
thread_local bool has_failed = false;

bool Fails(int& until_fault) {
  if (until_fault < 0 || until_fault-- > 0) return false;
  if (fault_stays) until_fault = 0;
  errno = EIO;
  return has_failed = true;
}

bool CallFails() { return Fails(until_call_fails); }

}  // namespace

void* operator new(std::size_t size) {
  void* const memory = Fails(until_allocation_fails) ? nullptr : std::malloc(size);
  return memory != nullptr ? memory : throw std::bad_alloc();
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

// These take the place of the system's own in the whole program.
extern "C" {
ssize_t read(int fd, void* buf, size_t nbytes) {
  return CallFails() ? -1 : syscall(SYS_read, fd, buf, nbytes);
}
ssize_t write(int fd, const void* buf, size_t n) {  // in pieces, as the system may
  return CallFails() ? -1 : syscall(SYS_write, fd, buf, std::min(n, size_t{100'000}));
}
int fsync(int fd) { return CallFails() ? -1 : static_cast<int>(syscall(SYS_fsync, fd)); }
int linkat(int fromfd, const char* from, int tofd, const char* to, int flags) noexcept {
  return CallFails() ? -1 : static_cast<int>(syscall(SYS_linkat, fromfd, from, tofd, to, flags));
}
// NOLINTNEXTLINE(readability-inconsistent-declaration-parameter-name): its names are reserved
int rename(const char* from, const char* to) noexcept {
  return CallFails() ? -1 : static_cast<int>(syscall(SYS_rename, from, to));
}
}

namespace morvantile {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> LinesOf(const Ref<FolderItem>& file) {
  std::vector<std::string> lines;
  const Ref<TextInputStream> stream = TextInputStream::Open(file);
  while (!stream->AtEOF()) lines.push_back(stream->ReadLine());
  EXPECT_FALSE(stream->ReadError());
  return lines;
}

bool WriteText(const Ref<FolderItem>& file, std::string_view text) {
  const Ref<TextOutputStream> stream = file->CreateTextFile();
  stream->Write(text);
  return stream->Close();
}

// Does it without the rights of root, where this runs as root.
void AsOrdinaryUser(const std::function<void()>& act) {
  (void)!seteuid(65534);
  act();
  (void)!seteuid(0);
}

TEST(TextInputStream, EndsLinesAtAnyLineEndWhereverItsBufferEnds) {
  const ScratchFolder folder;
  EXPECT_THAT(LinesOf(folder.Put("a", "")), IsEmpty());
  const std::string last("a\0b", 3);
  const std::string text = "\xff\xfe\n\r\n\r\r\n" + last + "\r";
  for (const std::size_t buffers : {1U, 2U}) {
    for (std::size_t in_text = 0; in_text <= text.size(); ++in_text) {
      const std::string line(buffers * 262'144 - 2 - in_text, 'x');
      const Ref<FolderItem> file = folder.Put("a", std::string("\r\n").append(line).append(text));
      EXPECT_THAT(LinesOf(file), ElementsAre("", line + "\xff\xfe", "", "", "", last)) << in_text;
    }
  }
}

TEST(TextInputStream, ReadsTheRestAsItIsAndNothingAfterClose) {
  const ScratchFolder folder;
  for (const std::string& rest : {std::string(), "b\r\nc\r" + std::string(600'000, 'd') + "\n"}) {
    for (const bool closed : {false, true}) {
      const Ref<TextInputStream> stream = TextInputStream::Open(folder.Put("a", "a\n" + rest));
      EXPECT_EQ(stream->ReadLine(), "a");
      if (closed) stream->Close();
      EXPECT_EQ(stream->ReadAll(), closed ? "" : rest);
      EXPECT_EQ(stream->ReadLine(), "");
      EXPECT_TRUE(stream->AtEOF());
    }
  }
}

TEST(Streams, AFaultAtAnyMomentLeavesTheOldFileAndNoDescriptorOpen) {
  const ScratchFolder folder;
  const Ref<FolderItem> file = folder.Item("a");
  const std::string text(300'000, 'x');
  const Ref<FolderItem> source = folder.Put("source", text);
  setxattr(source->AbsolutePath().c_str(), "user.note", "a note of some length", 21, 0);
  const std::vector<std::function<bool()>> operations = {
      [&] { return source->CopyFileTo(file); },
      [&] {
        const Ref<TextInputStream> stream = TextInputStream::Open(source);
        const std::string read = stream->ReadAll();
        EXPECT_EQ(stream->ReadError(), has_failed);
        Shell shell;
        shell.Execute("echo text");
        return !stream->ReadError() && shell.Result() == "text\n" && WriteText(file, read);
      },
  };
  const auto open_descriptors = [] {
    return std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator());
  };
  const auto before = open_descriptors();
  for (int* const until_fault : {&until_call_fails, &until_allocation_fails}) {
    for (std::size_t i = 0; i < 2 * operations.size(); ++i) {
      fault_stays = i % 2 == 1;
      has_failed = true;
      for (int count = 0; has_failed; ++count) {
        folder.Put("a", "old");
        bool has_succeeded = has_failed = false;
        *until_fault = count;
        try {
          has_succeeded = operations[i / 2]();
        } catch (const std::bad_alloc&) {
        }
        *until_fault = -1;
        SCOPED_TRACE("operation " + std::to_string(i / 2) + ", fault " + std::to_string(count));
        ASSERT_TRUE(has_failed || has_succeeded);
        ASSERT_TRUE(folder.Content("a") == (has_succeeded ? text : "old"));
        ASSERT_EQ(folder.Names().size(), 2U);
        ASSERT_EQ(open_descriptors(), before);
      }
    }
  }
}

TEST(TextOutputStream, WritesAPrivateFileThatAppearsOnClose) {
  const ScratchFolder folder;
  const Ref<TextOutputStream> stream = folder.Item("new")->CreateTextFile();
  std::string text;
  for (const std::size_t length : {3U, 60'000U, 1'000'000U, 70'000U, 0U}) {
    const std::string half(length, static_cast<char>('a' + length % 11));
    stream->Write(half);
    stream->WriteLine(half);
    text += half + half + "\n";
  }
  EXPECT_FALSE(folder.Item("new")->Exists());
  EXPECT_TRUE(stream->Close());
  EXPECT_TRUE(stream->Close());
  stream->WriteLine("too late");
  EXPECT_TRUE(folder.Content("new") == text);
  EXPECT_EQ(folder.Permissions("new"), static_cast<fs::perms>(0600));
  EXPECT_THAT(folder.Names(), ElementsAre("new"));
}

TEST(TextOutputStream, ALinkStaysALink) {
  const ScratchFolder folder;
  folder.Item("sub")->CreateAsFolder();
  fs::create_symlink("../target", folder.Path("sub/link"));
  fs::create_symlink("sub/link", folder.Path("link"));
  for (const char* text : {"made", "replaced"}) {
    EXPECT_TRUE(WriteText(folder.Item("link"), text));
    EXPECT_EQ(folder.Content("target"), text);
    EXPECT_TRUE(fs::is_symlink(folder.Path("link")));
    EXPECT_TRUE(fs::is_symlink(folder.Path("sub/link")));
  }
  fs::create_symlink("circle", folder.Path("circle"));
  EXPECT_EQ(folder.Item("circle")->CreateTextFile(), nullptr);
}

TEST(TextOutputStream, OwnerPermissionsAndAttributesStayWhereTheSystemAllowsIt) {
  const ScratchFolder folder;
  const Ref<FolderItem> file = folder.Put("a", "old");
  const std::string path = file->AbsolutePath();
  const bool is_root = chown(path.c_str(), 12, 34) == 0;
  fs::permissions(path, static_cast<fs::perms>(0664));
  for (const std::string note : {"mine", ""}) {
    const bool is_kept = setxattr(path.c_str(), "user.note", note.data(), note.size(), 0) == 0;
    EXPECT_TRUE(WriteText(file, "new"));
    EXPECT_EQ(folder.Permissions("a"), static_cast<fs::perms>(0664));
    char value[9] = "";
    EXPECT_EQ(getxattr(path.c_str(), "user.note", value, 9), is_kept ? std::ssize(note) : -1);
    EXPECT_TRUE(!is_kept || value == note) << value;
  }
  if (!is_root) GTEST_SKIP() << "only root may give files away";
  struct stat status {};
  ASSERT_EQ(stat(path.c_str(), &status), 0);
  EXPECT_EQ(std::pair(status.st_uid, status.st_gid), std::pair(12U, 34U));

  // Another user may replace the file, but its group's rights must not go to that user's group.
  ASSERT_EQ(chown(path.c_str(), 65534, 34), 0);
  AsOrdinaryUser([&] { EXPECT_TRUE(WriteText(file, "newer")); });
  EXPECT_EQ(folder.Content("a"), "newer");
  EXPECT_EQ(folder.Permissions("a"), static_cast<fs::perms>(0644));
}

TEST(Streams, AreNilAndCopiesFailForWhatCannotBeReadOrWrittenWhichStays) {
  const ScratchFolder folder;
  const Ref<FolderItem> old = folder.Put("old", "old");
  fs::create_directories(folder.Path("folder/closed"));
  folder.Put("folder/closed/file", "old");
  ASSERT_EQ(mkfifo(folder.Path("pipe").c_str(), 0666), 0);
  for (const char* name : {"folder", "pipe", "missing"}) {
    EXPECT_EQ(TextInputStream::Open(folder.Item(name)), nullptr) << name;
    EXPECT_FALSE(folder.Item(name)->CopyFileTo(old)) << name;
  }
  for (const auto& [name, mode] :
       {std::pair{"old", 0444}, {"folder/closed/file", 0666}, {"folder/closed", 0555}}) {
    fs::permissions(folder.Path(name), static_cast<fs::perms>(mode));
  }
  AsOrdinaryUser([&] {
    for (const char* name :
         {"folder", "pipe", "old", "folder/closed/file", "folder/closed/new", "no/file"}) {
      EXPECT_EQ(folder.Item(name)->CreateTextFile(), nullptr) << name;
      EXPECT_FALSE(old->CopyFileTo(folder.Item(name))) << name;
    }
  });
  EXPECT_EQ(BinaryStream::Create(old, false), nullptr);
  EXPECT_THROW(static_cast<void>(TextInputStream::Open(nullptr)), NilObjectException);
  EXPECT_THROW(static_cast<void>(BinaryStream::Create(nullptr, true)), NilObjectException);
  EXPECT_THROW(static_cast<void>(old->CopyFileTo(nullptr)), NilObjectException);
  EXPECT_EQ(folder.Content("old") + folder.Content("folder/closed/file"), "oldold");
  EXPECT_THAT(folder.Names(), ElementsAre("folder", "old", "pipe"));
  fs::permissions(folder.Path("folder/closed"), fs::perms::owner_all);
}

}  // namespace
}  // namespace morvantile
