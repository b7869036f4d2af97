#include "platform/text/folding.h"
#include "platform/text/text.h"
#include "plist/plistDict.h"
#include "plist/store/entries.h"

namespace morvantile {

void plistDict::AppendString(std::string_view value) { AppendScalar("string", value); }

void plistDict::AppendData(std::string_view value) { AppendScalar("data", value); }

void plistDict::AppendInteger(std::int64_t value) { AppendScalar("integer", Str(value)); }

void plistDict::AppendReal(double value) { AppendScalar("real", Str(value)); }

void plistDict::AppendDouble(double value) { AppendScalar("double", Str(value)); }

void plistDict::AppendDict() { AppendContainer("dict"); }

void plistDict::AppendArray() { AppendContainer("array"); }

void plistDict::AppendScalar(std::string_view type, std::string_view text) {
  if (!isArray && !CheckArray()) return;
  indexOf = count();
  Entry& entry = entries_.List(Str(indexOf));
  entry.SetType(TypeWord(type));
  entry.SetText(text);
  ClearReport();
}

// Returns the new node; nil if this is no array.
Ref<plistDict> plistDict::AppendContainer(std::string_view type) {
  if (!CheckArray()) return nullptr;
  indexOf = count();
  const std::string key = Str(indexOf);
  Entry& entry = entries_.List(key);
  entry.SetType(TypeWord(type));
  NewChild(entry, key, SameText(type, "array"));
  return children.back();
}

}  // namespace morvantile
