// List boxes and popup menus kept in a tree, each as a record: a dict with the text of the selected
// row under "default" and the rows under "elements".

#include <algorithm>
#include <utility>

#include "platform/text/folding.h"
#include "platform/text/text.h"
#include "platform/ui/controls/listbox.h"
#include "platform/ui/controls/popup_menu.h"
#include "plist/plistDict.h"

namespace morvantile {
namespace {

using Cells = std::vector<std::string>;

// The key of a control's record: its name, ".", and its index, which a control outside a control
// set has too.
std::string ControlKey(const Control& control) { return control.Name + "." + Str(control.Index); }

// Puts a new record in place of what was there. Returns its array of rows, which is empty, or nil
// if the node refuses.
Ref<plistDict> NewRecord(plistDict& node, const ListControl& control) {
  const std::string key = ControlKey(control);
  if (node.Exists(key)) node.Remove(key, true);
  node.AddChild(key);
  const Ref<plistDict> record = node.child(key);
  if (record == nullptr) return nullptr;
  node.searched.SetValue(key, false);
  record->SetString("default", control.Text());
  if (!record->AddArray("elements")) return nullptr;
  return record->child("elements");
}

// A record that is there: its default, and its rows.
struct Record {
  std::string standard;
  Ref<plistDict> rows;  // nil if what is under the key is no record
};

Record ReadRecord(plistDict& node, const ListControl& control) {
  const Ref<plistDict> record = node.child(ControlKey(control));
  if (record == nullptr) return {};
  std::string standard = record->GetString("default");
  return {std::move(standard), record->child("elements")};
}

// The cells of a row: those of an array, or a string as the only cell.
Cells CellsOf(plistDict& rows, std::int64_t number) {
  const Ref<plistDict> row = rows.index(number);
  if (row == nullptr) return {rows.GetString(Str(number))};
  Cells cells;
  const std::int64_t count = row->count();
  cells.reserve(static_cast<std::size_t>(count));
  for (std::int64_t i = 0; i < count; ++i) cells.push_back(row->GetString(Str(i)));
  return cells;
}

std::string FirstCell(const Cells& cells) { return cells.empty() ? "" : cells.front(); }

// Has each row added by add_row(number, cells), and selects the one that equals the default if that
// is wanted.
template <typename AddRow>
void AddRows(const Record& record, ListControl& control, bool select, const AddRow& add_row) {
  const int count = static_cast<int>(record.rows->count());
  for (int row = 0; row < count; ++row) {
    const Cells cells = CellsOf(*record.rows, row);
    add_row(row, cells);
    if (select && SameText(FirstCell(cells), record.standard)) control.SetListIndex(row);
  }
}

void AppendCells(plistDict& rows, const Listbox& list, int row) {
  rows.AppendArray();
  const Ref<plistDict> cells = rows.index(row);
  for (int column = 0; column < list.ColumnCount(); ++column) {
    cells->AppendString(list.Cell(row, column));
  }
}

// Adds a row behind those of the list, and writes the cells into the row of that number, as far as
// the list has columns.
void AddCells(Listbox& list, int row, const Cells& cells) {
  list.AddRow({""});
  const int known = std::min(static_cast<int>(cells.size()), list.ColumnCount());
  for (int column = 0; column < known; ++column) {
    list.SetCell(row, column, cells[static_cast<std::size_t>(column)]);
  }
}

}  // namespace

void plistDict::SetListbox(const Ref<Listbox>& list) {
  const Ref<plistDict> rows = NewRecord(*this, *list);
  if (rows == nullptr) return;
  for (int row = 0; row < list->ListCount(); ++row) {
    if (list->ColumnCount() > 1) {
      AppendCells(*rows, *list, row);
    } else {
      rows->AppendString(list->List(row));
    }
  }
}

void plistDict::GetListbox(const Ref<Listbox>& list, bool select) {
  if (!Exists(ControlKey(*list))) SetListbox(list);
  const Record record = ReadRecord(*this, *list);
  if (record.rows == nullptr) return;
  AddRows(record, *list, select, [&](int row, const Cells& cells) {
    if (list->ColumnCount() > 1) {
      AddCells(*list, row, cells);
    } else {
      list->AddRow({FirstCell(cells)});
    }
  });
}

void plistDict::AppendListbox(const Ref<Listbox>& list) {
  if (CheckArray()) SetListbox(list);
}

void plistDict::SetPopup(const Ref<PopupMenu>& menu) {
  const Ref<plistDict> rows = NewRecord(*this, *menu);
  if (rows == nullptr) return;
  for (int row = 0; row < menu->ListCount(); ++row) rows->AppendString(menu->List(row));
}

void plistDict::GetPopup(const Ref<PopupMenu>& menu, bool select) {
  if (!Exists(ControlKey(*menu))) SetPopup(menu);
  const Record record = ReadRecord(*this, *menu);
  if (record.rows == nullptr) return;
  menu->DeleteAllRows();
  AddRows(record, *menu, select,
          [&](int /*row*/, const Cells& cells) { menu->AddRow(FirstCell(cells)); });
}

void plistDict::AppendPopup(const Ref<PopupMenu>& menu) {
  if (CheckArray()) SetPopup(menu);
}

}  // namespace morvantile
