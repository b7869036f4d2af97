// The records in which lists and menus are kept.

#ifndef MORVANTILE_BINDING_RECORD_H
#define MORVANTILE_BINDING_RECORD_H

#include <cstdint>
#include <string>
#include <vector>

#include "platform/ui/controls/control.h"
#include "plist/plistDict.h"

namespace morvantile {

// The key of a control's record: its name, ".", and its index, which a control outside a control
// set has too.
std::string ControlKey(const Control& control);

// A new and empty record under the key, in place of what was there: a dict with `standard` under
// "default" and an empty array "elements". Returns the array, or nil if the node refuses.
Ref<plistDict> NewRecord(plistDict& node, const std::string& key, const std::string& standard);

// A record that is there: its default, and the node of its elements.
struct Record {
  std::string standard;
  Ref<plistDict> elements;  // nil if what is under the key is no record
};
Record ReadRecord(plistDict& node, const std::string& key);

// The cells of an element: those of an array, or a string as the only cell.
std::vector<std::string> CellsOf(plistDict& elements, std::int64_t number);

}  // namespace morvantile

#endif  // MORVANTILE_BINDING_RECORD_H
