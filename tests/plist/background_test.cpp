// Work that gets its turn_count while the library is in a long loop.

#include "platform/core/background.h"

#include <gtest/gtest.h>

#include <functional>
#include <utility>

#include "platform/text/text.h"
#include "platform/ui/headless_host.h"
#include "tests/platform/files/scratch_folder.h"
#include "tests/plist/sketch.h"

namespace morvantile {
namespace {

int turn_count = 0;
Ref<plistDict> turned;

// How many turn_count there are meanwhile.
int TurnsOf(
    const std::function<void()>& work, BackgroundTask task = [] { ++turn_count; }) {
  turn_count = 0;
  background_task = task;
  work();
  background_task = nullptr;
  return turn_count;
}

TEST(BackgroundTurns, MayChangeTheTreeThatIsRead) {
  const ScratchFolder folder;
  const Ref<FolderItem> file = folder.Put(
      "a",
      "<key>a</key>\n<string>one</string>\n<key>b</key>\n"
      "<string>a text that is longer than what an entry holds in itself</string>\n</string>\n"
      "<key>c</key>\n<array>\n<dict>\n<key>x</key>\n<string>y\nz</string>\n</dict>\n</array>\n"
      "<key>d</key><dict>\n<key>e</key>\n<true/>\n</dict>\n<key>f</key>\n<true/>\n</dict>\n");
  turned = New<plistDict>();
  const Ref<TextInputStream> stream = TextInputStream::Open(file);
  TurnsOf([&] { turned->Load(stream.get(), "root", false, nullptr, nullptr, true); },
          [] {
            for (const char* key : {"a", "c", "d"}) turned->Remove(key, true);
            if (++turn_count < 100) turned->SetInteger("turn " + Str(turn_count), turn_count);
          });
  const Ref<plistDict> root = std::exchange(turned, nullptr);
  EXPECT_EQ(root->GetString("b"), "a text that is longer than what an entry holds in itself");
  EXPECT_TRUE(root->GetBoolean("f", false));
  EXPECT_EQ(root->count(), 2 + std::min(turn_count, 99));
  EXPECT_EQ(root->children.size(), 1U);
}

TEST(BackgroundTurns, MayChangeTheTreeThatIsWritten) {
  turned = New<plistDict>();
  for (int i = 0; i < 20; ++i) turned->child("c" + Str(i))->child("d")->SetString("k", "v");
  const Ref<FolderItem> file = GetTemporaryFolderItem();
  const Ref<TextOutputStream> out = file->CreateTextFile();
  TurnsOf([&] { turned->Write(*out, 0); },
          [] {
            turned->Remove("c" + Str(turn_count++ % 20), true);
            turned->child("new" + Str(turn_count % 5))->Remove("x", true);
          });
  turned = nullptr;
  EXPECT_TRUE(out->Close());
}

TEST(BackgroundTurns, AreGivenByTheLoopsThatReadAndWriteAlone) {
  HeadlessHost host;
  InstallHost(&host);
  const Ref<plist> document = Read("<key>a</key>\n<array>\n<string>b</string>\n</array>");
  plistDict& root = *document->root;
  EXPECT_EQ(TurnsOf([&] { document->Find("b"); }), 0);
  EXPECT_EQ(TurnsOf([&] { root.Copy("a", root.child("copy")); }), 0);
  EXPECT_EQ(TurnsOf([&] { root.Move("a", root.child("copy")); }), 0);
  EXPECT_EQ(TurnsOf([&] { (void)root.StripAll("\t \nx "); }), 3);
  const int of_tree = TurnsOf([&] { root.Dump(1); });
  EXPECT_EQ(TurnsOf([&] { document->Dump(); }), of_tree + 2) << "a header line each";
  InstallHost(nullptr);
}

}  // namespace
}  // namespace morvantile
