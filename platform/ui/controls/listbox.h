#ifndef MORVANTILE_PLATFORM_UI_CONTROLS_LISTBOX_H
#define MORVANTILE_PLATFORM_UI_CONTROLS_LISTBOX_H

#include <string>
#include <vector>

#include "platform/core/export.h"
#include "platform/ui/controls/list_control.h"

namespace morvantile {

// A list of rows with one column or several. Its Text is the first cell of the selected row.
class MORVANTILE_API Listbox : public ListControl {
 public:
  int ColumnCount() const { return columns_; }
  // The number of columns, at least 1. Rows that are there lose or gain cells at their ends. To be
  // set before the list is shown.
  void SetColumnCount(int columns);

  const std::string& Cell(int row, int column) const;
  void SetCell(int row, int column, const std::string& text);

  // Adds a row behind the others. Cells that are not given are empty, those beyond the last column
  // are ignored.
  void AddRow(std::vector<std::string> cells);

 private:
  int columns_ = 1;
};

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_UI_CONTROLS_LISTBOX_H
