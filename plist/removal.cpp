#include <algorithm>
#include <utility>

#include "platform/text/folding.h"
#include "platform/text/text.h"
#include "plist/plistDict.h"
#include "plist/store/entries.h"

namespace morvantile {

void plistDict::Remove(const Variant& key, bool as_key) {
  if (key.IsNumeric() && !as_key) {
    RemoveElement(key.Integer());
  } else {
    RemoveKey(key.String());
  }
}

void plistDict::RemoveKey(std::string_view key) {
  values.Remove(key);
  types.Remove(key);
  RemoveChild(ChildPlace(key));
}

// The numbers of an array that a file has brought may have gaps; where there is no element, none
// can be removed.
void plistDict::RemoveElement(std::int64_t number) {
  if (!CheckArray()) return;
  const std::int64_t last = count() - 1;
  const std::string key = Str(number);
  const Entry* const entry = number < 0 || number > last ? nullptr : entries_.FindListed(key);
  if (entry == nullptr) {
    SetError(true, "Subscript out of range");
    return;
  }
  if (HasRepeatedNames()) {
    RemoveAmongRepeated(number, last, entry->is_container);
  } else if (entry->is_container) {
    RemoveChild(ChildPlace(key));
  }
  values.Remove(key);
  if (entries_.Listed().IsNumbered()) {
    MoveElementsDown(static_cast<std::size_t>(number));
    types.Remove(Str(last));
  } else {
    types.Remove(key);
    for (std::int64_t i = number + 1; i <= last; ++i) RenumberElement(i);
  }
  IndexChildren();
}

// Whether a key is in childrenNames twice, as a file may bring it.
bool plistDict::HasRepeatedNames() const {
  IndexChildren();
  std::size_t different_names = 0;
  entries_.ForEach([&](const Entry& entry) { different_names += entry.child != 0 ? 1 : 0; });
  return childrenNames.size() > different_names + 1;
}

// For a tree whose file repeats keys: removes all nodes of the element `number`, if it is a
// container, and renames those of the following elements, up to `last`, to the number before
// theirs. The entries forget the places of all nodes; IndexChildren finds them again.
void plistDict::RemoveAmongRepeated(std::int64_t number, std::int64_t last, bool is_container) {
  std::size_t kept = 1;
  for (std::size_t place = 1; place < childrenNames.size(); ++place) {
    std::string key = std::move(childrenNames[place]);
    const Ref<plistDict> node = std::move(children[place]);
    const std::int64_t own = CInt64(key);
    const bool is_number = key == Str(own);
    if (is_number && own == number && is_container) continue;
    if (is_number && own > number && own <= last) {
      key = Str(own - 1);
      if (node) node->name = key;
    }
    childrenNames[kept] = std::move(key);
    children[kept++] = node;
  }
  while (children.size() > kept) {
    childrenNames.pop_back();
    children.pop_back();
  }
  entries_.ForEach([](Entry& entry) { entry.child = 0; });
  entries_.indexed_children = 1;
}

// Moves the elements behind `first` one number down; what was there is lost, and the last number
// holds nothing but its type.
void plistDict::MoveElementsDown(std::size_t first) {
  Dictionary<Entry>& elements = entries_.Listed();
  for (std::size_t i = first; i + 1 < elements.Count(); ++i) {
    Entry& from = elements.ValueAt(i + 1);
    Entry& to = elements.ValueAt(i);
    to.type = std::exchange(from.type, TypeWord());
    to.is_container = from.is_container;
    to.text = std::exchange(from.text, CompactText<24>());
    to.has_text = std::exchange(from.has_text, false);
    to.child = std::exchange(from.child, 0);
    RenameChild(to, Str(static_cast<std::int64_t>(i)));
  }
}

void plistDict::RenumberElement(std::int64_t number) {
  const std::string from = Str(number);
  if (!types.HasKey(from)) return;
  const std::string to = Str(number - 1);
  entries_.Renumber(from, to);
  RenameChild(*entries_.FindListed(to), to);
}

void plistDict::RenameChild(const Entry& entry, const std::string& key) {
  if (entry.child == 0) return;
  childrenNames[entry.child] = key;
  if (children[entry.child]) children[entry.child]->name = key;
}

// Takes the node at a place out; 0 is none.
void plistDict::RemoveChild(std::size_t place) {
  if (place == 0) return;
  const std::string key = std::move(childrenNames[place]);
  const auto distance = static_cast<std::ptrdiff_t>(place);
  childrenNames.erase(place);
  const Ref<plistDict> removed = std::move(children[place]);
  children.erase(place);
  --entries_.indexed_children;

  if (place < childrenNames.size()) {
    entries_.ForEach([place](Entry& entry) { entry.child -= entry.child > place ? 1 : 0; });
  }
  const auto* const next =
      std::find_if(childrenNames.begin() + distance, childrenNames.end(),
                   [&](const std::string& other) { return SameText(other, key); });
  if (Entry* const entry = entries_.Find(key)) {
    const bool is_repeated = next != childrenNames.end();
    entry->child = is_repeated ? static_cast<std::uint32_t>(next - childrenNames.begin()) : 0;
    entries_.Tidy(key);
  }
}

}  // namespace morvantile
