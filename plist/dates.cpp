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
  const std::string kept(key);
  if (CheckType(kept, "date") != 0) Store(kept, "date", DateText(*this, *value));
}

Ref<Date> plistDict::GetDate(std::string_view key, const Ref<Date>& standard) {
  const std::string kept(key);
  if (!Exists(kept)) SetDate(kept, standard);
  if (!TypeOK(kept)) return nullptr;
  Ref<Date> date = New<Date>();
  const std::string text = GetValue(kept);
  if (!ReadDateText(text, *date)) {
    SetError(true, "Could not create date object from " + kept + "(" + text + ")");
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
  const std::string kept(key);
  if (!Exists(kept)) SetColor(kept, standard);
  const std::string type = GetType(kept);
  if (!SameText(type, "string")) {
    SetError(true, report::TypeMismatch(kept, type));
    return {};
  }
  const std::string text = GetValue(kept);
  return RGB(Channel(Left(text, 2)), Channel(Mid(text, 3, 2)), Channel(Right(text, 2)), 0);
}

Color plistDict::GetColor(std::string_view key) { return GetColor(key, RGB(0, 0, 0, 0)); }

void plistDict::AppendColor(Color value) { AppendScalar("string", ColorText(*this, value)); }

std::string plistDict::PaddedHex(std::int64_t n) const {
  const std::string digits = Hex(n);
  return Len(digits) < 2 ? "0" + digits : digits;
}

}  // namespace morvantile
