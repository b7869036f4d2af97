#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <iterator>
#include <new>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "platform/files/binary_stream.h"
#include "platform/files/folder_item.h"
#include "platform/files/text_input_stream.h"
#include "platform/files/text_output_stream.h"
#include "platform/process/shell.h"
#include "tests/platform/files/scratch_folder.h"

namespace {

thread_local int allocations_allowed = -1;  // before one fails; negative: none does

}  // namespace

void* operator new(std::size_t size) {
  if (allocations_allowed >= 0 && allocations_allowed-- == 0) throw std::bad_alloc();
  void* const memory = std::malloc(size);
  return memory != nullptr ? memory : throw std::bad_alloc();
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

namespace morvantile {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr fs::perms kPrivate = fs::perms::owner_read | fs::perms::owner_write;

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

[[noreturn]] void WriteForEver(const Ref<FolderItem>& file, const std::vector<std::string>& texts) {
  for (std::size_t i = 1;; ++i) WriteText(file, texts[i % texts.size()]);
}

// Takes the rights of root away, for as long as it lives.
class OrdinaryUser {
 public:
  OrdinaryUser() {
    if (was_root_) (void)!seteuid(65534);
  }
  ~OrdinaryUser() {
    if (was_root_) (void)!seteuid(0);
  }
  OrdinaryUser(const OrdinaryUser&) = delete;
  OrdinaryUser& operator=(const OrdinaryUser&) = delete;

 private:
  bool was_root_ = geteuid() == 0;
};

TEST(TextInputStream, EndsLinesAtAnyLineEnd) {
  const ScratchFolder folder;
  EXPECT_THAT(LinesOf(folder.Put("a", "one\ntwo\r\nthree\rfour")),
              ElementsAre("one", "two", "three", "four"));
  EXPECT_THAT(LinesOf(folder.Put("b", "\n\r\n\r\r\nx\r")), ElementsAre("", "", "", "", "x"));
  EXPECT_THAT(LinesOf(folder.Put("c", "")), IsEmpty());
  EXPECT_THAT(LinesOf(folder.Put("d", "\xff\xfe not UTF-8\n")), ElementsAre("\xff\xfe not UTF-8"));
  EXPECT_THAT(LinesOf(folder.Put("e", std::string("a\0b\n", 4))),
              ElementsAre(std::string("a\0b", 3)));
}

TEST(TextInputStream, FindsLineEndsWhereverItsBufferEnds) {
  const ScratchFolder folder;
  constexpr std::array kLineEnds = {"\n", "\r\n", "\r"};
  std::mt19937 random(1);
  for (int round = 0; round < 30; ++round) {
    std::vector<std::string> lines;
    std::string text;
    while (text.size() < 700'000) {
      const std::size_t length = 1 + (random() % 3 == 0 ? random() % 400'000 : random() % 20);
      lines.emplace_back(length, static_cast<char>('a' + random() % 26));
      text += lines.back() + kLineEnds[random() % kLineEnds.size()];
    }
    EXPECT_EQ(LinesOf(folder.Put("text", text)), lines);
  }
  for (std::size_t length = 262'140; length < 262'150; ++length) {
    const std::string line(length, 'x');
    EXPECT_THAT(LinesOf(folder.Put("text", line + "\r\nnext")), ElementsAre(line, "next"));
    EXPECT_THAT(LinesOf(folder.Put("text", line + "\r")), ElementsAre(line));
  }
}

TEST(TextInputStream, GivesTheRestAsItStands) {
  const ScratchFolder folder;
  const std::string rest = "b\r\nc\r" + std::string(600'000, 'd') + "\n";
  const Ref<TextInputStream> stream = TextInputStream::Open(folder.Put("a", "a\n" + rest));
  EXPECT_EQ(stream->ReadLine(), "a");
  EXPECT_EQ(stream->ReadAll(), rest);
  EXPECT_TRUE(stream->AtEOF());
  EXPECT_EQ(stream->ReadLine(), "");
}

TEST(TextInputStream, SurvivesAFileThatShrinks) {
  const ScratchFolder folder;
  const Ref<FolderItem> file = folder.Put("a", "first\n" + std::string(900'000, 'x'));
  const Ref<TextInputStream> stream = TextInputStream::Open(file);
  EXPECT_EQ(stream->ReadLine(), "first");
  fs::resize_file(file->AbsolutePath(), 10);
  EXPECT_LT(stream->ReadLine().size(), 900'000U);
  EXPECT_TRUE(stream->AtEOF());
}

TEST(TextInputStream, OpensRegularFilesAlone) {
  const ScratchFolder folder;
  ASSERT_EQ(mkfifo(folder.Path("pipe").c_str(), 0600), 0);
  folder.Item("folder")->CreateAsFolder();
  for (const char* name : {"pipe", "folder", "missing"}) {
    EXPECT_EQ(TextInputStream::Open(folder.Item(name)), nullptr) << name;
  }
  EXPECT_THROW(static_cast<void>(TextInputStream::Open(nullptr)), NilObjectException);
}

TEST(TextInputStream, IsAtItsEndAfterClose) {
  const ScratchFolder folder;
  for (const char* text : {"", "one", "one\ntwo\nthree", "one\rtwo\r\nthree\n"}) {
    const Ref<TextInputStream> stream = TextInputStream::Open(folder.Put("a", text));
    stream->ReadLine();
    stream->Close();
    EXPECT_EQ(stream->ReadLine(), "") << text;
    EXPECT_EQ(stream->ReadAll(), "") << text;
    EXPECT_TRUE(stream->AtEOF()) << text;
  }
}

TEST(Streams, NoDescriptorIsLeftOpenWhereMemoryRunsOut) {
  const ScratchFolder folder;
  const Ref<FolderItem> file = folder.Put("a", "text");
  setxattr(file->AbsolutePath().c_str(), "user.note", "a note of some length", 21, 0);
  const auto open_descriptors = [] {
    const fs::directory_iterator all("/proc/self/fd");
    return std::distance(begin(all), end(all));
  };
  const std::vector<std::function<void()>> operations = {
      [&] { TextInputStream::Open(file)->ReadAll(); },
      [&] { WriteText(file, "text"); },
      [&] { static_cast<void>(file->CopyFileTo(folder.Item("b"))); },
      [&] { Shell().Execute("echo text"); },
  };
  for (std::size_t i = 0; i < operations.size(); ++i) {
    const auto before = open_descriptors();
    bool has_failed = true;
    for (int allowed = 0; has_failed; ++allowed) {
      has_failed = false;
      allocations_allowed = allowed;
      try {
        operations[i]();
      } catch (const std::bad_alloc&) {
        has_failed = true;
      }
      allocations_allowed = -1;
      ASSERT_EQ(open_descriptors(), before) << "operation " << i << ", allocation " << allowed;
    }
  }
}

TEST(TextOutputStream, WritesPrivateFilesWithLineFeeds) {
  const ScratchFolder folder;
  const Ref<TextOutputStream> stream = folder.Item("new")->CreateTextFile();
  stream->WriteLine("one");
  stream->Write("tw");
  stream->WriteLine("o");
  const std::string large(3'000'000, 'x');
  stream->WriteLine(large);
  EXPECT_FALSE(folder.Item("new")->Exists());
  EXPECT_TRUE(stream->Close());
  EXPECT_TRUE(stream->Close());
  stream->WriteLine("too late");
  EXPECT_EQ(folder.Content("new"), "one\ntwo\n" + large + "\n");
  EXPECT_EQ(folder.Permissions("new"), kPrivate);
  EXPECT_THAT(folder.Names(), ElementsAre("new"));
}

TEST(TextOutputStream, WithoutCloseTheOldFileStays) {
  const ScratchFolder folder;
  const Ref<FolderItem> file = folder.Put("a", "old");
  Ref<TextOutputStream> stream = file->CreateTextFile();
  for (int i = 0; i < 15; ++i) stream->WriteLine(std::string(1'000'000, 'x'));
  EXPECT_EQ(folder.Content("a"), "old");
  stream = nullptr;
  EXPECT_EQ(folder.Content("a"), "old");
  EXPECT_THAT(folder.Names(), ElementsAre("a"));
}

TEST(TextOutputStream, ALargeTextComesThroughInOrder) {
  const ScratchFolder folder;
  std::string text;
  const Ref<TextOutputStream> stream = folder.Item("a")->CreateTextFile();
  for (std::size_t i = 0; i < 40; ++i) {
    const std::string line(i == 20 ? 5'000'000 : 100'000 + 1000 * i, "0123456789"[i % 10]);
    stream->WriteLine(line);
    text += line + "\n";
  }
  EXPECT_TRUE(stream->Close());
  EXPECT_TRUE(folder.Content("a") == text);
}

TEST(TextOutputStream, AFailedWriteLeavesTheOldFile) {
  const ScratchFolder folder;
  const Ref<FolderItem> file = folder.Put("a", "old");
  rlimit unlimited{};
  getrlimit(RLIMIT_FSIZE, &unlimited);
  std::signal(SIGXFSZ, SIG_IGN);
  for (const rlim_t most : {100'000UL, 3'000'000UL, 15'000'000UL, 29'900'000UL}) {
    const rlimit limited{most, unlimited.rlim_max};
    const Ref<TextOutputStream> stream = file->CreateTextFile();
    setrlimit(RLIMIT_FSIZE, &limited);
    for (int i = 0; i < 30; ++i) stream->WriteLine(std::string(1'000'000, 'x'));
    const bool written = stream->Close();
    setrlimit(RLIMIT_FSIZE, &unlimited);
    EXPECT_FALSE(written) << most;
    EXPECT_EQ(folder.Content("a"), "old");
    EXPECT_THAT(folder.Names(), ElementsAre("a"));
  }
}

TEST(TextOutputStream, ALinkStaysALink) {
  const ScratchFolder folder;
  folder.Put("target", "old");
  folder.Item("sub")->CreateAsFolder();
  fs::create_symlink("../target", folder.Path("sub/link"));
  fs::create_symlink("sub/link", folder.Path("link"));
  EXPECT_TRUE(WriteText(folder.Item("link"), "new"));
  EXPECT_EQ(folder.Content("target"), "new");
  EXPECT_TRUE(fs::is_symlink(folder.Path("link")));
  EXPECT_TRUE(fs::is_symlink(folder.Path("sub/link")));

  fs::create_symlink(folder.Path("made"), folder.Path("to nothing"));
  EXPECT_TRUE(WriteText(folder.Item("to nothing"), "new"));
  EXPECT_EQ(folder.Content("made"), "new");

  fs::create_symlink("circle", folder.Path("circle"));
  EXPECT_EQ(folder.Item("circle")->CreateTextFile(), nullptr);
}

TEST(TextOutputStream, PermissionsAndAttributesStay) {
  const ScratchFolder folder;
  const Ref<FolderItem> file = folder.Put("a", "old");
  const fs::perms mode = kPrivate | fs::perms::group_read | fs::perms::others_read;
  fs::permissions(file->AbsolutePath(), mode);
  const bool has_attributes =
      setxattr(file->AbsolutePath().c_str(), "user.note", "mine", 4, 0) == 0;
  EXPECT_TRUE(WriteText(file, "new"));
  EXPECT_EQ(folder.Permissions("a"), mode);
  if (has_attributes) {
    std::string value(8, '\0');
    EXPECT_EQ(getxattr(file->AbsolutePath().c_str(), "user.note", value.data(), value.size()), 4);
    EXPECT_EQ(value.substr(0, 4), "mine");
  }
}

TEST(TextOutputStream, TheOwnerStaysWhereTheSystemAllowsIt) {
  if (geteuid() != 0) GTEST_SKIP() << "only root may give files away";
  const ScratchFolder folder;
  const Ref<FolderItem> file = folder.Put("a", "old");
  ASSERT_EQ(chown(file->AbsolutePath().c_str(), 12, 34), 0);
  EXPECT_TRUE(WriteText(file, "new"));
  struct stat status {};
  ASSERT_EQ(stat(file->AbsolutePath().c_str(), &status), 0);
  EXPECT_EQ(status.st_uid, 12U);
  EXPECT_EQ(status.st_gid, 34U);

  // Another user may replace the file, but its group's rights must not go to that user's group.
  fs::permissions(file->AbsolutePath(), static_cast<fs::perms>(0666));
  fs::permissions(file->AbsolutePath(), fs::perms::others_write, fs::perm_options::remove);
  ASSERT_EQ(chown(file->AbsolutePath().c_str(), 65534, 34), 0);
  {
    const OrdinaryUser user;
    EXPECT_TRUE(WriteText(file, "newer"));
  }
  EXPECT_EQ(folder.Content("a"), "newer");
  EXPECT_EQ(folder.Permissions("a"), static_cast<fs::perms>(0644));
}

TEST(TextOutputStream, IsNilForWhatCannotBeWritten) {
  const ScratchFolder folder;
  folder.Item("folder")->CreateAsFolder();
  ASSERT_EQ(mkfifo(folder.Path("pipe").c_str(), 0666), 0);
  folder.Put("read-only", "old");
  fs::permissions(folder.Path("read-only"), static_cast<fs::perms>(0444));
  fs::create_directory(folder.Path("closed"));
  folder.Put("closed/file", "old");
  fs::permissions(folder.Path("closed/file"), static_cast<fs::perms>(0666));
  fs::permissions(folder.Path("closed"), static_cast<fs::perms>(0555));
  const OrdinaryUser user;
  for (const char* name : {"folder", "pipe", "read-only", "closed/file", "closed/new", "no/file"}) {
    EXPECT_EQ(folder.Item(name)->CreateTextFile(), nullptr) << name;
  }
  EXPECT_EQ(folder.Content("read-only"), "old");
  EXPECT_EQ(folder.Content("closed/file"), "old");
}

TEST(TextOutputStream, AKillLeavesTheOldFileOrTheNewOne) {
  const ScratchFolder folder;
  const Ref<FolderItem> file = folder.Item("a");
  const std::vector<std::string> texts = {std::string(300'000, 'a'), std::string(500'000, 'b')};
  ASSERT_TRUE(WriteText(file, texts[0]));
  std::mt19937 random(1);
  for (int round = 0; round < 40; ++round) {
    const pid_t writer = fork();
    if (writer == 0) WriteForEver(file, texts);
    std::this_thread::sleep_for(std::chrono::microseconds(500 + random() % 5000));
    kill(writer, SIGKILL);
    waitpid(writer, nullptr, 0);
    const std::string content = folder.Content("a");
    ASSERT_TRUE(content == texts[0] || content == texts[1]) << content.size();
  }
}

TEST(BinaryStream, OverwritesOnlyWhenAsked) {
  const ScratchFolder folder;
  const Ref<FolderItem> file = folder.Put("a", "old");
  EXPECT_EQ(BinaryStream::Create(file, false), nullptr);
  const Ref<BinaryStream> stream = BinaryStream::Create(file, true);
  stream->Write(std::string_view("\0\r\n\xff", 4));
  EXPECT_TRUE(stream->Close());
  EXPECT_EQ(folder.Content("a"), std::string("\0\r\n\xff", 4));
  EXPECT_THROW(static_cast<void>(BinaryStream::Create(nullptr, true)), NilObjectException);
}

}  // namespace
}  // namespace morvantile
