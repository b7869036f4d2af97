#include "platform/ui/headless_host.h"
#include "tests/plist/rows.h"

namespace morvantile {
namespace {

TEST(Child, IsCreatedOnceWhereNoKeyIsWhateverTheCase) {
  Check({
      {"{}", [](N n) { return n.child("Größe")->child("b"); }, "node {Größe: {b: {}}}"},
      {"{Größe: {}}", [](N n) { return n.child("GRÖßE") == n.children[1]; }, "true ="},
      {"{k: 'v'}", [](N n) { return n.child("k"); }, "nil = Child exists: k already exists"},
      {"{a: {x: '1'}}", [](N n) { n.AddChild("A"); }, "= Child exists: A already exists"},
      {"{a: {}}", [](N n) { return n.AddArray("a"); }, "false = Array exists: a already exists"},
      {"{} earlier", [](N n) { return n.AddArray("b"); }, "true {b: []}"},
      {"{} earlier", [](N n) { n.AddChild("b"); }, "{b: {}}"},
      {"{}", [](N n) { return n.child("a") && n.searched.Value("a"); }, "false {a: {}}"},
      {"['x', {}]", [](N n) { return n.index(0); }, "nil ="},
      {"['x', {}]", [](N n) { return n.index(1) == n.children[1]; }, "true ="},
      {"{c: {}}", [](N n) { return n.child("c")->CheckArray(); }, "false = c is not an array"},
      {"{}", [](N n) { return n.Exists(""); }, "false ="},
  });
}

TEST(Child, FindsWhatWasAddedToTheArraysDirectlyAndTheFirstOfRepeatedNames) {
  const Ref<plist> document = Tree("{a: {}}");
  plistDict& node = *document->root;
  for (const char* name : {"stray", "Stray", "a"}) {
    node.childrenNames.push_back(name);
    node.children.push_back(New<plistDict>());
  }
  EXPECT_TRUE(node.child("STRAY") == node.children[2]);
  EXPECT_TRUE(node.child("a") == node.children[1]);
  const Ref<plistDict> repeated = node.children[4];
  node.Remove("a", true);
  EXPECT_TRUE(node.child("a") == repeated);
  EXPECT_EQ(Sketch(node), "{}");
}

TEST(Types, AreCheckedAndReported) {
  Check({
      {"{}", [](N n) { return n.GetType("a"); }, "key not found: a: ="},
      {"{}", [](N n) { return n.TypeOK("a"); }, "key not found: a: ="},
      {"{s: ''} earlier", [](N n) { return n.TypeOK("s"); }, "true = earlier"},
      {"{s: {}} earlier", [](N n) { return n.TypeOK("s"); }, "false = Illegal Type: s is a dict"},
      {"{s: ''} earlier", [](N n) { return n.CheckType("x", "date"); }, "2 ="},
      {"{s: ''} earlier", [](N n) { return n.CheckType("S", "STRING"); }, "1 ="},
      {"{s: ''}", [](N n) { return n.CheckType("s", "date"); }, "0 = Type Mismatch: s is a string"},
      {"{}", [](N n) { return n.CheckArray(); }, "false = root is not an array"},
      {"[] earlier", [](N n) { return n.CheckArray(); }, "true ="},
  });
}

TEST(Report, GoesNowhereWithoutADocument) {
  const Ref<plistDict> node = New<plistDict>();
  EXPECT_TRUE(node->child("a")->rootClass == nullptr);
  EXPECT_FALSE(node->CheckArray() || node->TypeOK("a"));
}

TEST(Report, IsShownWhenDebugIsOn) {
  HeadlessHost host;
  InstallHost(&host);
  const Ref<plist> document = Tree("{a: 'x'}");
  document->debug = true;
  EXPECT_FALSE(document->root->CheckArray());
  document->root->SetInteger("a", 1);
  const std::vector<std::string> reports = {"root is not an array", "Type Mismatch: a is a string"};
  EXPECT_EQ(host.messages, reports);
  InstallHost(nullptr);
}

TEST(Tree, IsReleasedApartFromWhatOthersHold) {
  Ref<plist> document = Tree("{a: {b: {c: {k: 'v'}}}, other: {x: {y: {}}}}");
  const Ref<plistDict> b = document->root->child("a")->child("b");
  document = nullptr;
  EXPECT_TRUE(b->parent == nullptr && b->rootClass == nullptr);
  EXPECT_EQ(b->AbsolutePath() + Sketch(*b), ":b{c: {k: 'v'}}");
}

// Whatever could recurse.
TEST(Tree, OfVeryManyLevelsIsReadWrittenSearchedCopiedAndReleased) {
  constexpr int kLevels = 200'000;
  std::string text;
  for (int i = 0; i < kLevels; ++i) text += "<key>k</key>|<dict>|";
  text += "<key>deep</key>|<true/>|";
  for (int i = 0; i < kLevels; ++i) text += "</dict>|";
  const Ref<plist> document = Read(text + "<key>to</key>|<dict/>");
  document->root->Copy("k", document->root->child("to"));
  ASSERT_TRUE(document->Find("true"));
  EXPECT_EQ(document->foundDict->AbsolutePath().size(), 5U + 2U * kLevels);
  ASSERT_TRUE(document->FindNext("true"));
  EXPECT_EQ(document->foundDict->AbsolutePath().size(), 8U + 2U * kLevels);
}

}  // namespace
}  // namespace morvantile
