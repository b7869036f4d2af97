// Dates of the calendar.

#ifndef MORVANTILE_PLATFORM_CORE_DATE_H
#define MORVANTILE_PLATFORM_CORE_DATE_H

#include <cstdint>
#include <string_view>

#include "platform/core/export.h"
#include "platform/core/ref.h"

namespace morvantile {

// A day and a time of day, as a calendar and a clock on the wall show them. Only the moment that a
// new Date holds comes from the machine's time zone; otherwise zones, their summer time and leap
// seconds play no part.
//
// The calendar is the Gregorian one, also before its introduction; the year before 1 is 0. A field
// outside its range carries over into the others: the month 13 is January of the next year, 30
// February is 1 or 2 March, the day 0 is the last of the month before, and the hour -1 is 23
// o'clock of the day before. Every setter carries over at once. Numbers beyond 10^15 either way are
// taken as that.
class MORVANTILE_API Date : public Object {
 public:
  // The present moment.
  Date();
  Date(std::int64_t year, std::int64_t month, std::int64_t day, std::int64_t hour = 0,
       std::int64_t minute = 0, std::int64_t second = 0);

  // The fields; the year may be 0 or negative.
  std::int64_t Year() const { return year_; }
  std::int64_t Month() const { return month_; }    // 1 to 12
  std::int64_t Day() const { return day_; }        // 1 to 31
  std::int64_t Hour() const { return hour_; }      // 0 to 23
  std::int64_t Minute() const { return minute_; }  // 0 to 59
  std::int64_t Second() const { return second_; }  // 0 to 59

  // Set one field, and carry over from it.
  void SetYear(std::int64_t year);
  void SetMonth(std::int64_t month);
  void SetDay(std::int64_t day);
  void SetHour(std::int64_t hour);
  void SetMinute(std::int64_t minute);
  void SetSecond(std::int64_t second);

  // Sets all fields, and carries over from all of them together.
  void Set(std::int64_t year, std::int64_t month, std::int64_t day, std::int64_t hour,
           std::int64_t minute, std::int64_t second);

 private:
  void CarryOver();

  std::int64_t year_ = 0;
  std::int64_t month_ = 0;
  std::int64_t day_ = 0;
  std::int64_t hour_ = 0;
  std::int64_t minute_ = 0;
  std::int64_t second_ = 0;
};

// Sets `date` to midnight of the day that `text` names by month, day and year, in this order: three
// numbers in digits, separated by "/", blanks around them allowed. The year is taken as it is;
// 99 is not 1999. Numbers out of range carry over. Returns false and leaves `date` alone if the
// text has another form.
MORVANTILE_API bool ParseDate(std::string_view text, Date& date);

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_CORE_DATE_H
