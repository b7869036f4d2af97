#include "platform/core/date.h"

#include <gtest/gtest.h>

#include <ctime>
#include <string>

#include "platform/text/text.h"

namespace morvantile {
namespace {

std::string Fields(const Date& date) {
  return Str(date.Year()) + "-" + Str(date.Month()) + "-" + Str(date.Day()) + " " +
         Str(date.Hour()) + ":" + Str(date.Minute()) + ":" + Str(date.Second());
}

TEST(Date, CarriesOverLikeACalendar) {
  EXPECT_EQ(Fields(Date(2009, 13, 1)), "2010-1-1 0:0:0");
  EXPECT_EQ(Fields(Date(2009, 2, 30)), "2009-3-2 0:0:0");
  EXPECT_EQ(Fields(Date(2008, 2, 30)), "2008-3-1 0:0:0");
  EXPECT_EQ(Fields(Date(1900, 2, 29)), "1900-3-1 0:0:0") << "no leap year";
  EXPECT_EQ(Fields(Date(2000, 2, 29)), "2000-2-29 0:0:0") << "a leap year";
  EXPECT_EQ(Fields(Date(2009, 3, 0)), "2009-2-28 0:0:0");
  EXPECT_EQ(Fields(Date(2009, 0, 31)), "2008-12-31 0:0:0");
  EXPECT_EQ(Fields(Date(2009, 1, 1, -1, 0, 0)), "2008-12-31 23:0:0");
  EXPECT_EQ(Fields(Date(2008, 12, 31, 23, 59, 60)), "2009-1-1 0:0:0");
  EXPECT_EQ(Fields(Date(-4, 2, 29)), "-4-2-29 0:0:0");
}

TEST(Date, CountsEveryDayOfFourCenturies) {
  Date date(1600, 1, 1);
  int days = 0;
  for (; date.Year() < 2000; ++days) date.SetDay(date.Day() + 1);
  EXPECT_EQ(Fields(date), "2000-1-1 0:0:0");
  EXPECT_EQ(days, 146097);
}

TEST(Date, SettersCarryOverAtOnce) {
  Date date(2009, 1, 31, 8, 5, 9);
  date.SetMonth(2);
  date.SetMinute(-1);
  EXPECT_EQ(Fields(date), "2009-3-3 7:59:9");
}

TEST(Date, SurvivesNumbersOfAnySize) {
  for (const std::int64_t number : {INT64_MAX, INT64_MIN}) {
    Date date(number, number, number, number, number, number);
    for (int i = 0; i < 100; ++i) date.SetMonth(number);
    date.SetSecond(number);
    EXPECT_TRUE(date.Month() >= 1 && date.Month() <= 12);
    EXPECT_TRUE(date.Day() >= 1 && date.Day() <= 31);
  }
}

TEST(Date, IsNewlyMadeThePresentMomentOnTheWall) {
  const auto wall = [] {
    const std::time_t now = std::time(nullptr);
    std::tm fields{};
    localtime_r(&now, &fields);
    return Fields(Date(fields.tm_year + 1900, fields.tm_mon + 1, fields.tm_mday, fields.tm_hour,
                       fields.tm_min, fields.tm_sec));
  };
  const std::string before = wall();
  const std::string date = Fields(Date());
  EXPECT_TRUE(date == before || date == wall());
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
