// Entries carried from one node to another.

#include <algorithm>
#include <vector>

#include "platform/core/date.h"
#include "platform/text/folding.h"
#include "platform/text/text.h"
#include "plist/date_text.h"
#include "plist/plist.h"
#include "plist/plistDict.h"
#include "plist/store/entries.h"

namespace morvantile {
namespace {

bool IsInside(const plistDict& node, const plistDict* tree) {
  for (const plistDict* above = &node; above != nullptr; above = above->parent.get()) {
    if (above == tree) return true;
  }
  return false;
}

}  // namespace

void plistDict::Move(std::string_view key, const Ref<plistDict>& destination, bool remove_source,
                     std::string_view new_key) {
  const std::string source(key);
  const std::string target(new_key.empty() ? key : new_key);
  ClearReport();
  if (destination == nullptr) {
    SetError(true, "Destination is nil");
    return;
  }
  if (!Exists(source)) {
    SetError(true, "Source does not exist.");
    return;
  }
  if (destination.get() == this && !isArray && SameText(source, target)) return;
  const std::size_t place = entries_.FindListed(source)->is_container ? ChildPlace(source) : 0;
  if (place != 0 && IsInside(*destination, children[place].get())) {
    SetError(true, "Destination is inside " + source);
    return;
  }

  const bool is_complete = Carry(source, *destination, target);
  if (!remove_source) return;
  if (is_complete) {
    Remove(source, false);
  } else if (rootClass && !rootClass->error) {
    SetError(true, source + " could not be moved as a whole");
  }
}

void plistDict::Move(std::string_view key, const Ref<plistDict>& destination) {
  Move(key, destination, true, "");
}

void plistDict::Copy(std::string_view key, const Ref<plistDict>& destination) {
  Move(key, destination, false, "");
}

void plistDict::Rename(std::string_view old_key, std::string_view new_key) {
  if (Exists(new_key)) {
    SetError(true, std::string("Key ").append(new_key).append(" already exists."));
    return;
  }
  Move(old_key, Ref<plistDict>(this), true, new_key);
}

void plistDict::AppendDict(const Ref<plistDict>& other) {
  const Ref<plistDict> self(this);
  plistDict& source = *other;  // not `other`: it may be in `children`, which grow
  // An array that takes its own elements would never come to an end.
  std::int64_t passes = std::max<std::int64_t>(1, source.count());
  for (source.MoveFirst(); !source.eof && passes > 0; --passes) {
    source.Copy(source.CurrentKey(), self);
    source.MoveNext();
  }
}

Ref<plist> plistDict::PlistFromPlistDict(const Ref<plistDict>& source) const {
  Ref<plist> document = New<plist>(nullptr, false);
  document->root->AppendDict(source);
  return document;
}

void plistDict::AppendAsNewChild(const Ref<plistDict>& other) {
  const Ref<plistDict> source(other.get());
  AddChild(source->name);
  const Ref<plistDict> copy = child(source->name);
  if (copy != nullptr) copy->AppendDict(source);
}

// Carries an entry that exists, with all that is below it. Returns whether everything found its
// place; what was refused is reported by the node that refused it. What is merged into a container
// around it may meet the very container that is carried: to go on there would feed the walk.
bool plistDict::Carry(const std::string& key, plistDict& destination, const std::string& target) {
  if (!IsContainer(GetType(key))) return CarryScalar(key, destination, target);

  struct Pair {
    plistDict* from;
    plistDict* to;
  };
  std::vector<Pair> walk;
  bool complete = true;
  const auto enter = [&](plistDict& from, const std::string& k, plistDict& to,
                         const std::string& t) {
    plistDict* const child = from.child(k).get();
    plistDict* const made = MakeContainer(from.GetType(k), to, t).get();
    if (child == nullptr || made == nullptr) return complete = false;
    if (!walk.empty() && made == walk.front().from) {
      from.SetError(true, k + " is inside the destination");
      return complete = false;
    }
    child->MoveFirst();
    walk.push_back({child, made});
    return true;
  };

  enter(*this, key, destination, target);
  while (!walk.empty()) {
    const auto [from, to] = walk.back();
    if (from->eof) {
      walk.pop_back();
      if (!walk.empty()) walk.back().from->MoveNext();
      continue;
    }
    const std::string inner = from->CurrentKey();
    from->ClearReport();
    if (!from->Exists(inner)) {
      from->SetError(true, "Source does not exist.");
    } else if (!IsContainer(from->GetType(inner))) {
      complete = from->CarryScalar(inner, *to, inner) && complete;
    } else if (enter(*from, inner, *to, inner)) {
      continue;
    }
    from->MoveNext();
  }
  return complete;
}

// The node in `destination` for the entries of a container; nil if a scalar is in its way.
Ref<plistDict> plistDict::MakeContainer(std::string_view type, plistDict& destination,
                                        const std::string& target) {
  const bool as_array = SameText(type, "array");
  if (destination.isArray) return destination.AppendContainer(type);
  if (as_array) {
    destination.AddArray(target);
  } else {
    destination.AddChild(target);
  }
  return destination.child(target);
}

// Reads a scalar by its type and stores it by its type. One whose type has no operations, or whose
// text doesn't read as its type, is carried as it is.
bool plistDict::CarryScalar(const std::string& key, plistDict& destination,
                            const std::string& target) {
  const std::string type = GetType(key);
  const std::string text = GetString(key);
  const bool appends = destination.isArray;
  if (!appends && destination.Exists(target)) {
    // SetData asks for no type, and would cover a container.
    const bool covers = SameText(type, "data") && !IsContainer(destination.GetType(target));
    if (!covers && destination.CheckType(target, type) == 0) return false;
  }
  Date date(1, 1, 1);
  if (SameText(type, "string")) {
    appends ? destination.AppendString(text) : destination.SetString(target, text);
  } else if (SameText(type, "boolean")) {
    const bool value = GetBoolean(key);
    appends ? destination.AppendBoolean(value) : destination.SetBoolean(target, value);
  } else if (SameText(type, "real") && ReadsAsNumber(text)) {
    const double value = GetReal(key);
    appends ? destination.AppendReal(value) : destination.SetReal(target, value);
  } else if (SameText(type, "integer") && ReadsAsNumber(text)) {
    const std::int64_t value = GetInteger(key);
    appends ? destination.AppendInteger(value)
            : destination.SetInteger(target, static_cast<double>(value));
  } else if (SameText(type, "data")) {
    appends ? destination.AppendData(text) : destination.SetData(target, text);
  } else if (SameText(type, "date") && ReadDateText(text, date)) {
    const Ref<Date> value = GetDate(key);
    appends ? destination.AppendDate(value) : destination.SetDate(target, value);
  } else {
    appends ? destination.AppendScalar(type, text) : destination.Store(target, type, text);
  }
  return true;
}

}  // namespace morvantile
