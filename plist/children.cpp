#include "platform/text/folding.h"
#include "platform/text/text.h"
#include "plist/plist.h"
#include "plist/plistDict.h"
#include "plist/store/entries.h"

namespace morvantile {

Ref<plistDict> plistDict::child(std::string_view key) {
  std::size_t place = ChildPlace(key);
  if (place == 0) {
    const std::string kept(key);
    AddChild(kept);
    place = ChildPlace(kept);
  }
  return place == 0 ? nullptr : children[place];
}

Ref<plistDict> plistDict::index(std::int64_t number) const {
  const std::size_t place = ChildPlace(Str(number));
  return place == 0 ? nullptr : children[place];
}

void plistDict::AddChild(std::string_view key) { AddContainer(key, "dict", "Child exists: "); }

bool plistDict::AddArray(std::string_view key) {
  return AddContainer(key, "array", "Array exists: ");
}

bool plistDict::AddContainer(std::string_view key, std::string_view type,
                             std::string_view refusal) {
  if (Exists(key)) {
    SetError(true, std::string(refusal).append(key).append(" already exists"));
    return false;
  }
  Entry& entry = entries_.List(key);
  entry.SetType(TypeWord(type));
  entry.SetMark(false);
  NewChild(entry, key, SameText(type, "array"));
  ClearReport();
  return true;
}

// Adds a node under a key that is listed as a container.
void plistDict::NewChild(Entry& entry, std::string_view key, bool as_array) {
  IndexChildren();
  const Ref<plistDict> node = New<plistDict>();
  node->name = key;
  node->isArray = as_array;
  node->parent = this;
  node->rootClass = rootClass;
  childrenNames.push_back(std::string(key));
  children.push_back(node);
  if (entry.child == 0) entry.child = static_cast<std::uint32_t>(entries_.indexed_children);
  ++entries_.indexed_children;
}

// The first place of the key in childrenNames; 0 if it isn't there.
std::size_t plistDict::ChildPlace(std::string_view key) const {
  IndexChildren();
  const Entry* const entry = entries_.Find(key);
  return entry == nullptr || entry->child >= children.size() ? 0 : entry->child;
}

// Brings the entries up to date with childrenNames, which others may have added to.
void plistDict::IndexChildren() const {
  if (entries_.indexed_children > childrenNames.size()) {
    entries_.ForEach([](Entry& entry) { entry.child = 0; });
    entries_.indexed_children = 1;
  }
  for (; entries_.indexed_children < childrenNames.size(); ++entries_.indexed_children) {
    Entry& entry = entries_.FindOrAdd(childrenNames[entries_.indexed_children]);
    if (entry.child == 0) entry.child = static_cast<std::uint32_t>(entries_.indexed_children);
  }
}

}  // namespace morvantile
