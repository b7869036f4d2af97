#include <cstdlib>
#include <ctime>

#include "tests/plist/rows.h"

namespace morvantile {
namespace {

TEST(Dates, AreStoredAsTheyStandOnTheWallInAnyZone) {
  for (const char* zone : {"UTC", "America/New_York", "Pacific/Apia", ""}) {
    zone[0] == '\0' ? unsetenv("TZ") : setenv("TZ", zone, 1);
    tzset();
    Check({
        {"{}", [](N n) { n.SetDate("d", New<Date>(987, 3, 7, 8, 5, 9)); },
         "{d: date '987-03-07T08:05:09Z'}"},
        {"{d: date '2009-11-07T18:15:19Z'} earlier", [](N n) { return n.GetDate("d"); },
         "2009-11-07T18:15:19Z ="},
    });
  }
}

TEST(Dates, AreReadFromAnyScalarWithOrWithoutATime) {
  Check({
      {"{d: '2009-03-07'}", [](N n) { return n.GetDate("d"); }, "2009-03-07T00:00:00Z ="},
      {"{d: '2009-03-07T23:59:60z'}", [](N n) { return n.GetDate("d"); }, "2009-03-08T00:00:00Z ="},
      {"{d: '\r2009-03-07T08Z\r'}", [](N n) { return n.GetDate("d"); }, "2009-03-07T08:00:00Z ="},
      {"{s: 'hello'}", [](N n) { return n.GetDate("s") != nullptr; },
       "true = Could not create date object from s(hello)"},
      {"{c: {}}", [](N n) { return n.GetDate("c"); }, "nil = Illegal Type: c is a dict"},
  });
}

TEST(Dates, AMissingKeyGetsTheDefaultOrThePresentMoment) {
  Check({
      {"{}", [](N n) { return n.GetDate("d", New<Date>(987, 3, 7)); },
       "987-03-07T00:00:00Z {d: date '987-03-07T00:00:00Z'}"},
      {"{}", [](N n) { return n.GetDate("d", nullptr); }, "use of a nil object: ="},
      {"{}", [](N n) { n.SetDate("d", nullptr); }, "use of a nil object: ="},
      {"{s: 'x'}", [](N n) { n.SetDate("s", nullptr); }, "= Type Mismatch: s is a string"},
  });
  const Ref<plistDict> node = New<plistDict>();
  const Ref<Date> standard = New<Date>(2009, 3, 7);
  EXPECT_FALSE(node->GetDate("d", standard) == standard) << "a new object";
  EXPECT_EQ(node->GetDate("now")->Year(), New<Date>()->Year());
  EXPECT_EQ(Left(node->GetString("now"), 5), Str(New<Date>()->Year()) + "-");
}

TEST(Colours, AreStringsOfSixDigitsReadFromAnyString) {
  Check({
      {"{}", [](N n) { n.SetColor("c", RGB(1, 2, 255, 9)); }, "{c: '0102FF'}"},
      {"{c: '0102FF'} earlier", [](N n) { return n.GetColor("c"); }, "102FF ="},
      {"{}", [](N n) { return n.GetColor("c", RGB(10, 20, 30, 40)); }, "A141E {c: '0A141E'}"},
      {"{}", [](N n) { return n.GetColor("c"); }, "0 {c: '000000'}"},
      {"{c: 'ff80'}", [](N n) { return n.GetColor("c"); }, "FF8080 ="},
      {"{c: ''}", [](N n) { return n.GetColor("c"); }, "0 ="},
      {"{c: 'no colour'}", [](N n) { return n.GetColor("c"); }, "0 ="},
      {"{c: '7'}", [](N n) { return n.GetColor("c"); }, "70007 ="},
      {"{c: '7'}", [](N n) { n.SetDate("c", nullptr); }, "= Type Mismatch: c is a string"},
      {"{i: integer '5'}", [](N n) { return n.GetColor("i", RGB(1, 1, 1, 0)); },
       "0 = Type Mismatch: i is a integer"},
  });
}

TEST(Padding, AddsAZeroToOneDigit) {
  Check({
      {"{}", [](N n) { return n.MakeTwo(0) + n.MakeTwo(9) + n.MakeTwo(10); }, "'000910' ="},
      {"{}", [](N n) { return n.PaddedHex(15) + n.PaddedHex(16) + n.PaddedHex(4095); },
       "'0F10FFF' ="},
  });
}

}  // namespace
}  // namespace morvantile
