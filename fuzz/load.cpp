// Any bytes as the file of a document. What has been read and saved once comes back from then on as
// the same tree and the same bytes. Background turns that change the tree meanwhile do no harm.

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "fuzz/invariants.h"
#include "platform/core/background.h"
#include "platform/text/text.h"
#include "tests/platform/files/scratch_folder.h"
#include "tests/plist/sketch.h"

namespace morvantile {
namespace {

bool IsWord(const std::string& text) {
  return !text.empty() && std::all_of(text.begin(), text.end(),
                                      [](unsigned char c) { return std::isalnum(c) != 0; });
}

// Whether the entries of a node are such as the writer can write: elements with names that are
// words, and keys that don't look like elements. A file may bring others, which it then garbles.
bool HasPlainEntries(plistDict& node) {
  std::size_t containers = 0;
  for (std::size_t i = 0; i < node.types.Count(); ++i) {
    const std::string key = node.types.Key(i);
    const std::string type = node.types.Value(key);
    if (!IsWord(type) || SameText(type, "key")) return false;
    if (key.find_first_of("<>") != std::string::npos) return false;
    if (IsContainer(type) == node.values.HasKey(key)) return false;
    containers += IsContainer(type) ? 1 : 0;
  }
  return node.children.size() == containers + 1;
}

bool IsPlain(const Ref<plistDict>& root) {
  std::vector<plistDict*> nodes = {root.get()};
  for (std::size_t i = 0; i < nodes.size(); ++i) {
    if (!HasPlainEntries(*nodes[i])) return false;
    for (std::size_t c = 1; c < nodes[i]->children.size(); ++c) {
      nodes.push_back(nodes[i]->children[c].get());
    }
  }
  return true;
}

void LoadAndSave(const std::string& bytes) {
  const ScratchFolder folder;
  const Ref<plist> first = New<plist>(folder.Put("a", bytes), false);
  RequireSound(first->root, Use::kAny);
  // A file whose first line is the <dict> is saved without one.
  if (first->error || first->headers.size() < 2) return;

  first->Save();
  const Ref<plist> second = New<plist>(first->savePath, false);
  Require(!second->error, "what was saved can be read");
  RequireSound(second->root, Use::kAny);
  if (!IsPlain(first->root)) return;
  Require(IsPlain(second->root), "a tree that can be written comes back as one");
  const std::string sketch = Sketch(*second->root);
  second->Save();
  const std::string saved = folder.Content(second->savePath->Name());

  const Ref<plist> third = New<plist>(second->savePath, false);
  RequireEqual(Sketch(*third->root), sketch, "a saved tree comes back");
  third->Save();
  RequireEqual(folder.Content(third->savePath->Name()), saved, "a saved file stays as it is");
}

Ref<plist> turned;
std::size_t turns = 0;

// Adds a key to the root, takes another out, or grows a node of its own.
void Turn() {
  plistDict& root = *turned->root;
  const std::size_t number = turns++;
  if (number % 3 == 0) {
    root.SetString("turn " + Str(static_cast<std::int64_t>(number % 50)), "text");
  } else if (number % 3 == 1 && root.count() > 0) {
    root.Remove(root.types.Key(number % root.types.Count()), true);
  } else if (const Ref<plistDict> node = root.child("turns")) {
    node->AddChild(Str(static_cast<std::int64_t>(number % 20)));
  }
}

void LoadAndSaveAmongTurns(const std::string& bytes) {
  const ScratchFolder folder;
  turned = New<plist>(nullptr, false);
  turns = 0;
  background_task = Turn;
  turned->Load(folder.Put("a", bytes), nullptr);
  turned->Save();
  background_task = nullptr;
  RequireSound(turned->root, Use::kAny);
  turned = nullptr;
}

}  // namespace
}  // namespace morvantile

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  morvantile::LoadAndSave(bytes);
  morvantile::LoadAndSaveAmongTurns(bytes);
  return 0;
}
