// List boxes kept in a tree.

#include "platform/ui/controls/listbox.h"

#include <algorithm>

#include "binding/record.h"
#include "platform/text/folding.h"
#include "platform/text/text.h"
#include "plist/plistDict.h"

namespace morvantile {
namespace {

void AppendCells(plistDict& elements, const Listbox& list, int row) {
  elements.AppendArray();
  const Ref<plistDict> cells = elements.index(row);
  for (int column = 0; column < list.ColumnCount(); ++column) {
    cells->AppendString(list.Cell(row, column));
  }
}

// Adds a row behind those of the list, and writes the cells into the row of that number, as far as
// the list has columns.
void AddCells(Listbox& list, int row, const std::vector<std::string>& cells) {
  list.AddRow({""});
  const int known = std::min(static_cast<int>(cells.size()), list.ColumnCount());
  for (int column = 0; column < known; ++column) {
    list.SetCell(row, column, cells[static_cast<std::size_t>(column)]);
  }
}

void AddStoredRow(Listbox& list, int row, const std::vector<std::string>& cells) {
  if (list.ColumnCount() > 1) {
    AddCells(list, row, cells);
  } else {
    list.AddRow({cells.empty() ? "" : cells.front()});
  }
}

}  // namespace

void plistDict::SetListbox(const Ref<Listbox>& list) {
  const Ref<plistDict> elements = NewRecord(*this, ControlKey(*list), list->Text());
  if (elements == nullptr) return;
  for (int row = 0; row < list->ListCount(); ++row) {
    if (list->ColumnCount() > 1) {
      AppendCells(*elements, *list, row);
    } else {
      elements->AppendString(list->List(row));
    }
  }
}

void plistDict::GetListbox(const Ref<Listbox>& list, bool select) {
  const std::string key = ControlKey(*list);
  if (!Exists(key)) SetListbox(list);
  const Record record = ReadRecord(*this, key);
  if (record.elements == nullptr) return;
  const int rows = static_cast<int>(record.elements->count());
  for (int row = 0; row < rows; ++row) {
    const std::vector<std::string> cells = CellsOf(*record.elements, row);
    AddStoredRow(*list, row, cells);
    const bool is_default = SameText(cells.empty() ? "" : cells.front(), record.standard);
    if (is_default && select) list->SetListIndex(row);
  }
}

void plistDict::AppendListbox(const Ref<Listbox>& list) {
  if (CheckArray()) SetListbox(list);
}

}  // namespace morvantile
