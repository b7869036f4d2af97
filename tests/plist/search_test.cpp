#include <gtest/gtest.h>

#include "tests/plist/sketch.h"

namespace morvantile {
namespace {

class Search : public testing::Test {
 protected:
  std::string Find(const char* text) { return Found(document->Find(text)); }
  std::string Next(const char* text) { return Found(document->FindNext(text)); }

  // The results as they are now, with a "no" if the search said that there is none.
  std::string Found(bool found) const {
    const std::string node = document->foundDict ? document->foundDict->name : "";
    return (found ? "" : "no ") + node + "/" + document->foundKey + " " + document->foundType +
           " '" + document->foundValue + "'";
  }

  Ref<plist> document = Tree(
      "{a: 'one fish', empty: {}, list: ['two FISH', boolean 'true'], fish: 'none', n: integer "
      "'2'}");
};

TEST_F(Search, DeliversEachMatchOnceInTheOrderOfTheTree) {
  EXPECT_EQ(Find("Fish"), "root/a string 'one fish'");
  EXPECT_EQ(Next("fish"), "list/0 string 'two FISH'");
  EXPECT_EQ(Next("fish"), "no list/0 string 'two FISH'");
  document->root->SetString("a", "red fish");
  EXPECT_EQ(Next("fish"), "root/a string 'red fish'") << "what was set anew is delivered again";
  EXPECT_EQ(Find("fish"), "root/a string 'red fish'") << "a new search begins at the start";
  EXPECT_EQ(Next("e"), "root/a string 'red fish'") << "and so does another text";
  EXPECT_EQ(Next("E"), "list/1 boolean 'true'");
  EXPECT_EQ(Next("E"), "root/fish string 'none'");
  EXPECT_EQ(Find("2"), "root/n integer '2'");
  EXPECT_EQ(Find("nowhere"), "no /  ''");
  int count = 0;
  for (bool found = document->Find(""); found; found = document->FindNext("")) ++count;
  EXPECT_EQ(count, 5) << "an empty text is in every scalar";
}

TEST_F(Search, LooksAtKeysOrValuesByItsMode) {
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

TEST_F(Search, ClearsTheReportWhenItMeetsAScalar) {
  document->root->SetInteger("a", 1);
  Find("nowhere");
  EXPECT_EQ(Report(document), "");
  EXPECT_THROW(document->ClearSearch(nullptr), NilObjectException);
}

}  // namespace
}  // namespace morvantile
