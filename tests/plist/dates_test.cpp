#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>

#include "platform/text/text.h"
#include "tests/plist/sketch.h"

namespace morvantile {
namespace {

class Dates : public ::testing::Test {
 protected:
  Ref<plist> document = NewDocument();
  plistDict& root = *document->root;

  // The date under the key, as text again.
  std::string Read(const char* key) {
    const Ref<Date> date = root.GetDate(key, nullptr);
    const Ref<plistDict> copy = New<plistDict>();
    copy->SetDate("k", date);
    return copy->values.Value("k");
  }
};

TEST_F(Dates, AreStoredAsTheyStandOnTheWallInAnyZone) {
  for (const char* zone : {"UTC", "America/New_York", "Pacific/Apia"}) {
    setenv("TZ", zone, 1);
    tzset();
    root.SetDate("d", New<Date>(2009, 3, 7, 8, 5, 9));
    EXPECT_EQ(Sketch(root), R"({d: date "2009-03-07T08:05:09Z"})");
    EXPECT_EQ(Read("d"), "2009-03-07T08:05:09Z");
  }
  unsetenv("TZ");
  tzset();
  root.SetDate("old", New<Date>(987, 3, 7, 8, 5, 9));
  EXPECT_EQ(root.values.Value("old"), "987-03-07T08:05:09Z");
  EXPECT_EQ(Read("old"), "987-03-07T08:05:09Z");
}

TEST_F(Dates, AreReadFromAnyScalarWithOrWithoutATime) {
  root.SetString("day", "2009-03-07");
  root.SetString("rest", "2009-03-07T23:59:60z");
  root.SetString("lines", "\r2009-03-07T08:05:09Z\r");
  EXPECT_EQ(Read("day"), "2009-03-07T00:00:00Z");
  EXPECT_EQ(Read("rest"), "2009-03-08T00:00:00Z");
  EXPECT_EQ(Read("lines"), "2009-03-07T08:05:09Z");
  EXPECT_EQ(Report(document), "");
}

TEST_F(Dates, ATextThatIsNoneGivesADateAndAReport) {
  root.SetString("s", "hello");
  EXPECT_TRUE(root.GetDate("s") != nullptr);
  EXPECT_EQ(Report(document), "Could not create date object from s(hello)");
  root.AddChild("c");
  EXPECT_TRUE(root.GetDate("c") == nullptr);
  EXPECT_EQ(Report(document), "Illegal Type: c is a dict");
}

TEST_F(Dates, AMissingKeyGetsTheDefaultOrThePresentMoment) {
  const Ref<Date> standard = New<Date>(2009, 3, 7);
  EXPECT_FALSE(root.GetDate("d", standard) == standard) << "a new object";
  EXPECT_EQ(root.values.Value("d"), "2009-03-07T00:00:00Z");
  const Ref<Date> now = root.GetDate("now");
  EXPECT_EQ(Left(root.values.Value("now"), 5), Str(now->Year()) + "-");
}

TEST_F(Dates, NilIsRefusedBeforeAnythingIsStored) {
  EXPECT_THROW(root.SetDate("d", nullptr), NilObjectException);
  EXPECT_THROW(root.GetDate("d", nullptr), NilObjectException);
  EXPECT_EQ(root.count(), 0);
  root.SetString("s", "x");
  root.SetDate("s", nullptr);
  EXPECT_EQ(Report(document), "Type Mismatch: s is a string");
}

TEST_F(Dates, ColoursAreStringsOfSixDigits) {
  root.SetColor("c", RGB(1, 2, 255, 9));
  EXPECT_EQ(Sketch(root), R"({c: string "0102FF"})");
  EXPECT_EQ(root.GetColor("c"), RGB(1, 2, 255, 0));
  root.SetDate("c", New<Date>());
  EXPECT_EQ(Report(document), "Type Mismatch: c is a string");
  EXPECT_EQ(root.GetColor("new", RGB(10, 20, 30, 40)), RGB(10, 20, 30, 0));
}

TEST_F(Dates, ColoursAreReadFromAnyString) {
  for (const auto& [text, color] : {std::pair{"FF8000", RGB(255, 128, 0, 0)},
                                    {"ff80", RGB(255, 128, 128, 0)},
                                    {"", Color()},
                                    {"no colour", Color()},
                                    {"7", RGB(7, 0, 7, 0)}}) {
    root.SetString("s", text);
    EXPECT_EQ(root.GetColor("s"), color) << text;
  }
  root.SetInteger("i", 5);
  EXPECT_EQ(root.GetColor("i", RGB(1, 1, 1, 0)), Color());
  EXPECT_EQ(Report(document), "Type Mismatch: i is a integer");
}

TEST_F(Dates, SmallNumbersArePadded) {
  EXPECT_EQ(root.MakeTwo(0) + root.MakeTwo(9) + root.MakeTwo(10) + root.MakeTwo(123), "000910123");
  EXPECT_EQ(root.PaddedHex(0) + root.PaddedHex(10) + root.PaddedHex(4095), "000AFFF");
}

}  // namespace
}  // namespace morvantile
