#include "plist/store/entries.h"

#include <utility>

namespace morvantile {
namespace {

bool IsEmpty(const Entry& entry) { return !entry.has_text && !entry.has_mark && entry.child == 0; }

void MoveMark(Entry& from, Entry& to) {
  if (!from.has_mark) return;
  to.SetMark(from.mark);
  from.ForgetMark();
}

}  // namespace

Entry* Entries::Find(std::string_view key) {
  Entry* const listed = listed_.Find(key);
  if (listed != nullptr || aside_ == nullptr) return listed;
  return aside_->Find(key);
}

Entry& Entries::FindOrAdd(std::string_view key) {
  Entry* const entry = Find(key);
  return entry != nullptr ? *entry : Aside().FindOrAdd(key);
}

void Entries::Unlist(std::string_view key) {
  Entry* const entry = listed_.Find(key);
  if (entry == nullptr) return;
  Keep(key, std::move(*entry));
  listed_.Remove(key);
}

void Entries::UnlistAll() {
  for (std::size_t i = 0; i < listed_.Count(); ++i) {
    Keep(listed_.Key(i), std::move(listed_.ValueAt(i)));
  }
  listed_.Clear();
}

void Entries::Tidy(std::string_view key) {
  if (aside_ == nullptr) return;
  const Entry* const entry = aside_->Find(key);
  if (entry != nullptr && IsEmpty(*entry)) aside_->Remove(key);
}

void Entries::Renumber(std::string_view from, std::string_view to) {
  if (!listed_.Rename(from, to)) return;
  Entry& entry = listed_.Value(to);
  Entry left;
  MoveMark(entry, left);
  if (aside_ != nullptr) {
    if (Entry* const known = aside_->Find(to)) MoveMark(*known, entry);
    Tidy(to);
  }
  Keep(from, std::move(left));
}

Entry& Entries::TakeFromAside(Entry& entry, std::string_view key) {
  if (Entry* const known = aside_->Find(key)) {
    entry = std::move(*known);
    aside_->Remove(key);
  }
  return entry;
}

Dictionary<Entry>& Entries::Aside() {
  if (aside_ == nullptr) aside_ = std::make_unique<Dictionary<Entry>>();
  return *aside_;
}

// Keeps aside what is known of a key besides its type.
void Entries::Keep(std::string_view key, Entry entry) {
  if (IsEmpty(entry)) return;
  entry.type = TypeWord();
  entry.has_type = false;
  Aside().FindOrAdd(key) = std::move(entry);
}

}  // namespace morvantile
