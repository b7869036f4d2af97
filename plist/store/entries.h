// What a node knows of its keys.

#ifndef MORVANTILE_PLIST_STORE_ENTRIES_H
#define MORVANTILE_PLIST_STORE_ENTRIES_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "platform/text/folding.h"
#include "plist/store/compact_text.h"
#include "plist/store/dictionary.h"
#include "plist/store/type_word.h"

namespace morvantile {

// Whether a type word is "dict" or "array".
inline bool IsContainer(std::string_view type) {
  return SameText(type, "dict") || SameText(type, "array");
}

// What a node knows of one key. Each part is an entry in one of the node's properties: the
// type word in `types`, the text in `values`, the mark in `searched`, the child in `childrenNames`.
struct Entry {
  TypeWord type;
  CompactText<24> text;
  std::uint32_t child = 0;  // the first place of the key in childrenNames, 0 for none
  bool has_type = false;
  bool is_container = false;
  bool has_text = false;
  bool has_mark = false;
  bool mark = false;

  void SetType(TypeWord word) {
    type = std::move(word);
    has_type = true;
    is_container = type.IsContainer();
  }
  void SetText(std::string_view value) {
    text.Assign(value);
    has_text = true;
  }
  void SetMark(bool value) {
    mark = value;
    has_mark = true;
  }
  void ForgetText() {
    text = CompactText<24>();
    has_text = false;
  }
  void ForgetMark() { mark = has_mark = false; }
};

// The keys of a node. One table serves the three dictionaries of a node, so that a key is stored
// and looked up once for all of them: the keys that have a type are listed, in the order in which
// they got it; the others, which are few or none, are aside.
class Entries {
 public:
  Dictionary<Entry>& Listed() { return listed_; }
  [[nodiscard]] std::size_t Count() const { return listed_.Count(); }

  // The entry of a key that has a type, or null.
  Entry* FindListed(std::string_view key) { return listed_.Find(key); }

  // The entry of a key, whatever is known of it; or null.
  Entry* Find(std::string_view key);

  // The entry of a key, listed from now on. One that is new there has no type; the caller sets it.
  Entry& List(std::string_view key) {
    Entry& entry = listed_.FindOrAdd(key);
    return entry.has_type || aside_ == nullptr ? entry : TakeFromAside(entry, key);
  }

  // The entry of a key, which is aside if it is new.
  Entry& FindOrAdd(std::string_view key);

  // Takes the type of the key away, and does nothing without one. What else is known of it stays.
  void Unlist(std::string_view key);

  // The same for all keys.
  void UnlistAll();

  // Forgets a key that is aside if nothing is known of it any more.
  void Tidy(std::string_view key);

  // Calls `work` with every entry.
  template <typename Work>
  void ForEach(const Work& work) {
    for (std::size_t i = 0; i < listed_.Count(); ++i) work(listed_.ValueAt(i));
    if (aside_ == nullptr) return;
    for (std::size_t i = 0; i < aside_->Count(); ++i) work(aside_->ValueAt(i));
  }

  // Renames the element `from` to the free number `to`, at its place in the order, with its type,
  // text and child; the mark stays under `from`.
  void Renumber(std::string_view from, std::string_view to);

  // The entries know the first `indexed_children` of the node's childrenNames, the placeholder
  // included.
  std::size_t indexed_children = 1;

 private:
  Entry& TakeFromAside(Entry& entry, std::string_view key);
  Dictionary<Entry>& Aside();
  void Keep(std::string_view key, Entry entry);

  Dictionary<Entry> listed_;
  std::unique_ptr<Dictionary<Entry>> aside_;
};

}  // namespace morvantile

#endif  // MORVANTILE_PLIST_STORE_ENTRIES_H
