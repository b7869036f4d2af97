// Entries taken out of nodes, and carried from one to another.

#include "tests/plist/rows.h"

namespace morvantile {
namespace {

TEST(Removal, OfAnElementMovesThoseBehindItAndOfAKeyNone) {
  const auto first = [](N n) { n.Remove(0, false); };
  const auto second = [](N n) { n.Remove(1, false); };
  const auto third = [](N n) { n.Remove(2, false); };
  const auto type_of_next = [](N n) {
    n.Remove(0, false);
    return n.TypeOK("0");
  };
  CheckRows({
      {"['x', 'y', 'z']", second, "['x', 'z']"},
      {"['x', 'y', 'z']", [](N n) { n.Remove("0", false); }, "['y', 'z']"},
      {"['x', 'y', 'z']", [](N n) { n.Remove("1", true); }, "['x', 2: 'z']"},
      {"['x'] earlier", first, "[]"},
      {"[{a: '1'}, 'y', [], {b: '2'}, 'z']", first, "['y', [], {b: '2'}, 'z']"},
      {"['x', []]", type_of_next, "false [[]] Illegal Type: 0 is a array"},
      {"[{}, 'x']", type_of_next, "true ['x']"},
      {"['x', 'y']", [](N n) { n.Remove(-1, false); }, "= Subscript out of range"},
      {"['x', 'y']", third, "= Subscript out of range"},
      {"['w', 'x', 3: '3', 4: {}]", first, "['x', 2: '3', 4: {}]"},
      {"['w', {}, 2: {}, 4: '']", first, "[{}, {}, 4: '']"},
      {"['w', 'x', 3: '3', 4: '4']", third, "= Subscript out of range"},
      {"{0: 'x'}", [](N n) { n.Remove("0", false); }, "= root is not an array"},
      {"{0: 'x'}", [](N n) { n.Remove("0", true); }, "{}"},
      {"{Größe: {}, z: {}} earlier", [](N n) { n.Remove("GRÖßE", false); }, "{z: {}} earlier"},
      {"{z: 'y'} earlier", [](N n) { n.Remove("no such key", false); }, "= earlier"},
  });
}

TEST(Removal, LeavesTheMarksUnderTheirKeysAndNumbers) {
  for (const char* list : {"['x', 'y', 'z']", "['x', 'y', 'z', 4: '']"}) {
    const Ref<plist> document = Tree(list);
    Searched& marks = document->root->searched;
    marks.SetValue("1", false);
    marks.SetValue("2", true);
    document->root->Remove(0, false);
    EXPECT_TRUE(!marks.HasKey("0") && !marks.Value("1") && marks.Value("2")) << list;
  }
}

// The elements of an array that repeats numbers, and the names of its nodes without the first one.
TEST(Removal, KeepsTheNodesOfAnElementTogether) {
  for (const auto& [elements, names] :
       {std::pair{"<dict/><dict/>|<dict/><dict/>|<dict/>", " 00 00 11"},
        {"<dict/><dict/>||<dict/><dict/>|<dict/>", " 11 11 33"},
        {"<true/>|<dict/><dict/>|<dict/>", " 00 00 11"}}) {
    const Ref<plist> document = Read(std::string("<array>|") + elements + "|</array>");
    plistDict& list = *document->root->children[1];
    list.Remove(0, false);
    std::string found;
    for (std::size_t place = 1; place < list.children.size(); ++place) {
      found += " " + list.children[place]->name + list.childrenNames[place];
    }
    EXPECT_EQ(found, names) << elements;
    EXPECT_TRUE(list.child(list.childrenNames[1]) == list.children[1]) << elements;
  }
}

const auto move_f = [](N n) { n.Move("f", n.child("to")); };
const auto move_up = [](N n) { n.child("f")->Move("f", Ref<plistDict>(&n)); };

TEST(Move, CarriesAnEntryByItsTypeUnderTheOldOrANewKey) {
  const auto append = [](N n) {
    n.rootClass->Find("nowhere");  // leaves every cursor at the end
    n.child("to")->AppendDict(n.child("f"));
  };
  const auto copy_and_change = [](N n) {
    const Ref<plist> copy = n.PlistFromPlistDict(Ref<plistDict>(&n));
    copy->root->child("c")->SetString("x", "z");
    return Sketch(*copy->root);
  };
  const std::string entries =
      "a: 'x', b: real '1.5', c: integer '7', d: boolean 'true', e: data 'QUJD', g: double '2.5', "
      "h: date '2009-03-07T08:05:09Z', i: date 'none', j: integer 'many', k: real 'few'";
  const std::string elements =
      "'x', real '1.5', integer '7', boolean 'true', data 'QUJD', double '2.5', "
      "date '2009-03-07T08:05:09Z', date 'none', integer 'many', real 'few'";
  const std::string f = "{" + entries + ", z: [{}, " + elements + "]}";
  CheckRows({
      {"{f: 'x', to: {}} earlier", [](N n) { n.Copy("f", n.child("to")); },
       "{f: 'x', to: {f: 'x'}}"},
      {"{f: 'x', to: {}}", [](N n) { n.Move("f", n.child("to"), true, "t"); }, "{to: {t: 'x'}}"},
      {"{f: {}, to: {}}", move_f, "{to: {f: {}}} Source does not exist."},
      {"{to: {}, f: " + f + "}", append, "{to: " + f + ", f: " + f + "}"},
      {"{to: [], f: {" + entries + "}}", append, "{to: [" + elements + "], f: {" + entries + "}}"},
      {"{to: [], f: " + f + "}", move_f, "{to: [" + f + "]}"},
      {"{to: {a: '1', c: integer '2'}, f: {a: 'x', b: ''}}", append,
       "{to: {a: 'x', c: integer '2', b: ''}, f: {a: 'x', b: ''}}"},
      {"['a']", [](N n) { n.AppendDict(Ref<plistDict>(&n)); }, "['a', 'a']"},
      {"{to: {}, f: {k: 'v'}}", [](N n) { n.child("to")->AppendAsNewChild(n.child("f")); },
       "{to: {f: {k: 'v'}}, f: {k: 'v'}}"},
      {"{f: {k: 'v'}, t: 'x'}", [](N n) { n.Rename("f", "new"); }, "{t: 'x', new: {k: 'v'}}"},
      {"['a', 'b', 'c']", [](N n) { n.Rename("0", "x"); }, "['b', 'c', 'a']"},
      {"{c: {x: 'y'}}", copy_and_change, "'{c: {x: 'z'}}' ="},
  });
}

TEST(Move, KeepsASourceThatFindsNotAllOfItsPlaceAndReportsIt) {
  CheckRows({
      {"{f: 'x'}", [](N n) { n.Move("f", nullptr); }, "= Destination is nil"},
      {"{to: {}}", move_f, "= Source does not exist."},
      {"{s: 'x', F: {}}", [](N n) { n.Rename("s", "f"); }, "= Key f already exists."},
      {"{s: 'x'}", [](N n) { n.Move("s", Ref<plistDict>(&n), true, "S"); }, "="},
      {"{5: 'x', to: {}}", [](N n) { n.Move("5", n.child("to")); },
       "{5: 'x', to: {5: 'x'}} root is not an array"},
      {"{}", [](N n) { n.AppendDict(nullptr); }, "use of a nil object: ="},
      {"{f: 'x', to: {f: integer '1'}}", move_f, "= Type Mismatch: f is a integer"},
      {"{f: {s: 'x'}, to: {f: 'in the way'}}", move_f, "= Child exists: f already exists"},
      {"{f: {a: 'x'}, to: {f: {a: integer '1'}}}", move_f, "= Type Mismatch: a is a integer"},
      {"{f: {a: 'x', b: 'y'}, to: {f: {a: integer '1'}}}", move_f,
       "{f: {a: 'x', b: 'y'}, to: {f: {a: integer '1', b: 'y'}}} f could not be moved as a whole"},
      {"{f: data '', to: {f: []}}", move_f, "= Type Mismatch: f is a array"},
      {"{f: data '', to: {f: 'x'}}", move_f, "{to: {f: data ''}}"},
  });
}

TEST(Move, EndsWhereSourceAndDestinationAreInsideEachOther) {
  CheckRows({
      {"{f: {a: {}}}", [](N n) { n.Move("f", n.child("f")->child("a")); },
       "= Destination is inside f"},
      {"{f: {f: {f: {k: 'v'}}}}", move_up, "= f is inside the destination"},
      {"{f: {x: '1', b: {w: '4'}, f: {y: '2', b: {z: '3'}}}}", move_up,
       "{f: {x: '1', b: {w: '4', z: '3'}, y: '2'}}"},
      {"{f: {f: {f: {q: '5'}, r: '6'}}}", move_up,
       "{f: {f: {f: {q: '5'}, r: '6'}, r: '6'}} f could not be moved as a whole"},
  });
}

}  // namespace
}  // namespace morvantile
