#ifndef MORVANTILE_PLATFORM_UI_CONTROLS_POPUP_MENU_H
#define MORVANTILE_PLATFORM_UI_CONTROLS_POPUP_MENU_H

#include <string>

#include "platform/core/export.h"
#include "platform/ui/controls/list_control.h"

namespace morvantile {

// A menu that shows its selected row and opens to all of them.
class MORVANTILE_API PopupMenu : public ListControl {
 public:
  // Adds a row behind the others.
  void AddRow(const std::string& text) { AppendRow({text}); }
};

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_UI_CONTROLS_POPUP_MENU_H
