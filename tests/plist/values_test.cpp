#include "tests/plist/rows.h"

namespace morvantile {
namespace {

TEST(Values, AMissingOneIsStoredAsItsDefault) {
  CheckRows({
      {"{}", [](N n) { return n.GetInteger("k", 7); }, "7 {k: integer '7'}"},
      {"{}", [](N n) { return n.GetInteger("k"); }, "0 {k: integer '0'}"},
      {"{}", [](N n) { return n.GetReal("k", 33.9); }, "33.9 {k: real '33.9'}"},
      {"{}", [](N n) { return n.GetReal("k"); }, "0 {k: real '0'}"},
      {"{}", [](N n) { return n.GetBoolean("k"); }, "true {k: boolean 'true'}"},
      {"{}", [](N n) { return n.GetBoolean("k", false); }, "false {k: boolean 'false'}"},
      {"{}", [](N n) { return n.GetString("k"); }, "'' {k: ''}"},
      {"{}", [](N n) { return n.GetData("k", "x"); }, "'x' {k: 'x'}"},
      {"{}", [](N n) { return n.GetColor("k"); }, "0 {k: '000000'}"},
      {"{}", [](N n) { return n.GetColor("k", RGB(10, 20, 30, 40)); }, "A141E {k: '0A141E'}"},
      {"{}", [](N n) { return n.GetDate("k", New<Date>(987, 3, 7)); },
       "987-03-07T00:00:00Z {k: date '987-03-07T00:00:00Z'}"},
      {"{}", [](N n) { return n.GetDate("k", nullptr); }, "use of a nil object: ="},
  });
  const Ref<plistDict> node = New<plistDict>();
  EXPECT_EQ(node->GetDate("now")->Year(), New<Date>()->Year());
}

TEST(Values, KeepTheFirstSpellingAndTheFirstTypeOfTheirKey) {
  CheckRows({
      {"{K: 'x'} earlier", [](N n) { n.SetString("k", "y"); }, "{K: 'y'}"},
      {"{k: integer '5'}", [](N n) { n.SetInteger("k", -2.9); }, "{k: integer '-2'}"},
      {"{}", [](N n) { n.SetReal("k", 1.5); }, "{k: real '1.5'}"},
      {"{}", [](N n) { n.SetBoolean("k", false); }, "{k: boolean 'false'}"},
      {"{k: integer '1'} earlier", [](N n) { n.SetData("k", "x"); }, "{k: data 'x'} earlier"},
      {"{}", [](N n) { n.SetColor("k", RGB(1, 16, 255, 9)); }, "{k: '0110FF'}"},
      {"{k: 'a'}", [](N n) { n.SetInteger("k", 5); }, "= Type Mismatch: k is a string"},
      {"{k: 'x'}", [](N n) { n.SetDate("k", nullptr); }, "= Type Mismatch: k is a string"},
      {"{}", [](N n) { n.SetDate("k", nullptr); }, "use of a nil object: ="},
  });
}

TEST(Values, AreReadAsAnotherTypeOrReportWhyNot) {
  const auto integer = [](N n) { return n.GetInteger("k"); };
  const auto real = [](N n) { return n.GetReal("k"); };
  const auto text = [](N n) { return n.GetString("k"); };
  const auto boolean = [](N n) { return n.GetBoolean("k"); };
  const auto date = [](N n) { return n.GetDate("k"); };
  const auto color = [](N n) { return n.GetColor("k"); };
  CheckRows({
      {"{k: real '-3.7'}", integer, "-3 ="},
      {"{k: '12 apples'} earlier", real, "12 ="},
      {"{k: integer '9007199254740993'}", integer, "9007199254740993 ="},
      {"{k: Date ''}", integer, "-1 = Type Mismatch: k is a date"},
      {"{k: Date ''}", real, "-1 = Type Mismatch: k is a date"},
      {"{k: {}}", integer, "0 = Illegal Type: k is a dict"},
      {"{k: []}", real, "0 = Illegal Type: k is a array"},
      {"{k: {}}", text, "'' = Key k does not exist"},
      {"{k: Dict 'x'}", text, "'' = Illegal Type: k is a Dict"},
      {"{k: boolean 'TRUE'} earlier", boolean, "true = earlier"},
      {"{k: boolean 'yes'}", boolean, "false ="},
      {"{k: 'true'}", boolean, "false = Type Mismatch: k is a string"},
      {"{k: '2009-03-07'}", date, "2009-03-07T00:00:00Z ="},
      {"{k: date '2009-11-17T18:15:19Z'} earlier", date, "2009-11-17T18:15:19Z ="},
      {"{k: '2009-03-07T23:59:60z'}", date, "2009-03-08T00:00:00Z ="},
      {"{k: '\r2009-03-07T08:05Z\r'}", date, "2009-03-07T08:05:00Z ="},
      {"{k: {}}", date, "nil = Illegal Type: k is a dict"},
      {"{k: '0110FF'} earlier", color, "110FF ="},
      {"{k: 'ff80'}", color, "FF8080 ="},
      {"{k: 'no colour'}", color, "0 ="},
      {"{k: '7'}", color, "70007 ="},
      {"{k: integer '5'}", color, "0 = Type Mismatch: k is a integer"},
      {"{k: 'hello'}", [](N n) { return n.GetDate("k") != nullptr; },
       "true = Could not create date object from k(hello)"},
  });
}

TEST(Values, AreAppendedToAnArrayAlone) {
  CheckRows({
      {"[] earlier", [](N n) { n.AppendString("x"); }, "['x']"},
      {"['x']", [](N n) { n.AppendDict(); }, "['x', {}]"},
      {"['x', {}]", [](N n) { n.AppendArray(); }, "['x', {}, []]"},
      {"[]", [](N n) { n.AppendInteger(9007199254740993); }, "[integer '9007199254740993']"},
      {"[]", [](N n) { n.AppendReal(1.5); }, "[real '1.5']"},
      {"[]", [](N n) { n.AppendDouble(2.5); }, "[double '2.5']"},
      {"[]", [](N n) { n.AppendBoolean(false); }, "[boolean 'false']"},
      {"[]", [](N n) { n.AppendData("QUJD"); }, "[data 'QUJD']"},
      {"[]", [](N n) { n.AppendColor(RGB(0, 16, 255, 0)); }, "['0010FF']"},
      {"[]", [](N n) { n.AppendDate(New<Date>(987, 3, 7)); }, "[date '987-03-07T00:00:00Z']"},
      {"{} earlier", [](N n) { n.AppendString("x"); }, "= root is not an array"},
      {"{}", [](N n) { n.AppendArray(); }, "= root is not an array"},
      {"{}", [](N n) { n.AppendDate(nullptr); }, "= root is not an array"},
  });
}

TEST(Values, AreKeptApartFromTypesAndMarks) {
  CheckRows({
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
  node->types.SetValue("K", "string");
  EXPECT_EQ(Sketch(*node), "{K: 'v'}") << "what was known of a key comes with its type";
  EXPECT_EQ(node->values.Count() + node->searched.Count(), 2U) << "and is known once";
  node->types.Clear();
  EXPECT_EQ(node->values.Count() + node->searched.Count(), 2U);
  node->values.Remove("k");
  EXPECT_TRUE(!node->values.HasKey("k") && node->searched.Value("k"));
  node->searched.Clear();
  EXPECT_EQ(node->values.Count() + node->searched.Count(), 0U);
}

}  // namespace
}  // namespace morvantile
