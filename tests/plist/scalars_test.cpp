#include <gtest/gtest.h>

#include "tests/plist/sketch.h"

namespace morvantile {
namespace {

class Scalars : public ::testing::Test {
 protected:
  Ref<plist> document = NewDocument();
  plistDict& root = *document->root;
};

TEST_F(Scalars, GettersStoreTheirDefaultUnderAMissingKey) {
  EXPECT_EQ(root.GetInteger("i", 7), 7);
  EXPECT_EQ(root.GetReal("r", 33.9), 33.9);
  EXPECT_TRUE(root.GetBoolean("b"));
  EXPECT_FALSE(root.GetBoolean("b2", false));
  EXPECT_EQ(root.GetString("s"), "");
  EXPECT_EQ(root.GetData("d", "x"), "x");
  EXPECT_EQ(root.GetValue("v", "y"), "y");
  EXPECT_EQ(Sketch(root),
            R"({i: integer "7", r: real "33.9", b: boolean "true", b2: boolean "false", )"
            R"(s: string "", d: string "x", v: string "y"})");
  EXPECT_FALSE(root.searched.Value("i"));
}

TEST_F(Scalars, SettersStoreTextAndKeepTheFirstSpelling) {
  root.SetInteger("I", -2);
  root.SetInteger("i", 2.9);
  root.SetReal("r", 1.5);
  root.SetData("d", "QUJD");
  root.SetBoolean("b", false);
  EXPECT_EQ(Sketch(root), R"({I: integer "2", r: real "1.5", d: data "QUJD", b: boolean "false"})");
}

TEST_F(Scalars, AKeyKeepsTheTypeThatItGotFirst) {
  root.SetString("k", "a");
  root.SetInteger("k", 5);
  EXPECT_EQ(Report(document), "Type Mismatch: k is a string");
  root.AddChild("c");
  root.SetString("c", "x");
  EXPECT_EQ(Report(document), "Type Mismatch: c is a dict");
  EXPECT_EQ(Sketch(root), R"({k: string "a", c: {}})");
  root.SetString("k", "b");
  EXPECT_EQ(Report(document), "");
}

TEST_F(Scalars, SetDataAsksForNoTypeAndLeavesTheReport) {
  root.SetInteger("k", 1);
  root.SetError(true, "earlier");
  root.SetData("k", "x");
  EXPECT_EQ(Report(document), "earlier");
  EXPECT_EQ(Sketch(root), R"({k: data "x"})");
}

TEST_F(Scalars, NumbersAreReadFromEveryScalarButADate) {
  root.SetReal("r", 2.9);
  root.SetString("s", "12 apples");
  root.SetReal("n", -3.7);
  EXPECT_EQ(root.GetInteger("r"), 2);
  EXPECT_EQ(root.GetInteger("s"), 12);
  EXPECT_EQ(root.GetInteger("n"), -3);
  EXPECT_EQ(root.GetReal("s"), 12.0);
  EXPECT_EQ(Report(document), "");
  root.types.SetValue("s", "Date");
  EXPECT_EQ(root.GetInteger("s"), -1);
  EXPECT_EQ(Report(document), "Type Mismatch: s is a date");
  EXPECT_EQ(root.GetReal("s"), -1.0);
}

TEST_F(Scalars, AContainerGivesNeutralValuesAndReports) {
  root.AddChild("c");
  EXPECT_EQ(root.GetInteger("c"), 0);
  EXPECT_EQ(Report(document), "Illegal Type: c is a dict");
  EXPECT_EQ(root.GetReal("c"), 0.0);
  EXPECT_EQ(root.GetString("c"), "");
  EXPECT_EQ(Report(document), "Key c does not exist");
  EXPECT_FALSE(root.GetBoolean("c", true));
  EXPECT_EQ(Report(document), "Type Mismatch: c is a dict");
  EXPECT_EQ(Sketch(root), "{c: {}}");
}

TEST_F(Scalars, OnlyTheTypeBooleanCountsAndOnlyTrueIsTrue) {
  root.SetString("s", "true");
  EXPECT_FALSE(root.GetBoolean("s"));
  EXPECT_EQ(Report(document), "Type Mismatch: s is a string");
  root.SetBoolean("b", true);
  root.values.SetValue("b", "TRUE");
  EXPECT_TRUE(root.GetBoolean("b"));
  root.values.SetValue("b", "yes");
  EXPECT_FALSE(root.GetBoolean("b"));
}

TEST_F(Scalars, ASuccessfulGetBooleanKeepsAnEarlierReportAndGetStringClearsIt) {
  root.SetBoolean("b", true);
  root.SetString("b", "x");
  EXPECT_TRUE(root.GetBoolean("b"));
  EXPECT_EQ(Report(document), "Type Mismatch: b is a boolean");
  EXPECT_EQ(root.GetString("b"), "true");
  EXPECT_EQ(Report(document), "");
}

TEST_F(Scalars, IntegersOf64BitsKeepTheirDigits) {
  root.isArray = true;
  root.AppendInteger(9007199254740993);
  EXPECT_EQ(root.GetInteger("0"), 9007199254740993);
}

TEST_F(Scalars, KeysAndTextsAreAnyBytes) {
  const std::string bytes("\0\xFF<>\n", 5);
  root.SetString(bytes, bytes);
  root.SetString("", "empty key");
  EXPECT_EQ(root.GetString(bytes), bytes);
  EXPECT_EQ(root.GetString(""), "empty key");
  EXPECT_EQ(root.count(), 2);
}

TEST(Dictionaries, OfANodeAreIndependentOfEachOther) {
  const Ref<plistDict> node = New<plistDict>();
  node->values.SetValue("k", "v");
  node->searched.SetValue("k", true);
  EXPECT_EQ(node->count(), 0);
  EXPECT_THROW(static_cast<void>(node->types.Value("k")), KeyNotFoundException);
  node->types.SetValue("K", "string");
  EXPECT_EQ(node->types.Key(0), "K");
  EXPECT_EQ(node->values.Value("k"), "v");
  EXPECT_TRUE(node->searched.Value("k"));
  node->types.Remove("k");
  EXPECT_EQ(node->values.Count(), 1U);
  node->values.Remove("k");
  EXPECT_THROW(static_cast<void>(node->values.Value("k")), KeyNotFoundException);
  EXPECT_TRUE(node->searched.HasKey("k"));
  node->searched.Clear();
  EXPECT_EQ(node->searched.Count(), 0U);
  EXPECT_THROW(static_cast<void>(node->searched.Value("k")), KeyNotFoundException);
  EXPECT_THROW(static_cast<void>(node->types.Key(0)), OutOfBoundsException);
}

}  // namespace
}  // namespace morvantile
