#include "platform/ui/controls/list_control.h"

#include <utility>

#include "platform/core/exceptions.h"

namespace morvantile {

void ListControl::SetListIndex(int row) {
  const int wanted = row >= 0 && row < ListCount() ? row : -1;
  if (wanted == selected_) return;
  selected_ = wanted;
  if (list_peer_ != nullptr) list_peer_->SelectionChanged();
  Raise(Change, *this);
}

std::string ListControl::Text() const { return selected_ < 0 ? "" : List(selected_); }

void ListControl::DeleteAllRows() {
  rows_.clear();
  if (list_peer_ != nullptr) list_peer_->RowsCleared();
  SetListIndex(-1);
}

void ListControl::RemoveRow(int row) {
  Row(row);
  rows_.erase(rows_.begin() + row);
  const bool lost = row == selected_;
  if (row < selected_) --selected_;
  if (lost) selected_ = -1;
  if (list_peer_ != nullptr) list_peer_->RowRemoved(row);
  if (lost) Raise(Change, *this);
}

void ListControl::UserSelect(int row) {
  if (row == selected_) return;
  selected_ = row;
  Raise(Change, *this);
}

void ListControl::UserInsertRow(int row, std::vector<std::string> cells) {
  rows_.insert(rows_.begin() + row, std::move(cells));
}

void ListControl::UserRemoveRow(int row) {
  Row(row);
  rows_.erase(rows_.begin() + row);
}

const ListControl::Cells& ListControl::Row(int row) const {
  if (row < 0 || row >= ListCount()) throw OutOfBoundsException();
  return rows_[static_cast<std::size_t>(row)];
}

void ListControl::AppendRow(Cells cells) {
  rows_.push_back(std::move(cells));
  if (list_peer_ != nullptr) list_peer_->RowAdded(ListCount() - 1);
}

void ListControl::SetRowCell(int row, int column, const std::string& text) {
  Store(row, column, text);
  if (list_peer_ != nullptr) list_peer_->CellChanged(row, column);
}

void ListControl::ResizeRows(int columns) {
  for (Cells& row : rows_) row.resize(static_cast<std::size_t>(columns));
}

void ListControl::Store(int row, int column, const std::string& text) {
  if (column < 0 || static_cast<std::size_t>(column) >= Row(row).size()) {
    throw OutOfBoundsException();
  }
  rows_[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)] = text;
}

}  // namespace morvantile
