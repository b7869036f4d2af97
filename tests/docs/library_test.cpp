#include "library.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/platform/files/scratch_folder.h"

namespace {

using testing::ElementsAre;

TEST(Library, TheSamplesDoWhatTheTextSays) {
  const morvantile::ScratchFolder folder;
  auto settings = OpenSettings(folder.Path("settings.plist"));
  EXPECT_EQ(ZoomOf(settings), 1.5);
  RememberProxy(settings);
  AddRecentFile(settings, "a.txt");
  EXPECT_EQ(LastBackup(settings), "1.3.");
  EXPECT_THAT(KeysWith(settings, "PROXY"), ElementsAre(":root:network:proxy:host"));
  RetireProxy(settings);
  EXPECT_EQ(SaveOrExplain(settings, true), "saved");

  settings = OpenSettings(folder.Path("settings.plist"));
  EXPECT_EQ(settings->root->child("old proxy")->GetInteger("port"), 3128);
  EXPECT_TRUE(settings->root->child("backup")->child("proxy")->GetBoolean("enabled", false));
  EXPECT_FALSE(settings->root->child("network")->Exists("proxy"));
  AddRecentFile(settings, "b.txt");
  EXPECT_THAT(RecentFiles(settings), ElementsAre("a.txt", "b.txt"));
  EXPECT_EQ(SaveOrExplain(settings, false), "saved");
  EXPECT_TRUE(folder.Content("settings.plist").starts_with("bplist")) << "a binary file stays one";
  settings = OpenSettings(folder.Path("missing/settings.plist"));
  EXPECT_EQ(SaveOrExplain(settings, false), "Could not open file for saving");
}

}  // namespace
