#include <gtest/gtest.h>

#include <tuple>

#include "tests/plist/sketch.h"

namespace morvantile {
namespace {

class MoveTest : public testing::Test {
 protected:
  MoveTest() {
    root->SetString("s", "text");
    root->AddChild("from");
    root->AddChild("to");
    root->AddArray("list");
  }

  Ref<plistDict> Child(const std::string& key) { return root->child(key); }

  // A dict under "from" with something of every kind below it.
  void FillFrom() {
    const Ref<plistDict> from = Child("from");
    from->SetInteger("i", 7);
    from->AddArray("a");
    from->child("a")->AppendReal(1.5);
    from->child("a")->AppendDict();
    from->child("a")->index(1)->SetBoolean("b", true);
    from->child("a")->AppendDouble(2.5);
    from->SetDate("d", New<Date>(2009, 3, 7, 8, 5, 9));
    from->SetData("x", "QUJD");
  }

  static constexpr const char* kFilled =
      R"({i: integer "7", a: [0: real "1.5", 1: {b: boolean "true"}, 2: double "2.5"], )"
      R"(d: date "2009-03-07T08:05:09Z", x: data "QUJD"})";

  Ref<plist> document = NewDocument();
  Ref<plistDict> root = document->root;
};

TEST_F(MoveTest, AScalarGoesUnderItsOldOrNewKeyOrToTheEndOfAnArray) {
  root->Copy("s", Child("to"));
  root->Copy("s", Child("list"));
  root->Move("s", Child("to"), true, "t");
  EXPECT_EQ(Sketch(*root), R"({from: {}, to: {s: string "text", t: string "text"}, )"
                           R"(list: [0: string "text"]})");
  EXPECT_EQ(Report(document), "");
}

TEST_F(MoveTest, AContainerGoesWithAllBelowIt) {
  FillFrom();
  root->Copy("from", Child("to"));
  root->Copy("from", Child("list"));
  EXPECT_EQ(Sketch(*Child("to")->child("from")), kFilled);
  EXPECT_EQ(Sketch(*Child("list")), std::string("[0: ") + kFilled + "]");
  Child("to")->child("from")->SetInteger("i", 8);
  EXPECT_EQ(Sketch(*Child("from")), kFilled) << "nothing is shared with a copy";

  Child("from")->Move("a", Child("to"));
  EXPECT_FALSE(Child("from")->Exists("a"));
  EXPECT_TRUE(Child("to")->child("a")->isArray);
  EXPECT_EQ(Child("to")->child("a")->rootClass, document);
}

TEST_F(MoveTest, AnEmptyContainerArrivesThoughTheReportDoubtsIt) {
  root->Move("from", Child("to"));
  EXPECT_EQ(Sketch(*Child("to")), "{from: {}}");
  EXPECT_FALSE(root->Exists("from"));
  EXPECT_EQ(Report(document), "Source does not exist.");
}

TEST_F(MoveTest, WhatIsRefusedKeepsItsSource) {
  Child("to")->SetInteger("s", 1);
  root->Move("s", Child("to"));
  EXPECT_EQ(Report(document), "Type Mismatch: s is a integer");
  EXPECT_EQ(root->GetString("s"), "text");

  Child("from")->SetString("s", "inner");
  Child("to")->SetString("from", "in the way");
  root->Move("from", Child("to"));
  EXPECT_EQ(Sketch(*Child("from")), R"({s: string "inner"})");
  Child("to")->Remove("from", true);
  Child("to")->AddChild("from");
  Child("to")->child("from")->SetInteger("s", 2);
  root->Move("from", Child("to"));
  EXPECT_EQ(Sketch(*Child("from")), R"({s: string "inner"})") << "refused below it";
}

TEST_F(MoveTest, WrongCallsReportAndChangeNothing) {
  const std::string before = Sketch(*root);
  root->Move("s", nullptr);
  EXPECT_EQ(Report(document), "Destination is nil");
  root->Move("missing", Child("to"));
  EXPECT_EQ(Report(document), "Source does not exist.");
  root->Rename("s", "FROM");
  EXPECT_EQ(Report(document), "Key FROM already exists.");
  root->Rename("s", "S");
  EXPECT_EQ(Report(document), "Key S already exists.");
  root->Move("s", root, true, "S");
  root->Move("from", root, true, "");
  EXPECT_EQ(Sketch(*root), before);
}

TEST_F(MoveTest, ADestinationInsideTheSourceIsRefused) {
  FillFrom();
  const Ref<plistDict> inside = Child("from")->child("a");
  root->Move("from", inside);
  EXPECT_EQ(Report(document), "Destination is inside from");
  EXPECT_EQ(Sketch(*Child("from")), kFilled);
}

TEST_F(MoveTest, ASourceInsideTheNodeThatItWouldBeMergedIntoIsRefused) {
  Child("from")->child("from")->child("from")->SetString("k", "v");
  Child("from")->Move("from", root);
  EXPECT_EQ(Report(document), "from is inside the destination");
  EXPECT_EQ(Sketch(*Child("from")), R"({from: {from: {k: string "v"}}})");
}

TEST_F(MoveTest, IntoAContainerAroundItMergesAsFarAsItDoesNotMeetItself) {
  const Ref<plistDict> a = Child("a");
  a->SetString("x", "1");
  a->child("b")->SetString("w", "4");
  a->child("a")->SetString("y", "2");
  a->child("a")->child("b")->SetString("z", "3");
  a->Move("a", root);
  EXPECT_EQ(Report(document), "");
  EXPECT_EQ(Sketch(*a), R"({x: string "1", b: {w: string "4", z: string "3"}, y: string "2"})");

  a->child("a")->child("a")->SetString("q", "5");
  a->child("a")->SetString("r", "6");
  a->Move("a", root);
  EXPECT_EQ(Report(document), "a could not be moved as a whole");
  EXPECT_EQ(a->GetString("r"), "6");
  EXPECT_EQ(Sketch(*a->child("a")), R"({a: {q: string "5"}, r: string "6"})");
}

TEST_F(MoveTest, DataDoesNotCoverAContainer) {
  Child("from")->SetData("list", "QUJD");
  Child("from")->Move("list", root);
  EXPECT_EQ(Report(document), "Type Mismatch: list is a array");
  EXPECT_EQ(Sketch(*root), R"({s: string "text", from: {list: data "QUJD"}, to: {}, list: []})");
  Child("from")->Move("list", root, true, "s");
  EXPECT_EQ(Sketch(*root), R"({s: data "QUJD", from: {}, to: {}, list: []})");
}

TEST_F(MoveTest, WhatStaysBecauseOfAnEntryBelowItIsReportedInTheEnd) {
  Child("from")->SetString("a", "refused");
  Child("from")->SetString("b", "taken");
  Child("to")->child("from")->SetInteger("a", 1);
  root->Move("from", Child("to"));
  EXPECT_EQ(Report(document), "from could not be moved as a whole");
  EXPECT_EQ(Sketch(*Child("from")), R"({a: string "refused", b: string "taken"})");
  EXPECT_EQ(Sketch(*Child("to")), R"({from: {a: integer "1", b: string "taken"}})");
}

TEST_F(MoveTest, RenamingKeepsTheEntryAndInAnArrayMakesItTheLast) {
  FillFrom();
  root->Rename("from", "new");
  EXPECT_EQ(Sketch(*Child("new")), kFilled);
  EXPECT_FALSE(root->Exists("from"));
  for (const char* text : {"a", "b", "c"}) Child("list")->AppendString(text);
  Child("list")->Rename("0", "x");
  EXPECT_EQ(Sketch(*Child("list")), R"([0: string "b", 1: string "c", 2: string "a"])");
}

TEST_F(MoveTest, ANumberAsAKeyIsCopiedButNotRemoved) {
  root->SetString("5", "five");
  root->Move("5", Child("to"));
  EXPECT_EQ(Report(document), "root is not an array");
  EXPECT_TRUE(root->Exists("5"));
  EXPECT_EQ(Sketch(*Child("to")), R"({5: string "five"})");
}

TEST_F(MoveTest, WhatHasNoTypeOfItsOwnIsCarriedAsItStands) {
  const Ref<plistDict> from = Child("from");
  for (const auto& [key, type, text] :
       {std::tuple{"odd", "uid", "12"}, {"d", "date", "no date"}, {"i", "integer", "many"}}) {
    from->types.SetValue(key, type);
    from->values.SetValue(key, text);
  }
  const std::string before = Sketch(*from);
  Child("to")->AppendDict(from);
  EXPECT_EQ(Sketch(*Child("to")), before);
  from->Move("odd", Child("list"));
  EXPECT_EQ(Sketch(*Child("list")), R"([0: uid "12"])");
  EXPECT_FALSE(from->Exists("odd"));
}

TEST_F(MoveTest, AppendingMergesAndEndsEvenOnItself) {
  FillFrom();
  Child("to")->SetInteger("i", 1);
  Child("to")->AppendDict(Child("from"));
  EXPECT_EQ(Sketch(*Child("to")), kFilled);
  Child("to")->AppendAsNewChild(Child("list"));
  EXPECT_EQ(Sketch(*Child("to")->child("list")), "{}");
  Child("list")->AppendString("a");
  Child("list")->AppendDict(Child("list"));
  EXPECT_EQ(Sketch(*Child("list")), R"([0: string "a", 1: string "a"])");
  EXPECT_THROW(root->AppendDict(nullptr), NilObjectException);
}

TEST_F(MoveTest, AnyNumberOfLevelsIsCarried) {
  Ref<plistDict> node = Child("from");
  for (int level = 0; level < 200'000; ++level) node = node->child("a");
  node->SetString("deep", "x");
  node = nullptr;
  root->Copy("from", Child("to"));
  EXPECT_TRUE(document->Find("x"));
  EXPECT_TRUE(document->FindNext("x") && document->FindNext("x"));
}

}  // namespace
}  // namespace morvantile
