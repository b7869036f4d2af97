#include <gtest/gtest.h>

#include "tests/plist/sketch.h"

namespace morvantile {
namespace {

struct Searchable : plist {
  using plist::plist;
  using plist::ReadStructure;

  // What a search delivers, or still holds after a "no".
  std::string Found(bool found) const {
    return (found ? "" : "no ") + (foundDict ? foundDict->name : "") + "/" + foundKey + " " +
           foundType + " '" + foundValue + "'";
  }
};

TEST(Search, DeliversEachMatchOnceInTheOrderOfTheTree) {
  const Ref<Searchable> document = New<Searchable>(nullptr, false);
  document->root = Tree(
                       "{a: 'one fish', e: {}, list: ['two FISH', boolean 'true'], fish: 'none', "
                       "n: integer '2'}")
                       ->root;
  const auto find = [&](const char* text) { return document->Found(document->Find(text)); };
  const auto next = [&](const char* text) { return document->Found(document->FindNext(text)); };
  EXPECT_EQ(find("Fish"), "root/a string 'one fish'");
  EXPECT_EQ(next("fish"), "list/0 string 'two FISH'");
  EXPECT_EQ(next("fish"), "no list/0 string 'two FISH'");
  document->root->SetString("a", "red fish");
  EXPECT_EQ(next("fish"), "root/a string 'red fish'") << "what was set anew is delivered again";
  EXPECT_EQ(find("fish"), "root/a string 'red fish'") << "a new search begins at the start";
  EXPECT_EQ(next("e"), "root/a string 'red fish'") << "and so does another text";
  EXPECT_EQ(next("E"), "list/1 boolean 'true'");
  EXPECT_EQ(next("E"), "root/fish string 'none'");
  EXPECT_EQ(find("2"), "root/n integer '2'");
  EXPECT_EQ(find("nowhere"), "no /  ''");
  int count = 1;
  for (document->Find(""); document->FindNext("");) ++count;
  EXPECT_EQ(count, 5) << "an empty text is in every scalar";

  const auto walk = [&](const char* text, const char* mode) {
    return document->Found(document->ReadStructure(document->root, text, mode));
  };
  document->ClearSearch(document->root);
  EXPECT_EQ(walk("FISH", "KeySearch"), "root/fish string 'none'");
  EXPECT_EQ(walk("fish", "keySearch"), "no root/fish string 'none'");
  EXPECT_EQ(walk("fish", "valueSearch"), "root/a string 'red fish'");
  EXPECT_EQ(walk("fish", "otherSearch"), "no root/a string 'red fish'");
  EXPECT_THROW(document->ClearSearch(nullptr), NilObjectException);
}

}  // namespace
}  // namespace morvantile
