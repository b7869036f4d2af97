// One property-list document.

#ifndef MORVANTILE_PLIST_PLIST_H
#define MORVANTILE_PLIST_PLIST_H

#include <string>

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
};

}  // namespace morvantile

#endif  // MORVANTILE_PLIST_PLIST_H
