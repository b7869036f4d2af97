// Popup menus kept in a tree.

#include "binding/record.h"
#include "platform/text/folding.h"
#include "platform/text/text.h"
#include "platform/ui/controls/popup_menu.h"
#include "plist/plistDict.h"

namespace morvantile {

void plistDict::SetPopup(const Ref<PopupMenu>& menu) {
  const Ref<plistDict> elements = NewRecord(*this, ControlKey(*menu), menu->Text());
  if (elements == nullptr) return;
  for (int row = 0; row < menu->ListCount(); ++row) elements->AppendString(menu->List(row));
}

void plistDict::GetPopup(const Ref<PopupMenu>& menu, bool select) {
  const std::string key = ControlKey(*menu);
  if (!Exists(key)) SetPopup(menu);
  const Record record = ReadRecord(*this, key);
  if (record.elements == nullptr) return;
  menu->DeleteAllRows();
  const int rows = static_cast<int>(record.elements->count());
  for (int row = 0; row < rows; ++row) {
    const std::vector<std::string> cells = CellsOf(*record.elements, row);
    const std::string text = cells.empty() ? "" : cells.front();
    menu->AddRow(text);
    if (select && SameText(text, record.standard)) menu->SetListIndex(row);
  }
}

void plistDict::AppendPopup(const Ref<PopupMenu>& menu) {
  if (CheckArray()) SetPopup(menu);
}

}  // namespace morvantile
