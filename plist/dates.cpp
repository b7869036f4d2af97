#include "platform/base/folding.h"
#include "platform/base/text.h"
#include "plist/plistDict.h"
#include "plist/report.h"

namespace morvantile {
namespace {

std::string DateText(plistDict& node, const Date& date) {
  return Str(date.Year()) + "-" + node.MakeTwo(date.Month()) + "-" + node.MakeTwo(date.Day()) +
         "T" + node.MakeTwo(date.Hour()) + ":" + node.MakeTwo(date.Minute()) + ":" +
         node.MakeTwo(date.Second()) + "Z";
}

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

std::string ColorText(plistDict& node, Color color) {
  return node.PaddedHex(color.Red()) + node.PaddedHex(color.Green()) + node.PaddedHex(color.Blue());
}

std::int64_t Channel(const std::string& digits) { return CInt64("&h" + digits); }

}  // namespace

void plistDict::SetDate(std::string_view key, const Ref<Date>& value) {
  if (CheckType(key, "date") != 0) Store(key, "date", DateText(*this, *value));
}

Ref<Date> plistDict::GetDate(std::string_view key, const Ref<Date>& standard) {
  if (!Exists(key)) SetDate(key, standard);
  if (!TypeOK(key)) return nullptr;
  Ref<Date> date = New<Date>();
  const std::string text = GetValue(key);
  const DateParts parts = Split(text);
  if (ReadDay(parts.day, *date)) {
    ReadTime(parts.time, *date);
  } else {
    SetError(true, std::string("Could not create date object from ")
                       .append(key)
                       .append("(")
                       .append(text)
                       .append(")"));
  }
  return date;
}

Ref<Date> plistDict::GetDate(std::string_view key) { return GetDate(key, New<Date>()); }

void plistDict::AppendDate(const Ref<Date>& value) {
  if (CheckArray()) AppendScalar("date", DateText(*this, *value));
}

std::string plistDict::MakeTwo(std::int64_t n) { return n > 9 ? Str(n) : "0" + Str(n); }

void plistDict::SetColor(std::string_view key, Color value) {
  Store(key, "string", ColorText(*this, value));
}

Color plistDict::GetColor(std::string_view key, Color standard) {
  if (!Exists(key)) SetColor(key, standard);
  const std::string type = GetType(key);
  if (!SameText(type, "string")) {
    SetError(true, report::TypeMismatch(key, type));
    return {};
  }
  const std::string text = GetValue(key);
  return RGB(Channel(Left(text, 2)), Channel(Mid(text, 3, 2)), Channel(Right(text, 2)), 0);
}

Color plistDict::GetColor(std::string_view key) { return GetColor(key, RGB(0, 0, 0, 0)); }

void plistDict::AppendColor(Color value) { AppendScalar("string", ColorText(*this, value)); }

std::string plistDict::PaddedHex(std::int64_t n) {
  const std::string digits = Hex(n);
  return Len(digits) < 2 ? "0" + digits : digits;
}

}  // namespace morvantile
