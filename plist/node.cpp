#include <utility>

#include "platform/base/exceptions.h"
#include "platform/base/folding.h"
#include "platform/ui/msg_box.h"
#include "plist/plist.h"
#include "plist/plistDict.h"
#include "plist/report.h"

namespace morvantile {
namespace {

// Moves those children that would release further nodes with themselves out of a node.
void TakeFamilies(plistDict& node, std::vector<Ref<plistDict>>& families) {
  for (Ref<plistDict>& child : node.children) {
    if (child.IsOnlyOwner() && child->children.size() > 1) families.push_back(std::move(child));
  }
}

}  // namespace

plistDict::plistDict() : children(1), childrenNames(1) {}

plistDict::~plistDict() {
  std::vector<Ref<plistDict>> families;
  TakeFamilies(*this, families);
  while (!families.empty()) {
    const Ref<plistDict> node = std::move(families.back());
    families.pop_back();
    TakeFamilies(*node, families);
  }
}

std::int64_t plistDict::count() { return static_cast<std::int64_t>(entries_.Count()); }

bool plistDict::Exists(std::string_view key) { return entries_.FindListed(key) != nullptr; }

std::string plistDict::GetType(std::string_view key) { return types.Value(key); }

bool plistDict::TypeOK(std::string_view key) { return TypeOK(entries_.Listed().Value(key), key); }

bool plistDict::TypeOK(const Entry& entry, std::string_view key) {
  if (!entry.isContainer) return true;
  SetError(true, report::IllegalType(key, entry.type.View()));
  return false;
}

std::int64_t plistDict::CheckType(std::string_view key, std::string_view wanted) {
  ClearReport();
  const Entry* const entry = entries_.FindListed(key);
  if (entry == nullptr) return 2;
  if (SameText(entry->type.View(), wanted)) return 1;
  SetError(true, report::TypeMismatch(key, entry->type.View()));
  return 0;
}

bool plistDict::CheckArray() {
  ClearReport();
  if (isArray) return true;
  SetError(true, name + " is not an array");
  return false;
}

void plistDict::ClearReport() { SetError(false, ""); }

void plistDict::SetError(bool flag, const std::string& message) {
  plist* const document = rootClass.get();
  if (document == nullptr) return;
  document->error = flag;
  document->errorMessage = message;
  if (flag && document->debug) MsgBox(message);
}

}  // namespace morvantile
