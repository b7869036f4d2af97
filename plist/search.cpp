// The search of a document, entry by entry.

#include <string>
#include <string_view>
#include <vector>

#include "platform/text/folding.h"
#include "platform/text/text_search.h"
#include "plist/plist.h"
#include "plist/plistDict.h"
#include "plist/store/entries.h"
#include "plist/store/prefetch.h"

namespace morvantile {

// A walk through the scalars of a tree by the nodes' own cursors. A node where the walk is left,
// and those above it, keep their cursors where they were.
class ScalarWalk {
 public:
  explicit ScalarWalk(plistDict& top) { Enter(top); }

  // Goes to the next scalar, at first to the first one; false if there is none.
  bool Next() {
    if (entry_ != nullptr) node_->MoveNext();
    entry_ = nullptr;
    while (!nodes_.empty()) {
      if (Step()) return true;
    }
    return false;
  }

  // What the walk is at; views and references hold until the tree is changed.
  [[nodiscard]] plistDict& Node() const { return *node_; }
  [[nodiscard]] std::string_view Key() const { return key_; }
  [[nodiscard]] std::string_view Type() const { return entry_->type.View(); }
  // As GetValue: clears the report, or leaves one for an entry without a text.
  [[nodiscard]] std::string_view Value() const { return node_->TextOf(*entry_, key_); }
  [[nodiscard]] bool IsDelivered() const { return entry_->has_mark && entry_->mark; }
  void Mark(bool delivered) { entry_->SetMark(delivered); }

 private:
  void Enter(plistDict& node) {
    if (node.count() == 0) return;
    node.MoveFirst();
    nodes_.push_back(&node);
  }

  // Looks at what the innermost cursor is at, and returns whether that is a scalar.
  bool Step() {
    node_ = nodes_.back();
    Dictionary<Entry>& entries = node_->entries_.Listed();
    const auto at = static_cast<std::size_t>(node_->currentIndex);
    if (node_->eof || at >= entries.Count()) {
      Leave();
      return false;
    }
    key_ = entries.Key(at);
    Entry& entry = entries.ValueAt(at);
    if (!entry.is_container) {
      entry_ = &entry;
      return true;
    }
    const std::size_t depth = nodes_.size();
    if (plistDict* const child = node_->child(key_).get()) Enter(*child);
    ExpectChild(*node_, entry.child + std::size_t{1});
    if (nodes_.size() == depth) node_->MoveNext();
    return false;
  }

  void Leave() {
    nodes_.pop_back();
    if (!nodes_.empty()) nodes_.back()->MoveNext();
  }

  std::vector<plistDict*> nodes_;  // from the top to the innermost
  plistDict* node_ = nullptr;
  std::string_view key_;
  Entry* entry_ = nullptr;
};

bool plist::Find(std::string_view text) {
  const std::string wanted(text);
  foundDict = nullptr;
  foundKey.clear();
  foundValue.clear();
  foundType.clear();
  ClearSearch(root);
  lastSearch = wanted;
  return ReadStructure(root, wanted, "valueSearch");
}

bool plist::FindNext(std::string_view text) {
  const std::string wanted(text);
  if (!SameText(wanted, lastSearch)) {
    ClearSearch(root);
    lastSearch = wanted;
  }
  return ReadStructure(root, wanted, "valueSearch");
}

void plist::ClearSearch(const Ref<plistDict>& node) {
  ScalarWalk walk(*node);
  while (walk.Next()) walk.Mark(false);
}

bool plist::ReadStructure(const Ref<plistDict>& node, std::string_view text,
                          std::string_view mode) {
  const bool by_value = SameText(mode, "valueSearch");
  const bool by_key = SameText(mode, "keySearch");
  const TextPattern pattern(text);
  ScalarWalk walk(*node);
  while (walk.Next()) {
    const std::string_view value = walk.Value();
    if (!(by_value && pattern.OccursIn(value)) && !(by_key && pattern.OccursIn(walk.Key()))) {
      continue;
    }
    if (walk.IsDelivered()) continue;
    foundDict = Ref<plistDict>(&walk.Node());
    foundKey = walk.Key();
    foundType = walk.Type();
    foundValue = value;
    walk.Mark(true);
    return true;
  }
  return false;
}

}  // namespace morvantile
