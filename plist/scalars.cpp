#include "platform/core/number.h"
#include "platform/text/folding.h"
#include "platform/text/text.h"
#include "plist/plistDict.h"
#include "plist/report.h"
#include "plist/store/entries.h"

namespace morvantile {
namespace {

std::string_view WordFor(bool value) { return value ? "true" : "false"; }

}  // namespace

std::string plistDict::GetValue(std::string_view key, std::string_view standard) {
  if (const Entry* const entry = entries_.FindListed(key)) return std::string(TextOf(*entry, key));
  const std::string kept(key);
  SetString(kept, standard);
  return GetValue(kept);
}

std::string plistDict::GetValue(std::string_view key) { return GetValue(key, ""); }

std::string plistDict::GetString(std::string_view key, std::string_view standard) {
  return GetValue(key, standard);
}

std::string plistDict::GetString(std::string_view key) { return GetString(key, ""); }

std::string plistDict::GetData(std::string_view key, std::string_view standard) {
  return GetValue(key, standard);
}

std::string plistDict::GetData(std::string_view key) { return GetData(key, ""); }

std::int64_t plistDict::GetInteger(std::string_view key, std::int64_t standard) {
  const Entry* const entry = entries_.FindListed(key);
  if (entry == nullptr) {
    const std::string kept(key);
    SetInteger(kept, static_cast<double>(standard));
    return GetInteger(kept);
  }
  if (!TypeOK(*entry, key)) return 0;
  return IsDate(*entry, key) ? -1 : CInt64(TextOf(*entry, key));
}

std::int64_t plistDict::GetInteger(std::string_view key) { return GetInteger(key, 0); }

double plistDict::GetReal(std::string_view key, double standard) {
  const Entry* const entry = entries_.FindListed(key);
  if (entry == nullptr) {
    const std::string kept(key);
    SetReal(kept, standard);
    return GetReal(kept);
  }
  if (!TypeOK(*entry, key)) return 0;
  return IsDate(*entry, key) ? -1 : CDbl(TextOf(*entry, key));
}

double plistDict::GetReal(std::string_view key) { return GetReal(key, 0); }

// The text of an entry, and clears the report; "" with a report for an entry without one.
std::string_view plistDict::TextOf(const Entry& entry, std::string_view key) const {
  if (!entry.has_text) {
    SetError(true, std::string("Key ").append(key).append(" does not exist"));
    return "";
  }
  if (!TypeOK(entry, key)) return "";
  ClearReport();
  return entry.text.View();
}

// Whether the entry is a "date", which is no number; if so, with the report.
bool plistDict::IsDate(const Entry& entry, std::string_view key) const {
  if (!entry.type.Is(TypeWord::kDate)) return false;
  SetError(true, report::TypeMismatch(key, "date"));
  return true;
}

bool plistDict::GetBoolean(std::string_view key, bool standard) {
  const Entry* const entry = entries_.FindListed(key);
  if (entry == nullptr) {
    const std::string kept(key);
    SetBoolean(kept, standard);
    return GetBoolean(kept);
  }
  if (!SameText(entry->type.View(), "boolean")) {
    SetError(true, report::TypeMismatch(key, entry->type.View()));
    return false;
  }
  return SameText(entry->text.View(), "true");
}

bool plistDict::GetBoolean(std::string_view key) { return GetBoolean(key, true); }

void plistDict::SetString(std::string_view key, std::string_view value) {
  Store(key, "string", value);
}

void plistDict::SetInteger(std::string_view key, double value) {
  Store(key, "integer", Format(value, "-#"));
}

void plistDict::SetReal(std::string_view key, double value) { Store(key, "real", Str(value)); }

void plistDict::SetBoolean(std::string_view key, bool value) {
  Store(key, "boolean", WordFor(value));
}

void plistDict::SetData(std::string_view key, std::string_view value) {
  Entry& entry = entries_.List(key);
  entry.SetText(value);
  entry.SetMark(false);
  entry.SetType(TypeWord(TypeWord::kData));
}

void plistDict::AppendBoolean(bool value) { AppendScalar("boolean", WordFor(value)); }

// Stores a scalar, unless CheckType refuses it. The arguments may be the report, so that is cleared
// last, as in all operations.
void plistDict::Store(std::string_view key, std::string_view type, std::string_view text) {
  Entry& entry = entries_.List(key);
  if (entry.has_type && !SameText(entry.type.View(), type)) {
    SetError(true, report::TypeMismatch(key, entry.type.View()));
    return;
  }
  entry.SetText(text);
  entry.SetMark(false);
  entry.SetType(TypeWord(type));
  ClearReport();
}

}  // namespace morvantile
