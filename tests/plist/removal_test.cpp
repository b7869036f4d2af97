#include "tests/plist/rows.h"

namespace morvantile {
namespace {

TEST(Removal, OfAnElementMovesThoseBehindIt) {
  Check({
      {"['x', 'y', 'z']", [](N n) { n.Remove(1, false); }, "['x', 'z']"},
      {"['x', 'y', 'z']", [](N n) { n.Remove("0", false); }, "['y', 'z']"},
      {"['x'] earlier", [](N n) { n.Remove(0, false); }, "[]"},
      {"['x', {a: '1'}, 'y', [], {b: '2'}, 'z']", [](N n) { n.Remove(0, false); },
       "[{a: '1'}, 'y', [], {b: '2'}, 'z']"},
      {"[{a: '1'}, 'y', [], {b: '2'}, 'z']", [](N n) { n.Remove(0, false); },
       "['y', [], {b: '2'}, 'z']"},
      {"['x', 'y']", [](N n) { n.Remove(-1, false); }, "= Subscript out of range"},
      {"['x', 'y']", [](N n) { n.Remove(2, false); }, "= Subscript out of range"},
      {"['w', 'x', 3: '3', 4: '4']", [](N n) { n.Remove(0, false); }, "['x', 2: '3', 4: '4']"},
      {"['w', 'x', 3: '3', 4: '4']", [](N n) { n.Remove(2, false); }, "= Subscript out of range"},
  });
}

TEST(Removal, OfAKeyTakesItsNodeAndRenumbersNothing) {
  Check({
      {"{0: 'x'}", [](N n) { n.Remove(0, false); }, "= root is not an array"},
      {"{0: 'x'}", [](N n) { n.Remove("0", false); }, "= root is not an array"},
      {"{0: 'x'}", [](N n) { n.Remove("0", true); }, "{}"},
      {"{Größe: 'x', z: 'y'} earlier", [](N n) { n.Remove("GRÖßE", false); }, "{z: 'y'} earlier"},
      {"{c: {}, z: 'y'} earlier", [](N n) { n.Remove("C", false); }, "{z: 'y'} earlier"},
      {"{z: 'y'} earlier", [](N n) { n.Remove("no such key", false); }, "= earlier"},
      {"['x', 'y', 'z']", [](N n) { n.Remove("1", true); }, "['x', 2: 'z']"},
  });
  const Ref<plist> document = Tree("{c: {k: 'v'}, d: {}}");
  const Ref<plistDict> removed = document->root->child("c");
  document->root->Remove("c", false);
  EXPECT_EQ(document->root->childrenNames, (std::vector<std::string>{"", "d"}));
  EXPECT_EQ(document->root->children.size(), 2U);
  EXPECT_EQ(Sketch(*removed), "{k: 'v'}");
  EXPECT_TRUE(removed->parent == document->root);
}

TEST(Removal, LeavesTheMarksUnderTheirKeysAndNumbers) {
  for (const char* list : {"['x', 'y', 'z']", "['x', 'y', 'z', 4: '']"}) {
    const Ref<plist> document = Tree(list);
    Searched& marks = document->root->searched;
    marks.SetValue("1", false);
    marks.SetValue("2", true);
    document->root->Remove(0, false);
    EXPECT_TRUE(!marks.HasKey("0") && !marks.Value("1") && marks.Value("2")) << list;
    document->root->Remove("1", true);
    EXPECT_TRUE(marks.HasKey("1")) << list;
  }
}

// The elements of an array that repeats numbers, and the names of its nodes without the first one.
TEST(Removal, KeepsTheNodesOfAnElementTogether) {
  for (const auto& [elements, names] :
       {std::pair{"<dict/><dict/>|<dict/><dict/>|<dict/>", " 0 0 1"},
        {"<dict/><dict/>||<dict/><dict/>|<dict/>", " 1 1 3"},
        {"<dict/><dict/>|<true/>|<dict/>", " 1"}}) {
    const Ref<plist> document = Read(std::string("<key>a</key>|<array>|") + elements + "|</array>");
    plistDict& list = *document->root->child("a");
    list.Remove(0, false);
    std::string found;
    for (std::size_t place = 1; place < list.children.size(); ++place) {
      EXPECT_EQ(list.children[place]->name, list.childrenNames[place]) << elements;
      found += " " + list.childrenNames[place];
    }
    EXPECT_EQ(found, names) << elements;
    EXPECT_TRUE(list.child(list.childrenNames[1]) == list.children[1]) << elements;
  }
}

}  // namespace
}  // namespace morvantile
