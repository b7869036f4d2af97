#include <memory>
#include <utility>

#include "platform/core/bulk_memory.h"
#include "platform/core/exceptions.h"
#include "platform/text/folding.h"
#include "platform/ui/msg_box.h"
#include "plist/plist.h"
#include "plist/plistDict.h"
#include "plist/report.h"
#include "plist/store/entries.h"
#include "plist/store/prefetch.h"

namespace morvantile {
namespace {

// A node whose children are being released: those in front of `next` are gone.
struct Open {
  plistDict* node;
  std::size_t next = 1;
  Ref<plistDict> held{};

  // Releases the children up to one that would release further nodes with itself, and takes that
  // one out; nil if there is none.
  Ref<plistDict> TakeFamily() {
    while (next < node->children.size()) {
      Ref<plistDict> child = std::move(node->children[next++]);
      ExpectChild(*node, next);
      if (child.IsOnlyOwner() && child->children.size() > 1) return child;
    }
    return nullptr;
  }
};

}  // namespace

// The entries are behind the node, in one block with it.
plistDict::plistDict() : entries_(*new (this + 1) Entries) {}

void* plistDict::operator new(std::size_t size) { return AllocateBulk(size + sizeof(Entries)); }

void plistDict::operator delete(void* node, std::size_t size) {
  ReleaseBulk(node, size + sizeof(Entries));
}

// Releases what is below the node one after the other, and not each from within the one above. It
// goes in the order of the children, which is that of the memory in a tree from a file.
plistDict::~plistDict() {
  std::vector<Open> open = {{this}};
  while (!open.empty()) {
    if (Ref<plistDict> family = open.back().TakeFamily()) {
      plistDict* const node = family.get();
      open.push_back({node, 1, std::move(family)});
    } else {
      open.pop_back();
    }
  }
  std::destroy_at(&entries_);
}

std::int64_t plistDict::count() const { return static_cast<std::int64_t>(entries_.Count()); }

bool plistDict::Exists(std::string_view key) const { return entries_.FindListed(key) != nullptr; }

std::string plistDict::GetType(std::string_view key) const { return types.Value(key); }

bool plistDict::TypeOK(std::string_view key) const {
  return TypeOK(entries_.Listed().Value(key), key);
}

bool plistDict::TypeOK(const Entry& entry, std::string_view key) const {
  if (!entry.is_container) return true;
  SetError(true, report::IllegalType(key, entry.type.View()));
  return false;
}

std::int64_t plistDict::CheckType(std::string_view key, std::string_view wanted) const {
  const Entry* const entry = entries_.FindListed(key);
  if (entry != nullptr && !SameText(entry->type.View(), wanted)) {
    SetError(true, report::TypeMismatch(key, entry->type.View()));
    return 0;
  }
  ClearReport();
  return entry != nullptr ? 1 : 2;
}

bool plistDict::CheckArray() const {
  ClearReport();
  if (isArray) return true;
  SetError(true, name + " is not an array");
  return false;
}

void plistDict::ClearReport() const { SetError(false, ""); }

void plistDict::SetError(bool flag, const std::string& message) const {
  plist* const document = rootClass.get();
  if (document == nullptr) return;
  document->error = flag;
  document->errorMessage = message;
  if (flag && document->debug) MsgBox(message);
}

}  // namespace morvantile
