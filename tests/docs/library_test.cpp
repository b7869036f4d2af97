#include "library.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/platform/files/scratch_folder.h"

namespace {

using testing::ElementsAre;

class Library : public testing::Test {
 protected:
  morvantile::ScratchFolder folder_;
  std::string path_ = folder_.Path("settings.plist");
};

TEST_F(Library, TheSamplesDoWhatTheTextSays) {
  auto settings = OpenSettings(path_);
  EXPECT_EQ(ZoomOf(settings), 1.5);
  RememberProxy(settings);
  AddRecentFile(settings, "a.txt");
  AddRecentFile(settings, "b.txt");
  EXPECT_THAT(RecentFiles(settings), ElementsAre("a.txt", "b.txt"));
  EXPECT_EQ(LastBackup(settings), "1.3.");
  EXPECT_THAT(KeysWith(settings, "PROXY"), ElementsAre(":root:network:proxy:host"));
  RetireProxy(settings);
  EXPECT_EQ(SaveOrExplain(settings, true), "saved");
  EXPECT_TRUE(folder_.Content("settings.plist").starts_with("bplist"));

  settings = OpenSettings(path_);
  EXPECT_EQ(settings->root->child("old proxy")->GetInteger("port"), 3128);
  EXPECT_TRUE(settings->root->child("backup")->child("proxy")->GetBoolean("enabled", false));
  EXPECT_FALSE(settings->root->child("network")->Exists("proxy"));
  EXPECT_EQ(settings->root->GetReal("zoom"), 1.5);
  AddRecentFile(settings, "c.txt");
  EXPECT_EQ(SaveOrExplain(settings, false), "saved");
  settings->Cleanup();
  EXPECT_TRUE(folder_.Content("settings.plist").starts_with("bplist")) << "a binary file stays one";
  EXPECT_THAT(RecentFiles(OpenSettings(path_)), ElementsAre("a.txt", "b.txt", "c.txt"));
  const auto elsewhere = OpenSettings(folder_.Path("missing/settings.plist"));
  EXPECT_EQ(SaveOrExplain(elsewhere, false), "Could not open file for saving");
}

}  // namespace
