#include <gtest/gtest.h>

#include "tests/plist/sketch.h"

namespace morvantile {
namespace {

class Cursor : public ::testing::Test {
 protected:
  void SetUp() override {
    node->SetString("b", "");
    node->AddChild("a");
    node->SetString("c", "");
  }

  // The place of the cursor: the key there, and a "!" if eof was set before it was asked for.
  std::string At() {
    const std::string end = node->eof ? "!" : "";
    return node->CurrentKey() + end;
  }

  Ref<plistDict> node = New<plistDict>();
};

TEST_F(Cursor, VisitsScalarsAndContainersInTheirOrder) {
  std::string keys;
  for (node->MoveFirst(); !node->eof; node->MoveNext()) keys += node->CurrentKey();
  EXPECT_EQ(keys, "bac");
}

TEST_F(Cursor, WrapsAtBothEndsAndOnlyMoveFirstClearsEof) {
  node->MoveLast();
  EXPECT_EQ(At(), "c");
  node->MoveNext();
  EXPECT_EQ(At(), "b!");
  node->MoveNext();
  EXPECT_EQ(At(), "a!");
  node->MoveLast();
  EXPECT_EQ(At(), "c!");
  node->MoveFirst();
  EXPECT_EQ(At(), "b");
  node->MovePrevious();
  EXPECT_EQ(At(), "c!");
}

TEST_F(Cursor, GivesNoKeyOnAnEmptyNode) {
  node = New<plistDict>();
  node->MoveFirst();
  EXPECT_FALSE(node->eof);
  EXPECT_EQ(node->CurrentKey(), "");
  EXPECT_TRUE(node->eof);
  node->MoveFirst();
  node->MoveLast();
  EXPECT_EQ(node->CurrentKey(), "");
  EXPECT_TRUE(node->eof);
  EXPECT_EQ(node->currentIndex, 0);
}

TEST_F(Cursor, SurvivesAPlaceBehindTheLastKey) {
  node->currentIndex = 7;
  EXPECT_EQ(node->CurrentKey(), "");
  EXPECT_EQ(At(), "b!");
}

TEST(AbsolutePath, NamesTheNodesFromTheRoot) {
  const Ref<plist> document = NewDocument();
  const Ref<plistDict> c = document->root->child("b")->child("c");
  EXPECT_EQ(c->AbsolutePath(), ":root:b:c");
  EXPECT_EQ(c->AbsolutePath(), ":root:b:c");
  EXPECT_EQ(c->path, ":root:b:c");
  EXPECT_EQ(document->root->AbsolutePath(), ":root");
  EXPECT_EQ(document->root->child("x")->child("Root")->child("y")->AbsolutePath(), ":root:y");
}

}  // namespace
}  // namespace morvantile
