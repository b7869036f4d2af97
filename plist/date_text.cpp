#include "plist/date_text.h"

#include "platform/text/folding.h"
#include "platform/text/text.h"

namespace morvantile {
namespace {

struct DateParts {
  std::string day;
  std::string time;
};

DateParts Split(const std::string& text) {
  const std::int64_t mark = InStr(text, "T");
  if (mark == 0) return {text, ""};
  std::string time = Right(text, Len(text) - mark);
  if (SameText(Right(time, 1), "Z")) time.pop_back();
  return {Left(text, mark - 1), time};
}

bool ReadDay(const std::string& day, Date& date) {
  return ParseDate(
      NthField(day, "-", 2) + "/" + NthField(day, "-", 3) + "/" + NthField(day, "-", 1), date);
}

void ReadTime(const std::string& time, Date& date) {
  if (time.empty()) return;
  date.SetHour(CInt64(NthField(time, ":", 1)));
  date.SetMinute(CInt64(NthField(time, ":", 2)));
  date.SetSecond(CInt64(NthField(time, ":", 3)));
}

}  // namespace

std::string DateText(const plistDict& node, const Date& date) {
  return Str(date.Year()) + "-" + node.MakeTwo(date.Month()) + "-" + node.MakeTwo(date.Day()) +
         "T" + node.MakeTwo(date.Hour()) + ":" + node.MakeTwo(date.Minute()) + ":" +
         node.MakeTwo(date.Second()) + "Z";
}

bool ReadDateText(const std::string& text, Date& date) {
  const DateParts parts = Split(text);
  if (!ReadDay(parts.day, date)) return false;
  ReadTime(parts.time, date);
  return true;
}

}  // namespace morvantile
