// The search of a document, entry by entry.

#include <vector>

#include "platform/base/background.h"
#include "platform/base/folding.h"
#include "platform/base/text.h"
#include "plist/plist.h"
#include "plist/plistDict.h"

namespace morvantile {
namespace {

// Goes through the scalars of a tree by the nodes' own cursors, and calls visit(node, key, type)
// for each, until it returns true; gives whether it did. A node whose visit ended the walk, and
// those above it, have their cursors where they were.
template <typename Visit>
bool WalkScalars(plistDict& top, const Visit& visit) {
  if (top.count() == 0) return false;
  std::vector<plistDict*> walk = {&top};
  top.MoveFirst();
  while (true) {
    RuntimeBackgroundTask();
    plistDict& node = *walk.back();
    if (node.eof) {
      walk.pop_back();
      if (walk.empty()) return false;
      walk.back()->MoveNext();
      continue;
    }
    const std::string key = node.CurrentKey();
    const std::string type = node.GetType(key);
    if (!IsContainer(type)) {
      if (visit(node, key, type)) return true;
      node.MoveNext();
      continue;
    }
    plistDict* const child = node.child(key).get();
    if (child == nullptr || child->count() == 0) {
      node.MoveNext();
      continue;
    }
    child->MoveFirst();
    walk.push_back(child);
  }
}

}  // namespace

bool plist::Find(std::string_view text) {
  foundDict = nullptr;
  foundKey.clear();
  foundValue.clear();
  foundType.clear();
  ClearSearch(root);
  lastSearch = text;
  return ReadStructure(root, text, "valueSearch");
}

bool plist::FindNext(std::string_view text) {
  if (!SameText(text, lastSearch)) {
    ClearSearch(root);
    lastSearch = text;
  }
  return ReadStructure(root, text, "valueSearch");
}

void plist::ClearSearch(const Ref<plistDict>& node) {
  WalkScalars(*node, [](plistDict& holder, const std::string& key, const std::string&) {
    holder.searched.SetValue(key, false);
    return false;
  });
}

bool plist::ReadStructure(const Ref<plistDict>& node, std::string_view text,
                          std::string_view mode) {
  const bool by_value = SameText(mode, "valueSearch");
  const bool by_key = SameText(mode, "keySearch");
  return WalkScalars(
      *node, [&](plistDict& holder, const std::string& key, const std::string& type) {
        const std::string value = holder.GetValue(key);
        const bool matches =
            (by_value && InStr(0, value, text) > 0) || (by_key && InStr(0, key, text) > 0);
        if (!matches) return false;
        if (holder.searched.HasKey(key) && holder.searched.Value(key)) return false;
        foundDict = Ref<plistDict>(&holder);
        foundKey = key;
        foundType = type;
        foundValue = value;
        holder.searched.SetValue(key, true);
        return true;
      });
}

}  // namespace morvantile
