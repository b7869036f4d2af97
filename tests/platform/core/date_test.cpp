#include "platform/core/date.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "platform/core/time.h"
#include "platform/process/shell.h"
#include "platform/text/text.h"

namespace morvantile {
namespace {

std::string Fields(const Date& date) {
  return Str(date.Year()) + "-" + Str(date.Month()) + "-" + Str(date.Day()) + " " +
         Str(date.Hour()) + ":" + Str(date.Minute()) + ":" + Str(date.Second());
}

TEST(Date, CarriesOverLikeTheStandardCalendar) {
  EXPECT_EQ(Fields(Date(1900, 2, 29)), "1900-3-1 0:0:0");
  EXPECT_EQ(Fields(Date(2000, 1, 1 + 146097)), "2400-1-1 0:0:0");
  EXPECT_EQ(Fields(Date(0, 3, 0)), "0-2-29 0:0:0");
  EXPECT_EQ(Fields(Date(-400, 0, 0)), "-401-11-30 0:0:0");
  EXPECT_EQ(Fields(Date(1'000'000, 1, 1)), "1000000-1-1 0:0:0");
  EXPECT_EQ(Fields(Date(2009, 14, 30)), "2010-3-2 0:0:0");
  EXPECT_EQ(Fields(Date(2009, 1, 1, -1, 0, 0)), "2008-12-31 23:0:0");
  EXPECT_EQ(Fields(Date(2008, 12, 31, 23, 59, 60)), "2009-1-1 0:0:0");
  Date date(2009, 1, 31, 8, 5, 9);
  date.SetMonth(2);
  date.SetMinute(-1);
  EXPECT_EQ(Fields(date), "2009-3-3 7:59:9") << "a setter carries over at once";
}

TEST(Delay, LastsAsLongAsIsAskedFor) {
  const double begin = Microseconds();
  for (const double seconds : {0.01, -1e300, std::nan("")}) Delay(seconds);
  EXPECT_GE(Microseconds() - begin, 10'000);
}

TEST(Date, SurvivesNumbersOfAnySize) {
  for (const std::int64_t number : {INT64_MAX, INT64_MIN}) {
    Date date(number, number, number, number, number, number);
    for (int i = 0; i < 100; ++i) date.SetMonth(number);
    EXPECT_TRUE(date.Month() >= 1 && date.Month() <= 12 && date.Day() >= 1 && date.Day() <= 31);
  }
}

TEST(Date, IsNewlyMadeThePresentMomentOnTheWall) {
  const auto wall = [] {
    Shell shell;
    shell.Execute("date '+%-Y-%-m-%-d %-H:%-M:%-S'");
    return shell.Result();
  };
  const std::string before = wall();
  const std::string date = Fields(Date()) + "\n";
  EXPECT_THAT(date, testing::AnyOf(before, wall()));
}

TEST(ParseDate, ReadsMonthDayYearAndLeavesTheDateElse) {
  Date date(1, 1, 1, 12, 0, 0);
  EXPECT_TRUE(ParseDate("03/7/2009", date));
  EXPECT_EQ(Fields(date), "2009-3-7 0:0:0");
  EXPECT_TRUE(ParseDate("12/31/ 99\r", date));
  EXPECT_EQ(Fields(date), "99-12-31 0:0:0");
  for (const char* text : {"", "//hello", "3/7", "3/7/", "3/7/2009/1", "a/7/2009", "3/-7/2009",
                           "3/7/2009x", "3/7/1e3", "/ /"}) {
    EXPECT_FALSE(ParseDate(text, date)) << text;
  }
  EXPECT_EQ(Fields(date), "99-12-31 0:0:0");
}

}  // namespace
}  // namespace morvantile
