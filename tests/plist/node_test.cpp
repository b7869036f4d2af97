#include "tests/plist/rows.h"

namespace morvantile {
namespace {

TEST(Child, IsCreatedOnceWhereNoKeyIsWhateverTheCase) {
  CheckRows({
      {"{}", [](N n) { return n.child("Größe")->child("b"); }, "node {Größe: {b: {}}}"},
      {"{Größe: {}}", [](N n) { return n.child("GRÖßE") == n.children[1]; }, "true ="},
      {"{k: 'v'}", [](N n) { return n.child("k"); }, "nil = Child exists: k already exists"},
      {"{a: {x: '1'}}", [](N n) { n.AddChild("A"); }, "= Child exists: A already exists"},
      {"{a: {}}", [](N n) { return n.AddArray("a"); }, "false = Array exists: a already exists"},
      {"{} earlier", [](N n) { return n.AddArray("b"); }, "true {b: []}"},
      {"{}", [](N n) { return n.child("b") && n.searched.Value("b"); }, "false {b: {}}"},
      {"{c: {}}", [](N n) { return n.child("c")->CheckArray(); }, "false = c is not an array"},
      {"['x', {}]", [](N n) { return n.index(0); }, "nil ="},
      {"['x', {}]", [](N n) { return n.index(1) == n.children[1]; }, "true ="},
  });
}

TEST(Child, IsFoundAmongNodesAddedToTheArraysAndTheFirstOfItsName) {
  const Ref<plist> document = Tree("{a: {}}");
  plistDict& node = *document->root;
  for (const char* name : {"stray", "Stray", "a"}) {
    node.childrenNames.push_back(name);
    node.children.push_back(New<plistDict>());
  }
  const Ref<plistDict> repeated = node.children[4];
  EXPECT_TRUE(node.child("STRAY") == node.children[2] && node.child("a") == node.children[1]);
  node.Remove("a", true);
  EXPECT_TRUE(node.child("a") == repeated);
  node.childrenNames.pop_back();
  node.children.pop_back();
  EXPECT_TRUE(node.child("stray") == node.children[1]);
  EXPECT_EQ(Sketch(*node.child("a")), "{}") << "made anew";
}

TEST(Types, AreCheckedAndReported) {
  CheckRows({
      {"{}", [](N n) { return n.GetType("a"); }, "key not found: a: ="},
      {"{}", [](N n) { return n.TypeOK("a"); }, "key not found: a: ="},
      {"{s: ''} earlier", [](N n) { return n.TypeOK("s"); }, "true = earlier"},
      {"{s: {}}", [](N n) { return n.TypeOK("s"); }, "false = Illegal Type: s is a dict"},
      {"{s: ''} earlier", [](N n) { return n.CheckType("x", "date"); }, "2 ="},
      {"{s: ''} earlier", [](N n) { return n.CheckType("S", "STRING"); }, "1 ="},
      {"{s: ''}", [](N n) { return n.CheckType("s", "date"); }, "0 = Type Mismatch: s is a string"},
      {"[] earlier", [](N n) { return n.CheckArray(); }, "true ="},
      {"{}", [](N n) { return New<plistDict>()->CheckArray() || n.Exists(""); }, "false ="},
      {"['x', 'y']", [](N n) { return n.Exists("01") || n.Exists("2"); }, "false ="},
      {"{a: 'x'} a report", [](N n) { return n.rootClass->Find("nowhere"); }, "false ="},
  });
}

// The keys where the cursor is after each move (First, Next, Previous, Last, or Behind all), with a
// "!" where eof was set before the key was asked for.
std::string Places(plistDict& node, const std::string& moves) {
  std::string places;
  for (const char move : moves) {
    if (move == 'F') node.MoveFirst();
    if (move == 'N') node.MoveNext();
    if (move == 'P') node.MovePrevious();
    if (move == 'L') node.MoveLast();
    if (move == 'B') node.currentIndex = node.count();
    const std::string end = node.eof ? "! " : " ";
    places += node.CurrentKey() + end;
  }
  return places;
}

TEST(Cursor, WrapsAtBothEndsAndOnlyMoveFirstClearsEof) {
  CheckRows({
      {"{b: '', a: {}, c: ''}", [](N n) { return Places(n, "FNNLNNLFP"); },
       "'b a c c b! a! c! b c! ' ="},
      {"{b: '', a: {}, c: ''}", [](N n) { return Places(n, "BNP"); }, "' a! b! ' ="},
      {"{}", [](N n) { return Places(n, "FLFNP"); }, "' !  ! ! ' ="},
  });
}

TEST(AbsolutePath, NamesTheNodesFromTheRoot) {
  CheckRows({
      {"{Root: {b: {}}}", [](N n) { return n.child("Root")->child("b")->AbsolutePath(); },
       "':root:b' ="},
      {"{}", [](N n) { return n.AbsolutePath() + n.AbsolutePath() + n.path; },
       "':root:root:root' ="},
  });
}

TEST(Tree, IsReleasedApartFromWhatOthersHold) {
  Ref<plist> document = Tree("{a: {b: {c: {k: 'v'}}}, other: {x: {}}}");
  const Ref<plistDict> b = document->root->child("a")->child("b");
  document = nullptr;
  EXPECT_TRUE(b->parent == nullptr && b->rootClass == nullptr);
  EXPECT_EQ(b->AbsolutePath() + Sketch(*b), ":b{c: {k: 'v'}}");
}

// Whatever could recurse.
TEST(Tree, OfVeryManyLevelsIsReadSearchedCopiedAndReleased) {
  constexpr int kLevels = 200'000;
  std::string text;
  for (int i = 0; i < kLevels; ++i) text += "<key>k</key>|<dict>|";
  text += "<key>deep</key>|<true/>|";
  for (int i = 0; i < kLevels; ++i) text += "</dict>|";
  const Ref<plist> document = Read(text + "<key>to</key>|<dict/>");
  document->root->Copy("k", document->root->child("to"));
  ASSERT_TRUE(document->Find("true") && document->FindNext("true"));
  EXPECT_EQ(document->foundDict->AbsolutePath().size(), 8U + 2U * kLevels);
}

}  // namespace
}  // namespace morvantile
