// One property-list document.

#ifndef MORVANTILE_PLIST_PLIST_H
#define MORVANTILE_PLIST_PLIST_H

#include <string>
#include <string_view>

#include "platform/base/ref.h"
#include "plist/plistDict.h"

namespace morvantile {

// A document: a tree of nodes under `root`, and the report of the operation that failed last.
class plist : public Object {
 public:
  plist() : root(New<plistDict>()) {}

  // The topmost node.
  Ref<plistDict> root;

  // The last report: whether there is one, and its text. Operations that check something clear it
  // first, so it is to be read right after the call that matters.
  bool error = false;
  std::string errorMessage;

  // Whether every report of a node is shown in a message box as well.
  bool debug = false;

  // What the search delivered last: the node that holds the entry, its key, text and type word.
  Ref<plistDict> foundDict;
  std::string foundKey;
  std::string foundValue;
  std::string foundType;
  std::string lastSearch;  // the text of the running search

  // Searches the texts of all scalars for one that holds `text`, without regard to letter case,
  // delivers the first into the properties above and returns true; or clears them and returns
  // false. An empty text is found everywhere.
  virtual bool Find(std::string_view text);

  // Delivers the next one, in the order of the tree. Each comes once, unless it is set anew in the
  // meantime. After the last one it returns false and leaves the properties as they are. A text
  // other than that of the running search starts a new one.
  //
  // Both walk the tree from the root by the nodes' own cursors, and clear the report if they come
  // upon a scalar.
  virtual bool FindNext(std::string_view text);

  // Makes all entries of the node and below it deliverable again. Throws NilObjectException.
  virtual void ClearSearch(const Ref<plistDict>& node);

 private:
  bool ReadStructure(const Ref<plistDict>& node, std::string_view text, std::string_view mode);
};

}  // namespace morvantile

#endif  // MORVANTILE_PLIST_PLIST_H
