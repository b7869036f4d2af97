// What holds of every node of a tree, whatever was done to it.

#ifndef MORVANTILE_FUZZ_INVARIANTS_H
#define MORVANTILE_FUZZ_INVARIANTS_H

#include <vector>

#include "fuzz/require.h"
#include "platform/text/folding.h"
#include "platform/text/text.h"
#include "plist/plist.h"
#include "plist/plistDict.h"
#include "plist/store/entries.h"

namespace morvantile {

// Whether all that was done to the tree is what callers are expected to do. SetData on a container
// and keys of one's own in an array are not; what a file may bring, like repeated keys, gaps in the
// numbers of an array and children under keys without a type, isn't either.
enum class Use { kProper, kAny };

inline void RequireSoundKeys(plistDict& node, Use use) {
  std::size_t scalars = 0;
  for (std::size_t i = 0; i < node.types.Count(); ++i) {
    const std::string key = node.types.Key(i);
    Require(node.types.HasKey(key) && node.Exists(key), "a listed key exists");
    const bool is_container = IsContainer(node.types.Value(key));
    const bool has_text = node.values.HasKey(key);
    scalars += has_text ? 1 : 0;
    if (use == Use::kAny) continue;
    Require(has_text != is_container, "a scalar has a text, a container none");
    Require(!node.isArray || key == Str(static_cast<std::int64_t>(i)), "an array has no gaps");
  }
  Require(node.count() == static_cast<std::int64_t>(node.types.Count()), "count is that of types");
  if (use == Use::kProper) Require(node.values.Count() == scalars, "every text has a type");
}

inline void RequireSoundChildren(plistDict& node, Use use) {
  Require(!node.children[0], "children begin with a placeholder");
  Require(node.childrenNames.size() == node.children.size() && node.childrenNames[0].empty(),
          "childrenNames are parallel to children");
  std::size_t containers = 0;
  for (std::size_t i = 0; i < node.types.Count(); ++i) {
    containers += IsContainer(node.types.Value(node.types.Key(i))) ? 1 : 0;
  }
  if (use == Use::kProper) Require(node.children.size() == containers + 1, "a child per container");
  for (std::size_t i = 1; i < node.children.size(); ++i) {
    const Ref<plistDict> child = node.children[i];
    const std::string& name = node.childrenNames[i];
    Require(child && child->parent == &node, "a child's parent is the node");
    Require(child->rootClass.get() == node.rootClass.get(), "a child reports where the node does");
    if (use == Use::kAny) continue;
    Require(node.Exists(name), "a child's name is a key");
    const std::string type = node.types.Value(name);
    Require(child->name == name && node.child(name) == child, "a child is found by its name");
    Require(SameText(type, child->isArray ? "array" : "dict"), "a child's kind is its type");
  }
}

// Checks a tree; returns the number of its nodes.
inline std::size_t RequireSound(const Ref<plistDict>& root, Use use) {
  std::vector<plistDict*> nodes = {root.get()};
  for (std::size_t i = 0; i < nodes.size(); ++i) {
    RequireSoundKeys(*nodes[i], use);
    RequireSoundChildren(*nodes[i], use);
    for (std::size_t c = 1; c < nodes[i]->children.size(); ++c) {
      nodes.push_back(nodes[i]->children[c].get());
    }
  }
  return nodes.size();
}

}  // namespace morvantile

#endif  // MORVANTILE_FUZZ_INVARIANTS_H
