#ifndef MORVANTILE_PLATFORM_UI_CONTROLS_LIST_CONTROL_H
#define MORVANTILE_PLATFORM_UI_CONTROLS_LIST_CONTROL_H

#include <functional>
#include <string>
#include <vector>

#include "platform/core/export.h"
#include "platform/ui/controls/control.h"

namespace morvantile {

// A widget that shows rows, and is told what became of which.
class MORVANTILE_API ListPeer : public ControlPeer {
 public:
  virtual void RowAdded(int row) = 0;
  virtual void RowRemoved(int row) = 0;
  virtual void CellChanged(int row, int column) = 0;
  virtual void RowsCleared() = 0;
  virtual void SelectionChanged() = 0;
};

// What a list box and a popup menu have in common: rows of texts, of which one or none is selected.
// Rows and columns are counted from 0. A row or column that doesn't exist throws
// OutOfBoundsException, unless it is said otherwise.
class MORVANTILE_API ListControl : public Control {
 public:
  int ListCount() const { return static_cast<int>(rows_.size()); }
  // The text of a row's first cell.
  const std::string& List(int row) const { return Row(row).front(); }

  // The selected row, or -1 if none is.
  int ListIndex() const { return selected_; }
  // Selects a row; a number without a row selects none. Raises Change if the selection changes.
  void SetListIndex(int row);
  // The text of the selected row's first cell, or "" if no row is selected.
  std::string Text() const;

  // Removes all rows, and the selection with them.
  void DeleteAllRows();
  // Removes a row; the later ones move up, and the selection stays with its row.
  void RemoveRow(int row);

  // Raised when another row has been selected, by the program or the user.
  std::function<void(ListControl&)> Change;

  // The user selected a row, or none with -1.
  void UserSelect(int row);
  // The user edited a cell.
  void UserEdit(int row, int column, const std::string& text) { Store(row, column, text); }
  // Rows came into the widget, or went from it, without this object. The selection is told apart.
  void UserInsertRow(int row, std::vector<std::string> cells);
  void UserRemoveRow(int row);

  void AttachListPeer(ListPeer* peer) {
    AttachPeer(peer);
    list_peer_ = peer;
  }

 protected:
  using Cells = std::vector<std::string>;

  const Cells& Row(int row) const;
  void AppendRow(Cells cells);
  void SetRowCell(int row, int column, const std::string& text);
  void ResizeRows(int columns);

 private:
  void Store(int row, int column, const std::string& text);

  std::vector<Cells> rows_;
  int selected_ = -1;
  ListPeer* list_peer_ = nullptr;
};

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_UI_CONTROLS_LIST_CONTROL_H
