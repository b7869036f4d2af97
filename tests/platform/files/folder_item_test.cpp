#include "platform/files/folder_item.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
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

TEST(FolderItem, TakesAPathApartAndTogether) {
  const FolderItem item("/a/b c");
  EXPECT_EQ(item.Name(), "b c");
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
  for (const Ref<FolderItem>& item :
       {New<FolderItem>(""), folder.Item("x")->Parent()->Child(std::string_view("x\0y", 3))}) {
    EXPECT_FALSE(item->Exists() || item->Delete() || item->CreateAsFolder());
    EXPECT_FALSE(item->CopyFileTo(folder.Item("copy")) || folder.Item("x")->CopyFileTo(item));
    EXPECT_EQ(item->CreateTextFile(), nullptr);
    EXPECT_EQ(item->Parent(), nullptr);
    EXPECT_EQ(item->Child("x")->AbsolutePath() + item->ShellPath(), "''");
  }
  EXPECT_THAT(folder.Names(), ElementsAre("x"));
}

TEST(FolderItem, EveryNameComesThroughTheShell) {
  const ScratchFolder folder;
  std::string names = "$(touch hacked)\n";
  for (int byte = 1; byte < 256; ++byte) names += static_cast<char>(byte == '/' ? '-' : byte);
  for (const std::string& name : {names.substr(0, 140), "-" + names.substr(140)}) {
    const Ref<FolderItem> file = folder.Put(name, "content of " + name);
    Shell().Execute("cat " + file->ShellPath() + " > " + folder.Item("copy")->ShellPath());
    EXPECT_EQ(folder.Content("copy"), "content of " + name);
    EXPECT_TRUE(file->Delete());
    EXPECT_THAT(folder.Names(), ElementsAre("copy"));
  }
}

TEST(FolderItem, ACopyHasThePermissionsOfItsSourceAndReplacesALinkInsteadOfWritingThroughIt) {
  constexpr auto kMode = static_cast<fs::perms>(0640);
  const ScratchFolder folder;
  const Ref<FolderItem> source = folder.Put("source", "new");
  fs::permissions(folder.Path("source"), kMode);
  folder.Put("file", "old");
  folder.Put("victim", "precious");
  fs::create_symlink("victim", folder.Path("link"));
  fs::create_symlink("nothing", folder.Path("link to nothing"));
  EXPECT_FALSE(folder.Item("link to nothing")->Exists());
  for (const char* target : {"file", "link", "link to nothing"}) {
    EXPECT_TRUE(source->CopyFileTo(folder.Item(target)));
    EXPECT_EQ(folder.Content(target), "new");
    EXPECT_EQ(fs::symlink_status(folder.Path(target)).permissions(), kMode);
  }
  EXPECT_EQ(folder.Content("victim"), "precious");
  EXPECT_THAT(folder.Names(), ElementsAre("file", "link", "link to nothing", "source", "victim"));
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
  setenv("HOME", "/home/of/user", 1);
  setenv("XDG_CONFIG_HOME", "/settings", 1);
  EXPECT_EQ(SpecialFolder::ApplicationData()->AbsolutePath(), "/settings");
  for (const char* unsound : {"", "relative"}) {
    setenv("HOME", "/home/of/user", 1);
    setenv("XDG_CONFIG_HOME", unsound, 1);
    EXPECT_EQ(SpecialFolder::ApplicationData()->AbsolutePath(), "/home/of/user/.config");
    setenv("HOME", unsound, 1);
    EXPECT_TRUE(SpecialFolder::ApplicationData()->AbsolutePath().starts_with('/'));
  }
}

TEST(TemporaryFolderItem, IsInAPrivateFolderThatGoesWithTheLastFile) {
  const ScratchFolder folder;
  setenv("TMPDIR", "/nowhere at all", 1);
  EXPECT_EQ(GetTemporaryFolderItem(), nullptr);
  setenv("TMPDIR", folder.Path("").c_str(), 1);
  Ref<FolderItem> item = GetTemporaryFolderItem();
  EXPECT_FALSE(item->Exists());
  EXPECT_NE(GetTemporaryFolderItem()->AbsolutePath(), item->AbsolutePath());
  for (const bool deleted : {true, false}) {
    EXPECT_TRUE(BinaryStream::Create(item, true)->Close());
    EXPECT_THAT(folder.Names(), ElementsAre(item->Parent()->Name()));
    EXPECT_EQ(folder.Permissions(item->Parent()->Name()), fs::perms::owner_all);
    const Ref<FolderItem> sibling = item->Parent()->Child(item->Name() + " temp.plist");
    EXPECT_TRUE(item->CopyFileTo(sibling) && item->Delete() && sibling->Exists());
    EXPECT_TRUE(!deleted || (sibling->Delete() && folder.Names().empty()));
  }
  item = nullptr;
  EXPECT_THAT(folder.Names(), IsEmpty()) << "with the last reference";
  unsetenv("TMPDIR");
}

}  // namespace
}  // namespace morvantile
