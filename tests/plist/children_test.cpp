#include <gtest/gtest.h>

#include "platform/text/text.h"
#include "platform/ui/headless_host.h"
#include "tests/plist/sketch.h"

namespace morvantile {
namespace {

TEST(Node, IsEmptyWhenNew) {
  const Ref<plistDict> node = New<plistDict>();
  EXPECT_EQ(node->count(), 0);
  EXPECT_FALSE(node->Exists(""));
  EXPECT_TRUE(node->index(0) == nullptr);
  EXPECT_EQ(node->children.size(), 1U);
  EXPECT_EQ(node->childrenNames, std::vector<std::string>{""});
  EXPECT_EQ(node->indexOf, -1);
  EXPECT_TRUE(node->parent == nullptr);
  EXPECT_TRUE(node->rootClass == nullptr);
}

TEST(Child, IsCreatedOnceWhateverTheCase) {
  const Ref<plist> document = NewDocument();
  const Ref<plistDict> a = document->root->child("Größe");
  EXPECT_TRUE(document->root->child("GRÖßE") == a);
  a->child("b");
  EXPECT_EQ(Sketch(*document->root), "{Größe: {b: {}}}");
  EXPECT_TRUE(a->child("b")->rootClass == document);
  EXPECT_FALSE(document->root->searched.Value("größe"));
}

TEST(Child, OfAScalarIsNilWithAReport) {
  const Ref<plist> document = NewDocument();
  document->root->SetString("k", "v");
  EXPECT_TRUE(document->root->child("k") == nullptr);
  EXPECT_EQ(Report(document), "Child exists: k already exists");
  EXPECT_EQ(Sketch(*document->root), R"({k: string "v"})");
}

TEST(AddChild, RefusesAKeyInUse) {
  const Ref<plist> document = NewDocument();
  document->root->AddChild("a");
  document->root->child("a")->SetString("x", "1");
  document->root->AddChild("A");
  EXPECT_EQ(Report(document), "Child exists: A already exists");
  EXPECT_FALSE(document->root->AddArray("a"));
  EXPECT_EQ(Report(document), "Array exists: a already exists");
  EXPECT_EQ(Sketch(*document->root), R"({a: {x: string "1"}})");
  EXPECT_TRUE(document->root->AddArray("b"));
  EXPECT_EQ(Report(document), "");
}

TEST(Child, FindsWhatWasAddedToTheArraysDirectlyAndTheFirstOfRepeatedNames) {
  const Ref<plistDict> node = New<plistDict>();
  node->AddChild("a");
  const Ref<plistDict> stray = New<plistDict>();
  for (const char* name : {"stray", "Stray", "a"}) {
    node->childrenNames.push_back(name);
    node->children.push_back(name == std::string("stray") ? stray : New<plistDict>());
  }
  EXPECT_TRUE(node->child("STRAY") == stray);
  EXPECT_TRUE(node->child("a") == node->children[1]);
  node->Remove("a", true);
  EXPECT_TRUE(node->child("a") == node->children[3]) << "the repeated one comes up";
  EXPECT_TRUE(node->child("stray") == stray);
  EXPECT_EQ(node->count(), 0);
}

TEST(Index, SelectsByNumberAndNotByPosition) {
  const Ref<plistDict> node = New<plistDict>();
  node->isArray = true;
  node->AppendString("x");
  node->AppendDict();
  EXPECT_TRUE(node->index(0) == nullptr);
  EXPECT_TRUE(node->index(1) == node->children[1]);
}

TEST(Children, AreFoundAmongManyThroughRemovals) {
  const Ref<plistDict> node = New<plistDict>();
  for (int i = 0; i < 300; ++i) node->child("k" + Str(i))->SetInteger("n", i);
  for (int i = 0; i < 300; i += 7) node->Remove("k" + Str(i), false);
  for (int i = 0; i < 300; ++i) {
    if (i % 7 != 0) {
      ASSERT_EQ(node->child("K" + Str(i))->GetInteger("n", -5), i);
    }
  }
  EXPECT_EQ(node->count(), 257);
  EXPECT_EQ(node->children.size(), 258U);
}

TEST(TypeOf, AMissingKeyThrows) {
  const Ref<plistDict> node = New<plistDict>();
  EXPECT_THROW(static_cast<void>(node->GetType("a")), KeyNotFoundException);
  EXPECT_THROW(static_cast<void>(node->TypeOK("a")), KeyNotFoundException);
}

TEST(CheckType, TellsMissingFromSameFromOther) {
  const Ref<plist> document = NewDocument();
  document->root->SetString("s", "");
  EXPECT_EQ(document->root->CheckType("x", "date"), 2);
  EXPECT_EQ(document->root->CheckType("S", "STRING"), 1);
  EXPECT_EQ(document->root->CheckType("s", "date"), 0);
  EXPECT_EQ(Report(document), "Type Mismatch: s is a string");
  EXPECT_FALSE(document->root->CheckArray());
  EXPECT_EQ(Report(document), "root is not an array");
  EXPECT_TRUE(document->root->TypeOK("s"));
  EXPECT_EQ(Report(document), "root is not an array") << "TypeOK clears nothing";
}

TEST(Report, GoesNowhereWithoutADocument) {
  const Ref<plistDict> node = New<plistDict>();
  node->AddChild("a");
  EXPECT_FALSE(node->CheckArray());
  EXPECT_FALSE(node->TypeOK("a"));
  EXPECT_EQ(node->CheckType("a", "string"), 0);
  EXPECT_TRUE(node->child("a")->rootClass == nullptr);
}

TEST(Report, IsShownWhenDebugIsOn) {
  HeadlessHost host;
  InstallHost(&host);
  const Ref<plist> document = NewDocument();
  document->debug = true;
  EXPECT_FALSE(document->root->CheckArray());
  document->root->SetString("a", "x");
  document->root->SetInteger("a", 1);
  EXPECT_EQ(host.messages,
            (std::vector<std::string>{"root is not an array", "Type Mismatch: a is a string"}));
  InstallHost(nullptr);
}

TEST(Node, OutlivesItsParentAndItsDocument) {
  Ref<plist> document = NewDocument();
  const Ref<plistDict> b = document->root->child("a")->child("b");
  document = nullptr;
  EXPECT_TRUE(b->parent == nullptr);
  EXPECT_TRUE(b->rootClass == nullptr);
  EXPECT_EQ(b->GetInteger("n", 7), 7);
  EXPECT_EQ(b->AbsolutePath(), ":b");
}

TEST(Tree, OfVeryDeepNodesIsBuiltWalkedAndReleased) {
  constexpr int kDepth = 200'000;
  Ref<plist> document = NewDocument();
  Ref<plistDict> node = document->root;
  for (int i = 0; i < kDepth; ++i) node = node->child("n");
  const std::string path = node->AbsolutePath();
  EXPECT_EQ(path.size(), 5U + 2U * kDepth);
  EXPECT_EQ(path.substr(0, 9), ":root:n:n");
  int depth = 0;
  for (node = document->root; node->count() > 0; node = node->child("n")) ++depth;
  EXPECT_EQ(depth, kDepth);
  node = nullptr;
  document = nullptr;
}

TEST(Tree, IsReleasedApartFromWhatOthersHold) {
  Ref<plist> document = NewDocument();
  const Ref<plistDict> b = document->root->child("a")->child("b");
  b->child("c")->SetString("k", "v");
  document->root->child("other")->child("x")->child("y");
  document = nullptr;
  EXPECT_EQ(Sketch(*b), R"({c: {k: string "v"}})");
}

}  // namespace
}  // namespace morvantile
