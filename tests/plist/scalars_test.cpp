#include "tests/plist/rows.h"

namespace morvantile {
namespace {

TEST(Scalars, GettersStoreTheirDefaultUnderAMissingKey) {
  Check({
      {"{}", [](N n) { return n.GetInteger("k", 7); }, "7 {k: integer '7'}"},
      {"{}", [](N n) { return n.GetInteger("k"); }, "0 {k: integer '0'}"},
      {"{}", [](N n) { return n.GetReal("k", 33.9); }, "33.9 {k: real '33.9'}"},
      {"{}", [](N n) { return n.GetReal("k"); }, "0 {k: real '0'}"},
      {"{}", [](N n) { return n.GetBoolean("k"); }, "true {k: boolean 'true'}"},
      {"{}", [](N n) { return n.GetBoolean("k", false); }, "false {k: boolean 'false'}"},
      {"{}", [](N n) { return n.GetString("k"); }, "'' {k: ''}"},
      {"{}", [](N n) { return n.GetData("k", "x"); }, "'x' {k: 'x'}"},
      {"{}", [](N n) { return n.GetValue("k", "y"); }, "'y' {k: 'y'}"},
  });
}

TEST(Scalars, SettersKeepTheFirstSpellingAndTheFirstTypeOfAKey) {
  Check({
      {"{k: 'x'} earlier", [](N n) { n.SetString("k", "y"); }, "{k: 'y'}"},
      {"{}", [](N n) { n.SetInteger("k", -2); }, "{k: integer '-2'}"},
      {"{I: integer '5'}", [](N n) { n.SetInteger("i", 2.9); }, "{I: integer '2'}"},
      {"{}", [](N n) { n.SetReal("k", 1.5); }, "{k: real '1.5'}"},
      {"{}", [](N n) { n.SetBoolean("k", false); }, "{k: boolean 'false'}"},
      {"{}", [](N n) { n.SetData("k", "QUJD"); }, "{k: data 'QUJD'}"},
      {"{k: 'a'}", [](N n) { n.SetInteger("k", 5); }, "= Type Mismatch: k is a string"},
      {"{c: {}}", [](N n) { n.SetString("c", "x"); }, "= Type Mismatch: c is a dict"},
      {"{k: integer '1'} earlier", [](N n) { n.SetData("k", "x"); }, "{k: data 'x'} earlier"},
  });
}

TEST(Scalars, NumbersAreReadFromEveryScalarButADate) {
  Check({
      {"{k: real '2.9'}", [](N n) { return n.GetInteger("k"); }, "2 ="},
      {"{k: real '-3.7'}", [](N n) { return n.GetInteger("k"); }, "-3 ="},
      {"{k: '12 apples'} earlier", [](N n) { return n.GetInteger("k"); }, "12 ="},
      {"{k: '12 apples'} earlier", [](N n) { return n.GetReal("k"); }, "12 ="},
      {"{k: '9007199254740993'}", [](N n) { return n.GetInteger("k"); }, "9007199254740993 ="},
      {"{k: Date ''}", [](N n) { return n.GetInteger("k"); }, "-1 = Type Mismatch: k is a date"},
      {"{k: Date ''}", [](N n) { return n.GetReal("k"); }, "-1 = Type Mismatch: k is a date"},
  });
}

TEST(Scalars, AContainerIsReadAsNothingWithAReport) {
  Check({
      {"{c: {}}", [](N n) { return n.GetInteger("c"); }, "0 = Illegal Type: c is a dict"},
      {"{c: []}", [](N n) { return n.GetReal("c"); }, "0 = Illegal Type: c is a array"},
      {"{c: {}}", [](N n) { return n.GetString("c"); }, "'' = Key c does not exist"},
      {"{c: Dict 'x'}", [](N n) { return n.GetString("c"); }, "'' = Illegal Type: c is a Dict"},
      {"{c: {}}", [](N n) { return n.GetBoolean("c"); }, "false = Type Mismatch: c is a dict"},
  });
}

TEST(Scalars, OnlyTrueUnderTheTypeBooleanIsTrue) {
  Check({
      {"{k: 'true'}", [](N n) { return n.GetBoolean("k"); },
       "false = Type Mismatch: k is a string"},
      {"{k: boolean 'TRUE'} earlier", [](N n) { return n.GetBoolean("k"); }, "true = earlier"},
      {"{k: boolean 'yes'}", [](N n) { return n.GetBoolean("k"); }, "false ="},
      {"{k: boolean 'true'} earlier", [](N n) { return n.GetString("k"); }, "'true' ="},
  });
}

TEST(Appends, NumberTheirElementsAndAreRefusedByADict) {
  Check({
      {"[] earlier", [](N n) { n.AppendString("x"); }, "['x']"},
      {"['x']", [](N n) { n.AppendDict(); }, "['x', {}]"},
      {"['x', {}]", [](N n) { n.AppendArray(); }, "['x', {}, []]"},
      {"[{}]", [](N n) { n.AppendInteger(9007199254740993); }, "[{}, integer '9007199254740993']"},
      {"[]", [](N n) { n.AppendReal(1.5); }, "[real '1.5']"},
      {"[]", [](N n) { n.AppendDouble(2.5); }, "[double '2.5']"},
      {"[]", [](N n) { n.AppendBoolean(false); }, "[boolean 'false']"},
      {"[]", [](N n) { n.AppendData("QUJD"); }, "[data 'QUJD']"},
      {"[]", [](N n) { n.AppendColor(RGB(0, 16, 255, 0)); }, "['0010FF']"},
      {"[]", [](N n) { n.AppendDate(New<Date>(987, 3, 7)); }, "[date '987-03-07T00:00:00Z']"},
      {"[]", [](N n) { n.AppendDate(nullptr); }, "use of a nil object: ="},
      {"{} earlier", [](N n) { n.AppendString("x"); }, "= root is not an array"},
      {"{} earlier", [](N n) { n.AppendArray(); }, "= root is not an array"},
      {"{} earlier", [](N n) { n.AppendDate(nullptr); }, "= root is not an array"},
      {"[double '2.5']", [](N n) { return n.GetReal("0"); }, "2.5 ="},
      {"[double '2.5']", [](N n) { n.SetReal("0", 1); }, "= Type Mismatch: 0 is a double"},
  });
}

TEST(Dictionaries, OfANodeAreIndependentOfEachOther) {
  Check({
      {"{k: 'v'}", [](N n) { n.values.Remove("k"); }, "{k: !}"},
      {"{k: 'v'}", [](N n) { n.values.Clear(); }, "{k: !}"},
      {"{k: 'v'}", [](N n) { n.types.Remove("k"); }, "{}"},
      {"{k: 'v'}", [](N n) { return n.types.Key(1); }, "position out of bounds: ="},
      {"{k: 'v'}", [](N n) { return n.types.Value("a"); }, "key not found: a: ="},
      {"{k: 'v'}", [](N n) { return n.values.Value("a"); }, "key not found: a: ="},
      {"{k: 'v'}", [](N n) { return n.searched.Value("k"); }, "key not found: k: ="},
  });
  const Ref<plistDict> node = New<plistDict>();
  node->values.SetValue("k", "v");
  node->searched.SetValue("k", true);
  EXPECT_EQ(node->count(), 0);
  node->types.SetValue("K", "string");
  EXPECT_EQ(Sketch(*node), "{K: 'v'}") << "what was known of a key comes with its type";
  EXPECT_TRUE(node->searched.Value("k"));
  node->types.Clear();
  EXPECT_EQ(node->values.Count() + node->searched.Count(), 2U);
  node->values.Remove("k");
  EXPECT_FALSE(node->values.HasKey("k"));
  EXPECT_TRUE(node->searched.HasKey("k"));
  node->searched.Clear();
  EXPECT_EQ(node->values.Count() + node->searched.Count(), 0U);
}

}  // namespace
}  // namespace morvantile
