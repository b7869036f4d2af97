#include "tests/plist/rows.h"

namespace morvantile {
namespace {

TEST(Move, CarriesScalarsByTheirTypesUnderTheOldOrANewKey) {
  Check({
      {"{s: 'x', to: {}} earlier", [](N n) { n.Copy("s", n.child("to")); },
       "{s: 'x', to: {s: 'x'}}"},
      {"{s: 'x', to: []}", [](N n) { n.Move("s", n.child("to")); }, "{to: ['x']}"},
      {"{s: 'x', to: {}}", [](N n) { n.Move("s", n.child("to"), true, "t"); }, "{to: {t: 'x'}}"},
  });
  const std::string entries =
      "r: real '1.5', i: integer '7', b: boolean 'true', x: data 'QUJD', "
      "d: date '2009-03-07T08:05:09Z', e: double '2.5', u: uid '12', "
      "p: date 'no date', q: integer 'many', v: real 'few'";
  const std::string elements =
      "real '1.5', integer '7', boolean 'true', data 'QUJD', "
      "date '2009-03-07T08:05:09Z', double '2.5', uid '12', "
      "date 'no date', integer 'many', real 'few'";
  const std::string all = "{" + entries + ", a: [{}, " + elements + "]}";
  Check({
      {"{to: {}, from: " + all + "}", [](N n) { n.child("to")->AppendDict(n.child("from")); },
       "{to: " + all + ", from: " + all + "}"},
      {"{to: [], from: {" + entries + "}}", [](N n) { n.child("to")->AppendDict(n.child("from")); },
       "{to: [" + elements + "], from: {" + entries + "}}"},
      {"{to: [], from: " + all + "}", [](N n) { n.Move("from", n.child("to")); },
       "{to: [" + all + "]}"},
  });
}

TEST(Move, ReportsWrongCallsAndChangesNothing) {
  Check({
      {"{s: 'x'}", [](N n) { n.Move("s", nullptr); }, "= Destination is nil"},
      {"{t: {}}", [](N n) { n.Move("no", n.child("t")); }, "= Source does not exist."},
      {"{s: 'x', F: {}}", [](N n) { n.Rename("s", "f"); }, "= Key f already exists."},
      {"{s: 'x'}", [](N n) { n.Rename("s", "S"); }, "= Key S already exists."},
      {"{s: 'x'}", [](N n) { n.Move("s", Ref<plistDict>(&n), true, "S"); }, "="},
      {"{s: {}}", [](N n) { n.Move("s", Ref<plistDict>(&n), true, ""); }, "="},
      {"{s: 'x', to: {s: integer '1'}}", [](N n) { n.Move("s", n.child("to")); },
       "= Type Mismatch: s is a integer"},
      {"{5: 'x', to: {}}", [](N n) { n.Move("5", n.child("to")); },
       "{5: 'x', to: {5: 'x'}} root is not an array"},
      {"{}", [](N n) { n.AppendDict(nullptr); }, "use of a nil object: ="},
  });
}

TEST(Move, KeepsASourceThatFindsNotAllOfItsPlace) {
  Check({
      {"{f: {s: 'x'}, to: {f: 'in the way'}}", [](N n) { n.Move("f", n.child("to")); },
       "= Child exists: f already exists"},
      {"{f: {a: 'x', b: 'y'}, to: {f: {a: integer '1'}}}", [](N n) { n.Move("f", n.child("to")); },
       "{f: {a: 'x', b: 'y'}, to: {f: {a: integer '1', b: 'y'}}} f could not be moved as a whole"},
      {"{f: {a: 'x'}, to: {f: {a: integer '1'}}}", [](N n) { n.Move("f", n.child("to")); },
       "= Type Mismatch: a is a integer"},
      {"{f: {l: data ''}, l: []}", [](N n) { n.child("f")->Move("l", Ref<plistDict>(&n)); },
       "= Type Mismatch: l is a array"},
      {"{f: {l: data ''}, l: 'x'}", [](N n) { n.child("f")->Move("l", Ref<plistDict>(&n)); },
       "{f: {}, l: data ''}"},
  });
}

TEST(Move, EndsWhereSourceAndDestinationAreInsideEachOther) {
  Check({
      {"{f: {a: {}}}", [](N n) { n.Move("f", n.child("f")->child("a")); },
       "= Destination is inside f"},
      {"{f: {f: {f: {k: 'v'}}}}", [](N n) { n.child("f")->Move("f", Ref<plistDict>(&n)); },
       "= f is inside the destination"},
      {"{a: {x: '1', b: {w: '4'}, a: {y: '2', b: {z: '3'}}}}",
       [](N n) { n.child("a")->Move("a", Ref<plistDict>(&n)); },
       "{a: {x: '1', b: {w: '4', z: '3'}, y: '2'}}"},
      {"{a: {a: {a: {q: '5'}, r: '6'}}}", [](N n) { n.child("a")->Move("a", Ref<plistDict>(&n)); },
       "{a: {a: {a: {q: '5'}, r: '6'}, r: '6'}} a could not be moved as a whole"},
      {"['a']", [](N n) { n.AppendDict(Ref<plistDict>(&n)); }, "['a', 'a']"},
  });
}

TEST(Move, ArrivesWithAnEmptyContainerThoughTheReportDoubtsIt) {
  Check({
      {"{f: {}, to: {}}", [](N n) { n.Move("f", n.child("to")); },
       "{to: {f: {}}} Source does not exist."},
  });
}

TEST(Move, RenamesAndInAnArrayMakesTheElementTheLast) {
  Check({
      {"{s: {k: 'v'}, t: 'x'}", [](N n) { n.Rename("s", "new"); }, "{t: 'x', new: {k: 'v'}}"},
      {"['a', 'b', 'c']", [](N n) { n.Rename("0", "x"); }, "['b', 'c', 'a']"},
  });
}

TEST(Append, OfANodeMergesItOrMakesAChildOfItsName) {
  Check({
      {"{i: '1', f: {i: '2', k: 'v'}}", [](N n) { n.AppendDict(n.child("f")); },
       "{i: '2', f: {i: '2', k: 'v'}, k: 'v'}"},
      {"{to: {}, f: {k: 'v'}}", [](N n) { n.child("to")->AppendAsNewChild(n.child("f")); },
       "{to: {f: {k: 'v'}}, f: {k: 'v'}}"},
      {"{to: {f: 'x'}, f: {k: 'v'}}", [](N n) { n.child("to")->AppendAsNewChild(n.child("f")); },
       "= Child exists: f already exists"},
  });
  const Ref<plist> document = Tree("{c: {x: 'y'}}");
  const Ref<plist> copy = document->root->PlistFromPlistDict(document->root);
  copy->root->child("c")->SetString("x", "z");
  EXPECT_EQ(Sketch(*copy->root) + Sketch(*document->root), "{c: {x: 'z'}}{c: {x: 'y'}}");
}

}  // namespace
}  // namespace morvantile
