#include "plist/key_tables.h"

#include "platform/core/exceptions.h"
#include "plist/store/entries.h"

namespace morvantile {

std::size_t Types::Count() const { return entries_.Count(); }

bool Types::HasKey(std::string_view key) const { return entries_.FindListed(key) != nullptr; }

std::string Types::Value(std::string_view key) const {
  return std::string(entries_.Listed().Value(key).type.View());
}

void Types::SetValue(std::string_view key, std::string_view word) {
  entries_.List(key).SetType(TypeWord(word));
}

std::string Types::Key(std::size_t position) const {
  return std::string(entries_.Listed().Key(position));
}

void Types::Remove(std::string_view key) { entries_.Unlist(key); }

void Types::Clear() { entries_.UnlistAll(); }

std::size_t Values::Count() const {
  std::size_t count = 0;
  entries_.ForEach([&](const Entry& entry) { count += entry.has_text ? 1 : 0; });
  return count;
}

bool Values::HasKey(std::string_view key) const {
  const Entry* const entry = entries_.Find(key);
  return entry != nullptr && entry->has_text;
}

std::string Values::Value(std::string_view key) const {
  if (!HasKey(key)) throw KeyNotFoundException(std::string(key));
  return std::string(entries_.Find(key)->text.View());
}

void Values::SetValue(std::string_view key, std::string_view text) {
  entries_.FindOrAdd(key).SetText(text);
}

void Values::Remove(std::string_view key) {
  if (!HasKey(key)) return;
  entries_.Find(key)->ForgetText();
  entries_.Tidy(key);
}

void Values::Clear() {
  entries_.ForEach([](Entry& entry) { entry.ForgetText(); });
}

std::size_t Searched::Count() const {
  std::size_t count = 0;
  entries_.ForEach([&](const Entry& entry) { count += entry.has_mark ? 1 : 0; });
  return count;
}

bool Searched::HasKey(std::string_view key) const {
  const Entry* const entry = entries_.Find(key);
  return entry != nullptr && entry->has_mark;
}

bool Searched::Value(std::string_view key) const {
  if (!HasKey(key)) throw KeyNotFoundException(std::string(key));
  return entries_.Find(key)->mark;
}

void Searched::SetValue(std::string_view key, bool mark) { entries_.FindOrAdd(key).SetMark(mark); }

void Searched::Remove(std::string_view key) {
  if (!HasKey(key)) return;
  entries_.Find(key)->ForgetMark();
  entries_.Tidy(key);
}

void Searched::Clear() {
  entries_.ForEach([](Entry& entry) { entry.ForgetMark(); });
}

}  // namespace morvantile
