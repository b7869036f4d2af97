// Arrays of strings kept in a tree.

#include <algorithm>
#include <utility>

#include "platform/text/text.h"
#include "plist/plistDict.h"

namespace morvantile {
namespace {

// Appends the strings from `first` to `last`, both included, to an array. Both are brought inside
// the list first, a `first` beyond its end to its beginning.
void AppendRange(plistDict& array, const std::vector<std::string>& list, std::int64_t first,
                 std::int64_t last) {
  const std::int64_t upper = static_cast<std::int64_t>(list.size()) - 1;
  if (first < 0 || upper < first) first = 0;
  last = std::min(last, upper);
  for (std::int64_t i = first; i <= last; ++i) {
    array.AppendString(list[static_cast<std::size_t>(i)]);
  }
}

}  // namespace

void plistDict::SetList(std::string_view key, const std::vector<std::string>& list,
                        std::int64_t first, std::int64_t last) {
  const std::string kept(key);
  if (Exists(kept)) Remove(kept, true);
  if (!AddArray(kept)) return;
  AppendRange(*children.back(), list, first, last);
}

void plistDict::GetList(std::string_view key, std::vector<std::string>& list, std::int64_t base) {
  const Ref<plistDict> array = child(key);
  if (array == nullptr) return;
  std::vector<std::string> read;
  if (base != 0) read.emplace_back();
  const std::int64_t count = array->count();
  for (std::int64_t i = 0; i < count; ++i) read.push_back(array->GetString(Str(i)));
  list = std::move(read);
}

void plistDict::AppendList(const std::vector<std::string>& list, std::int64_t first,
                           std::int64_t last) {
  if (const Ref<plistDict> array = AppendContainer("array")) {
    AppendRange(*array, list, first, last);
  }
}

}  // namespace morvantile
