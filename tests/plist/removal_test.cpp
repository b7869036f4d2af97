#include <gtest/gtest.h>

#include "platform/text/text.h"
#include "tests/plist/sketch.h"

namespace morvantile {
namespace {

class Removal : public ::testing::Test {
 protected:
  Ref<plist> document = NewDocument();
  plistDict& root = *document->root;

  // An array of strings, one for each letter, with a dict for "d" and an array for "a".
  plistDict& List(const std::string& letters) {
    root.AddArray("list");
    plistDict& list = *root.child("list");
    for (const char letter : letters) {
      if (letter == 'd') {
        list.AppendDict();
      } else if (letter == 'a') {
        list.AppendArray();
      } else {
        list.AppendString(std::string(1, letter));
      }
    }
    return list;
  }
};

TEST_F(Removal, ClosesTheGapInAnArray) {
  plistDict& list = List("xyz");
  list.Remove(1, false);
  EXPECT_EQ(Sketch(list), R"([0: string "x", 1: string "z"])");
  list.AppendString("w");
  EXPECT_EQ(Sketch(list), R"([0: string "x", 1: string "z", 2: string "w"])");
  list.Remove("0", false);
  list.Remove(1, false);
  EXPECT_EQ(Sketch(list), R"([0: string "z"])");
  list.Remove(0, false);
  EXPECT_EQ(Sketch(list), "[]");
  EXPECT_TRUE(list.isArray);
}

TEST_F(Removal, KeepsContainersUnderTheirNumbers) {
  plistDict& list = List("xdyadz");
  list.child("1")->SetString("k", "first");
  list.child("4")->SetString("k", "second");
  list.Remove(0, false);
  EXPECT_EQ(Sketch(list), R"([0: {k: string "first"}, 1: string "y", 2: [], )"
                          R"(3: {k: string "second"}, 4: string "z"])");
  list.Remove(0, false);
  EXPECT_EQ(Sketch(list), R"([0: string "y", 1: [], 2: {k: string "second"}, 3: string "z"])");
  EXPECT_TRUE(list.index(2) == list.children[2]);
  EXPECT_EQ(list.childrenNames, (std::vector<std::string>{"", "1", "2"}));
}

TEST_F(Removal, OfNumbersThatNoElementHasReports) {
  plistDict& list = List("xy");
  list.Remove(-1, false);
  EXPECT_EQ(Report(document), "Subscript out of range");
  document->error = false;
  list.Remove(2, false);
  EXPECT_EQ(Report(document), "Subscript out of range");
  EXPECT_EQ(list.count(), 2);
}

TEST_F(Removal, OfANumberFromADictReportsUnlessItIsTakenForAKey) {
  root.SetString("0", "x");
  root.Remove(0, false);
  EXPECT_EQ(Report(document), "root is not an array");
  root.Remove("0", false);
  EXPECT_EQ(Sketch(root), R"({0: string "x"})");
  root.Remove("0", true);
  EXPECT_EQ(Sketch(root), "{}");
}

TEST_F(Removal, OfAKeyTakesItsNodeWithItAndLeavesTheReport) {
  root.SetString("Größe", "x");
  const Ref<plistDict> child = root.child("c");
  child->SetString("k", "v");
  root.SetString("z", "y");
  root.SetError(true, "earlier");
  root.Remove("GRÖßE", false);
  root.Remove("C", false);
  root.Remove("no such key", false);
  EXPECT_EQ(Report(document), "earlier");
  EXPECT_EQ(Sketch(root), R"({z: string "y"})");
  EXPECT_EQ(root.children.size(), 1U);
  EXPECT_EQ(root.childrenNames.size(), 1U);
  EXPECT_EQ(Sketch(*child), R"({k: string "v"})");
  EXPECT_TRUE(child->parent == &root);
}

TEST_F(Removal, LeavesTheMarksUnderTheirKeysAndNumbers) {
  root.SetString("k", "v");
  root.searched.SetValue("k", true);
  root.Remove("k", false);
  EXPECT_TRUE(root.searched.Value("k"));
  plistDict& list = List("xyz");
  list.searched.SetValue("1", false);
  list.searched.SetValue("2", true);
  list.Remove(0, false);
  EXPECT_FALSE(list.searched.HasKey("0"));
  EXPECT_FALSE(list.searched.Value("1"));
  EXPECT_TRUE(list.searched.Value("2"));
}

TEST_F(Removal, MovesElementsOverTheGapsThatAFileMayLeave) {
  plistDict& list = List("wx");
  for (const char* key : {"3", "4"}) {
    list.types.SetValue(key, "string");
    list.values.SetValue(key, key);
  }
  list.searched.SetValue("1", true);
  list.Remove(2, false);
  EXPECT_EQ(Report(document), "Subscript out of range");
  list.Remove(0, false);
  EXPECT_EQ(Sketch(list), R"([0: string "x", 2: string "3", 4: string "4"])");
  EXPECT_TRUE(list.searched.Value("1"));
  EXPECT_FALSE(list.searched.HasKey("0"));
}

TEST_F(Removal, KeepsTheNodesOfAnElementTogether) {
  for (const char* gap : {"", "\n"}) {
    const Ref<plist> read = Read(std::string("<key>a</key>\n<array>\n<dict/><dict/>\n") + gap +
                                 "<dict/><dict/>\n<dict/>\n</array>");
    plistDict& list = *read->root->child("a");
    std::vector<std::string> expected = {"", "0", "0", "1"};
    if (*gap != '\0') expected = {"", "1", "1", "3"};
    list.Remove(0, false);
    EXPECT_EQ(list.childrenNames, expected);
    for (std::size_t place = 1; place < expected.size(); ++place) {
      EXPECT_EQ(list.children[place]->name, expected[place]);
      const auto first = std::find(expected.begin(), expected.end(), expected[place]);
      EXPECT_TRUE(list.child(expected[place]) ==
                  list.children[static_cast<std::size_t>(first - expected.begin())])
          << expected[place];
    }
  }
}

TEST_F(Removal, OfAKeyFromAnArrayRenumbersNothing) {
  plistDict& list = List("xyz");
  list.SetString("name", "v");
  list.Remove("name", false);
  list.Remove("1", true);
  EXPECT_EQ(Sketch(list), R"([0: string "x", 2: string "z"])");
}

TEST_F(Removal, DuringAWalkLeavesTheCursorWhereItIs) {
  for (int i = 0; i < 100; ++i) root.SetInteger("k" + Str(i), i);
  int left = 0;
  for (root.MoveFirst(); !root.eof;) {
    const std::string key = root.CurrentKey();
    if (root.GetInteger(key) % 3 == 0) {
      ++left;
      root.MoveNext();
    } else {
      root.Remove(key, false);
      if (root.currentIndex == root.count()) break;
    }
  }
  EXPECT_EQ(root.count(), left);
  EXPECT_EQ(left, 34);
}

}  // namespace
}  // namespace morvantile
