#include <gtest/gtest.h>

#include "tests/plist/sketch.h"

namespace morvantile {
namespace {

class SearchTest : public testing::Test {
 protected:
  SearchTest() {
    document->root->SetString("a", "one fish");
    document->root->AddChild("empty");
    document->root->AddArray("list");
    document->root->child("list")->AppendString("two FISH");
    document->root->child("list")->AppendBoolean(true);
    document->root->SetString("fish", "none");
    document->root->SetInteger("n", 12);
  }

  // What the search delivered, as "node/key=value (type)".
  std::string Found() const {
    return document->foundDict->name + "/" + document->foundKey + "=" + document->foundValue +
           " (" + document->foundType + ")";
  }

  Ref<plist> document = NewDocument();
};

TEST_F(SearchTest, DeliversEachMatchOnceInTheOrderOfTheTree) {
  ASSERT_TRUE(document->Find("Fish"));
  EXPECT_EQ(Found(), "root/a=one fish (string)");
  ASSERT_TRUE(document->FindNext("fish"));
  EXPECT_EQ(Found(), "list/0=two FISH (string)");
  EXPECT_FALSE(document->FindNext("fish"));
  EXPECT_EQ(Found(), "list/0=two FISH (string)") << "stays on the last one";
  ASSERT_TRUE(document->Find("fish"));
  EXPECT_EQ(Found(), "root/a=one fish (string)") << "a new search begins at the start";
}

TEST_F(SearchTest, LooksAtKeysOrValuesByItsMode) {
  struct Searchable : plist {
    using plist::plist;
    using plist::ReadStructure;
  };
  const Ref<Searchable> walker = New<Searchable>(nullptr, false);
  ASSERT_TRUE(walker->ReadStructure(document->root, "FISH", "KeySearch"));
  EXPECT_EQ(walker->foundKey + "=" + walker->foundValue, "fish=none");
  EXPECT_FALSE(walker->ReadStructure(document->root, "fish", "keySearch"));
  ASSERT_TRUE(walker->ReadStructure(document->root, "fish", "valueSearch"));
  EXPECT_EQ(walker->foundKey, "a");
  EXPECT_FALSE(walker->ReadStructure(document->root, "fish", "otherSearch"));
}

TEST_F(SearchTest, FindsEveryScalarOnceForTheEmptyText) {
  int count = 0;
  for (bool found = document->Find(""); found; found = document->FindNext("")) ++count;
  EXPECT_EQ(count, 5);
}

TEST_F(SearchTest, FindsNumbersAndBooleansByTheirTexts) {
  ASSERT_TRUE(document->Find("TRUE"));
  EXPECT_EQ(Found(), "list/1=true (boolean)");
  ASSERT_TRUE(document->Find("2"));
  EXPECT_EQ(Found(), "root/n=12 (integer)");
  EXPECT_FALSE(document->Find("nowhere"));
  EXPECT_TRUE(document->foundDict == nullptr);
  EXPECT_EQ(document->foundKey + document->foundValue + document->foundType, "");
}

TEST_F(SearchTest, AnEntrySetAnewIsDeliveredAgain) {
  ASSERT_TRUE(document->Find("fish"));
  document->root->SetString("a", "red fish");
  ASSERT_TRUE(document->FindNext("fish"));
  EXPECT_EQ(Found(), "root/a=red fish (string)");
}

TEST_F(SearchTest, AnotherTextStartsOver) {
  ASSERT_TRUE(document->Find("fish"));
  ASSERT_TRUE(document->FindNext("o"));
  EXPECT_EQ(Found(), "root/a=one fish (string)");
  ASSERT_TRUE(document->FindNext("o"));
  EXPECT_EQ(Found(), "list/0=two FISH (string)");
}

TEST_F(SearchTest, ClearsTheReportWhenItMeetsAScalar) {
  document->root->SetInteger("a", 1);
  ASSERT_TRUE(document->error);
  document->Find("nowhere");
  EXPECT_EQ(Report(document), "");
}

TEST(Search, AnEmptyDocumentHasNothing) {
  const Ref<plist> document = NewDocument();
  EXPECT_FALSE(document->Find(""));
  EXPECT_THROW(document->ClearSearch(nullptr), NilObjectException);
}

TEST(Search, GoesDownAnyNumberOfLevels) {
  const Ref<plist> document = NewDocument();
  Ref<plistDict> node = document->root;
  for (int level = 0; level < 200'000; ++level) node = node->child("a");
  node->SetString("deep", "found");
  node = nullptr;
  ASSERT_TRUE(document->Find("found"));
  EXPECT_EQ(document->foundKey, "deep");
}

}  // namespace
}  // namespace morvantile
