#include "platform/files/folder_item.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "platform/files/binary_stream.h"
#include "platform/process/shell.h"
#include "tests/platform/files/scratch_folder.h"

namespace morvantile {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

class Environment {
 public:
  Environment(const char* name, const char* value) : name_(name) {
    if (const char* old = std::getenv(name)) old_ = old;
    setenv(name, value, 1);
  }
  ~Environment() { old_ ? setenv(name_, old_->c_str(), 1) : unsetenv(name_); }
  Environment(const Environment&) = delete;
  Environment& operator=(const Environment&) = delete;

 private:
  const char* name_;
  std::optional<std::string> old_;
};

TEST(FolderItem, TakesAPathApartAndTogether) {
  const FolderItem item("/a/b c");
  EXPECT_EQ(item.Name(), "b c");
  EXPECT_EQ(item.Parent()->AbsolutePath(), "/a");
  EXPECT_EQ(item.Parent()->Parent()->AbsolutePath(), "/");
  EXPECT_EQ(item.Parent()->Parent()->Parent(), nullptr);
  EXPECT_EQ(item.Parent()->Child("d")->AbsolutePath(), "/a/d");
  EXPECT_EQ(FolderItem("/").Child("d")->AbsolutePath(), "/d");
  EXPECT_EQ(FolderItem("/a//").AbsolutePath(), "/a");
  EXPECT_EQ(FolderItem("here").AbsolutePath(), (fs::current_path() / "here").string());
  EXPECT_EQ(FolderItem(FolderItem("/a")).AbsolutePath(), "/a");
}

TEST(FolderItem, APathThatIsEmptyOrHoldsANulNamesNothing) {
  const ScratchFolder folder;
  folder.Put("x", "kept");
  const std::vector<Ref<FolderItem>> items = {
      New<FolderItem>(""), folder.Item("x")->Parent()->Child(std::string_view("x\0y", 3))};
  for (const Ref<FolderItem>& item : items) {
    EXPECT_FALSE(item->Exists());
    EXPECT_FALSE(item->Delete());
    EXPECT_FALSE(item->CreateAsFolder());
    EXPECT_FALSE(item->CopyFileTo(folder.Item("copy")));
    EXPECT_FALSE(folder.Item("x")->CopyFileTo(item));
    EXPECT_EQ(item->CreateTextFile(), nullptr);
    EXPECT_EQ(item->Parent(), nullptr);
    EXPECT_EQ(item->Child("x")->AbsolutePath(), "");
    EXPECT_EQ(item->ShellPath(), "''");
  }
  EXPECT_THAT(folder.Names(), ElementsAre("x"));
}

TEST(FolderItem, ALinkToNothingDoesNotExist) {
  const ScratchFolder folder;
  fs::create_symlink("missing", folder.Path("link"));
  EXPECT_FALSE(folder.Item("link")->Exists());
  folder.Put("missing", "");
  EXPECT_TRUE(folder.Item("link")->Exists());
}

TEST(FolderItem, EveryNameComesThroughTheShell) {
  const ScratchFolder folder;
  std::string every_byte;
  for (int byte = 1; byte < 256; ++byte) {
    if (byte != '/') every_byte += static_cast<char>(byte);
  }
  const std::vector<std::string> names = {
      every_byte.substr(0, 127), every_byte.substr(127), "-rf", "--", "a b",   "'", "\"",
      "$(touch hacked)",         "`touch hacked`",       "\n",  "\\", "a\\'b", "*", "~",
      "ends in a line break\n"};
  for (const std::string& name : names) {
    folder.Put(name, "content of " + name);
    const Ref<FolderItem> copy = folder.Item("copy");
    Shell().Execute("cat " + folder.Item(name)->ShellPath() + " > " + copy->ShellPath());
    EXPECT_EQ(folder.Content("copy"), "content of " + name);
    ASSERT_TRUE(folder.Item(name)->Delete());
    ASSERT_TRUE(copy->Delete());
  }
  EXPECT_THAT(folder.Names(), IsEmpty());
}

TEST(FolderItem, ACopyIsAsPrivateAsItsSource) {
  const ScratchFolder folder;
  const Ref<FolderItem> source = folder.Put("source", "secret");
  fs::permissions(folder.Path("source"), fs::perms::owner_read | fs::perms::owner_write);
  folder.Put("target", "old");
  EXPECT_TRUE(source->CopyFileTo(folder.Item("target")));
  EXPECT_EQ(folder.Content("target"), "secret");
  EXPECT_EQ(folder.Permissions("target"), fs::perms::owner_read | fs::perms::owner_write);
  EXPECT_THAT(folder.Names(), ElementsAre("source", "target"));
}

TEST(FolderItem, ACopyReplacesALinkInsteadOfWritingThroughIt) {
  const ScratchFolder folder;
  folder.Put("victim", "precious");
  fs::create_symlink("victim", folder.Path("planted"));
  fs::create_symlink("nothing", folder.Path("planted too"));
  const Ref<FolderItem> source = folder.Put("source", "new");
  EXPECT_TRUE(source->CopyFileTo(folder.Item("planted")));
  EXPECT_TRUE(source->CopyFileTo(folder.Item("planted too")));
  EXPECT_EQ(folder.Content("victim"), "precious");
  EXPECT_EQ(folder.Content("planted"), "new");
  EXPECT_FALSE(fs::is_symlink(folder.Path("planted")));
  EXPECT_THAT(folder.Names(), ElementsAre("planted", "planted too", "source", "victim"));
}

TEST(FolderItem, ACopyThatFailsChangesNothing) {
  const ScratchFolder folder;
  folder.Put("target", "old");
  folder.Item("folder")->CreateAsFolder();
  ASSERT_EQ(mkfifo(folder.Path("pipe").c_str(), 0600), 0);
  for (const char* source : {"missing", "folder", "pipe"}) {
    EXPECT_FALSE(folder.Item(source)->CopyFileTo(folder.Item("target"))) << source;
  }
  EXPECT_FALSE(folder.Item("target")->CopyFileTo(folder.Item("folder")));
  EXPECT_FALSE(folder.Item("target")->CopyFileTo(folder.Item("missing/target")));
  EXPECT_THROW(static_cast<void>(folder.Item("target")->CopyFileTo(nullptr)), NilObjectException);
  EXPECT_EQ(folder.Content("target"), "old");
  EXPECT_THAT(folder.Names(), ElementsAre("folder", "pipe", "target"));
}

TEST(FolderItem, AFolderIsMadeWithThoseAboveItForTheUserAlone) {
  const ScratchFolder folder;
  EXPECT_TRUE(folder.Item("a/b/c")->CreateAsFolder());
  EXPECT_TRUE(folder.Item("a/b/c")->CreateAsFolder());
  EXPECT_EQ(folder.Permissions("a"), fs::perms::owner_all);
  EXPECT_EQ(folder.Permissions("a/b/c"), fs::perms::owner_all);
  folder.Put("file", "");
  EXPECT_FALSE(folder.Item("file")->CreateAsFolder());
  EXPECT_FALSE(folder.Item("file/below")->CreateAsFolder());
}

TEST(SpecialFolder, FollowsTheEnvironmentWhereItIsSound) {
  const Environment home("HOME", "/home/of/user");
  const Environment config("XDG_CONFIG_HOME", "/settings");
  EXPECT_EQ(SpecialFolder::ApplicationData()->AbsolutePath(), "/settings");
  for (const char* unsound : {"", "relative"}) {
    const Environment bad_config("XDG_CONFIG_HOME", unsound);
    EXPECT_EQ(SpecialFolder::ApplicationData()->AbsolutePath(), "/home/of/user/.config");
    const Environment bad_home("HOME", unsound);
    EXPECT_TRUE(SpecialFolder::ApplicationData()->AbsolutePath().starts_with('/'));
  }
}

TEST(TemporaryFolderItem, StandsInAPrivateFolderThatGoesWithTheFile) {
  const ScratchFolder folder;
  const Environment place("TMPDIR", folder.Path("").c_str());
  const Ref<FolderItem> item = GetTemporaryFolderItem();
  EXPECT_FALSE(item->Exists());
  ASSERT_EQ(folder.Names().size(), 1U);
  EXPECT_EQ(folder.Permissions(folder.Names()[0]), fs::perms::owner_all);
  EXPECT_NE(GetTemporaryFolderItem()->AbsolutePath(), item->AbsolutePath());

  const Ref<BinaryStream> stream = BinaryStream::Create(item, true);
  stream->Write("bytes");
  EXPECT_TRUE(stream->Close());
  const Ref<FolderItem> sibling = item->Parent()->Child(item->Name() + " temp.plist");
  EXPECT_TRUE(item->CopyFileTo(sibling));
  EXPECT_TRUE(item->Delete());
  EXPECT_TRUE(sibling->Exists());
  EXPECT_TRUE(sibling->Delete());
  EXPECT_THAT(folder.Names(), IsEmpty());
}

TEST(TemporaryFolderItem, ComesBackWhenWrittenAgainAndGoesWithItsLastReference) {
  const ScratchFolder folder;
  const Environment place("TMPDIR", folder.Path("").c_str());
  Ref<FolderItem> item = GetTemporaryFolderItem();
  item->Delete();
  EXPECT_THAT(folder.Names(), IsEmpty());
  EXPECT_TRUE(item->CreateTextFile()->Close());
  EXPECT_TRUE(item->Exists());
  EXPECT_EQ(folder.Permissions(folder.Names()[0]), fs::perms::owner_all);
  item = nullptr;
  EXPECT_THAT(folder.Names(), IsEmpty());
}

TEST(TemporaryFolderItem, IsNilWhereNoFolderCanBeMade) {
  const Environment place("TMPDIR", "/nowhere at all");
  EXPECT_EQ(GetTemporaryFolderItem(), nullptr);
}

}  // namespace
}  // namespace morvantile
