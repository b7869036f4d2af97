#include "platform/core/date.h"

#include <algorithm>
#include <chrono>
#include <ctime>
#include <optional>
#include <string>

#include "platform/core/number.h"
#include "platform/text/text.h"

namespace morvantile {
namespace {

std::int64_t Bounded(std::int64_t value) {
  constexpr std::int64_t kBound = 1'000'000'000'000'000;
  return std::clamp(value, -kBound, kBound);
}

std::int64_t FloorOfQuotient(std::int64_t value, std::int64_t divisor) {
  return (value >= 0 ? value : value - divisor + 1) / divisor;
}

// Brings `low` into the range from 0 to `size` - 1 and adds the surplus to `high`.
void Carry(std::int64_t& low, std::int64_t& high, std::int64_t size) {
  const std::int64_t surplus = FloorOfQuotient(low, size);
  low -= surplus * size;
  high += surplus;
}

std::optional<std::int64_t> WholeNumber(std::string_view text) {
  const bool has_other = text.find_first_not_of("0123456789 \t\r\n") != std::string_view::npos;
  if (has_other || !ReadsAsNumber(text)) return std::nullopt;
  return Truncate(CDbl(text));
}

}  // namespace

Date::Date() : Date(1970, 1, 1) {
  const std::time_t now = std::time(nullptr);
  std::tm fields{};
  if (localtime_r(&now, &fields) == nullptr) return;
  Set(std::int64_t{fields.tm_year} + 1900, std::int64_t{fields.tm_mon} + 1, fields.tm_mday,
      fields.tm_hour, fields.tm_min, fields.tm_sec);
}

Date::Date(std::int64_t year, std::int64_t month, std::int64_t day, std::int64_t hour,
           std::int64_t minute, std::int64_t second) {
  Set(year, month, day, hour, minute, second);
}

void Date::SetYear(std::int64_t year) { Set(year, month_, day_, hour_, minute_, second_); }

void Date::SetMonth(std::int64_t month) { Set(year_, month, day_, hour_, minute_, second_); }

void Date::SetDay(std::int64_t day) { Set(year_, month_, day, hour_, minute_, second_); }

void Date::SetHour(std::int64_t hour) { Set(year_, month_, day_, hour, minute_, second_); }

void Date::SetMinute(std::int64_t minute) { Set(year_, month_, day_, hour_, minute, second_); }

void Date::SetSecond(std::int64_t second) { Set(year_, month_, day_, hour_, minute_, second); }

void Date::Set(std::int64_t year, std::int64_t month, std::int64_t day, std::int64_t hour,
               std::int64_t minute, std::int64_t second) {
  year_ = Bounded(year);
  month_ = Bounded(month);
  day_ = Bounded(day);
  hour_ = Bounded(hour);
  minute_ = Bounded(minute);
  second_ = Bounded(second);
  CarryOver();
}

// The calendar repeats itself every 400 years, and a chrono::year holds a few thousand, so what
// goes beyond 400 years is set aside meanwhile.
void Date::CarryOver() {
  constexpr std::int64_t kYears = 400;
  constexpr std::int64_t kDays = 146097;  // in 400 years
  Carry(second_, minute_, 60);
  Carry(minute_, hour_, 60);
  Carry(hour_, day_, 24);
  std::int64_t month_from_zero = month_ - 1;
  Carry(month_from_zero, year_, 12);
  std::int64_t eras = 0;
  Carry(year_, eras, kYears);
  Carry(day_, eras, kDays);
  const std::chrono::year_month_day date(
      std::chrono::sys_days(std::chrono::year(static_cast<int>(year_)) /
                            static_cast<int>(month_from_zero + 1) / 1) +
      std::chrono::days(day_ - 1));
  year_ = static_cast<int>(date.year()) + eras * kYears;
  month_ = static_cast<unsigned>(date.month());
  day_ = static_cast<unsigned>(date.day());
}

bool ParseDate(std::string_view text, Date& date) {
  if (CountFields(text, "/") != 3) return false;
  const auto month = WholeNumber(NthField(text, "/", 1));
  const auto day = WholeNumber(NthField(text, "/", 2));
  const auto year = WholeNumber(NthField(text, "/", 3));
  if (!month || !day || !year) return false;
  date.Set(*year, *month, *day, 0, 0, 0);
  return true;
}

}  // namespace morvantile
