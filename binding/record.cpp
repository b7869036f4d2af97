#include "binding/record.h"

#include <utility>

#include "platform/text/text.h"

namespace morvantile {

std::string ControlKey(const Control& control) { return control.Name + "." + Str(control.Index); }

Ref<plistDict> NewRecord(plistDict& node, const std::string& key, const std::string& standard) {
  if (node.Exists(key)) node.Remove(key, true);
  node.AddChild(key);
  const Ref<plistDict> record = node.child(key);
  if (record == nullptr) return nullptr;
  node.searched.SetValue(key, false);
  record->SetString("default", standard);
  if (!record->AddArray("elements")) return nullptr;
  return record->child("elements");
}

Record ReadRecord(plistDict& node, const std::string& key) {
  const Ref<plistDict> record = node.child(key);
  if (record == nullptr) return {};
  std::string standard = record->GetString("default");
  return {std::move(standard), record->child("elements")};
}

std::vector<std::string> CellsOf(plistDict& elements, std::int64_t number) {
  const Ref<plistDict> row = elements.index(number);
  if (row == nullptr) return {elements.GetString(Str(number))};
  std::vector<std::string> cells;
  const std::int64_t count = row->count();
  cells.reserve(static_cast<std::size_t>(count));
  for (std::int64_t i = 0; i < count; ++i) cells.push_back(row->GetString(Str(i)));
  return cells;
}

}  // namespace morvantile
