// Which loops give other work its turns. What that changes meanwhile is tried by fuzz/load.cpp.

#include "platform/core/background.h"

#include "tests/installed_host.h"
#include "tests/plist/rows.h"

namespace morvantile {
namespace {

// How many turns there are meanwhile.
int TurnsOf(const std::function<void()>& work) {
  static int count = 0;
  count = 0;
  background_task = [] { ++count; };
  work();
  background_task = nullptr;
  return count;
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
