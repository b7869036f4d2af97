#include "platform/ui/controls/listbox.h"

#include <algorithm>
#include <utility>

#include "platform/core/exceptions.h"

namespace morvantile {

void Listbox::SetColumnCount(int columns) {
  columns_ = std::max(1, columns);
  ResizeRows(columns_);
}

const std::string& Listbox::Cell(int row, int column) const {
  const Cells& cells = Row(row);
  if (column < 0 || column >= columns_) throw OutOfBoundsException();
  return cells[static_cast<std::size_t>(column)];
}

void Listbox::SetCell(int row, int column, const std::string& text) {
  SetRowCell(row, column, text);
}

void Listbox::AddRow(std::vector<std::string> cells) {
  cells.resize(static_cast<std::size_t>(columns_));
  AppendRow(std::move(cells));
}

}  // namespace morvantile
