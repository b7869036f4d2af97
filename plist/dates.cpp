#include "platform/text/folding.h"
#include "platform/text/text.h"
#include "plist/date_text.h"
#include "plist/plistDict.h"
#include "plist/report.h"

namespace morvantile {
namespace {

std::string ColorText(const plistDict& node, Color color) {
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
  if (!ReadDateText(text, *date)) {
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

std::string plistDict::MakeTwo(std::int64_t n) const { return n > 9 ? Str(n) : "0" + Str(n); }

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

std::string plistDict::PaddedHex(std::int64_t n) const {
  const std::string digits = Hex(n);
  return Len(digits) < 2 ? "0" + digits : digits;
}

}  // namespace morvantile
