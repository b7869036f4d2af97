#include <vector>

#include "platform/text/folding.h"
#include "plist/plist.h"
#include "plist/plistDict.h"

namespace morvantile {

void plistDict::MoveFirst() {
  currentIndex = 0;
  eof = false;
}

void plistDict::MoveNext() {
  ++currentIndex;
  if (currentIndex <= count() - 1) return;
  currentIndex = 0;
  eof = true;
}

void plistDict::MovePrevious() {
  --currentIndex;
  if (currentIndex >= 0) return;
  currentIndex = count() - 1;
  eof = true;
}

void plistDict::MoveLast() { currentIndex = count() - 1; }

std::string plistDict::CurrentKey() {
  if (currentIndex < 0 || currentIndex > count() - 1) {
    eof = true;
    currentIndex = 0;
    return "";
  }
  return types.Key(static_cast<std::size_t>(currentIndex));
}

std::string plistDict::AbsolutePath() {
  path = ":" + name;
  BuildPath();
  return path;
}

// Puts the names of the nodes above in front of the path.
void plistDict::BuildPath() {
  std::vector<std::string_view> names;
  for (const plistDict* node = parent.get(); node != nullptr; node = node->parent.get()) {
    const bool is_root = SameText(node->name, "root");
    names.push_back(is_root ? std::string_view("root") : node->name);
    if (is_root) break;
  }
  std::string above;
  for (; !names.empty(); names.pop_back()) above.append(":").append(names.back());
  path.insert(0, above);
}

}  // namespace morvantile
