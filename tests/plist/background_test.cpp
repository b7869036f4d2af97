// Work that gets its turns while the library is in a long loop.

#include "platform/core/background.h"

#include "tests/installed_host.h"
#include "tests/platform/files/scratch_folder.h"
#include "tests/plist/rows.h"

namespace morvantile {
namespace {

int turn_count = 0;
Ref<plistDict> turned;

// How many turns there are meanwhile.
int TurnsOf(
    const std::function<void()>& work, BackgroundTask task = [] { ++turn_count; }) {
  turn_count = 0;
  background_task = task;
  work();
  background_task = nullptr;
  return turn_count;
}

TEST(BackgroundTurns, MayChangeTheTreeThatIsReadAndWritten) {
  const ScratchFolder folder;
  const Ref<TextInputStream> in = TextInputStream::Open(folder.Put(
      "a", Lines("<key>a</key>|<string>1</string>|<key>b</key>|<string>a text of more than 23 bytes"
                 "</string>|<key>c</key>|<array>|<dict>|<string>y|z</string>|</dict>|</array>|"
                 "<key>d</key><dict>|<true/>|</dict>|<key>f</key>|<true/>|</dict>|")));
  const Ref<TextOutputStream> out = folder.Item("b")->CreateTextFile();
  turned = New<plistDict>();
  const auto work = [&] {
    turned->Load(in.get(), "root", false, nullptr, nullptr, true);
    turned->Write(*out, 0);
  };
  const int turns = TurnsOf(work, [] {
    for (const char* key : {"a", "c", "d"}) turned->Remove(key, true);
    if (++turn_count < 100) turned->child("turn " + Str(turn_count))->AddChild("x");
  });
  const Ref<plistDict> root = std::exchange(turned, nullptr);
  EXPECT_EQ(root->GetString("b"), "a text of more than 23 bytes");
  EXPECT_TRUE(root->GetBoolean("f", false));
  EXPECT_EQ(root->count(), 2 + std::min(turns, 99));
  EXPECT_TRUE(out->Close());
}

TEST(BackgroundTurns, AreGivenByTheLoopsThatReadAndWriteAlone) {
  const InstalledHost host;
  const Ref<plist> document = Tree("{a: ['b'], copy: {}}");
  plistDict& root = *document->root;
  EXPECT_EQ(TurnsOf([&] { document->Find("b"); }), 0);
  EXPECT_EQ(TurnsOf([&] { root.Move("a", root.child("copy")); }), 0);
  EXPECT_EQ(TurnsOf([&] { (void)root.StripAll("\t \nx "); }), 3);
  const int of_tree = TurnsOf([&] { root.Dump(1); });
  EXPECT_EQ(TurnsOf([&] { document->Dump(); }), of_tree + 4) << "and one for each header line";
}

}  // namespace
}  // namespace morvantile
