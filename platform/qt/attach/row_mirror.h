#ifndef MORVANTILE_PLATFORM_QT_ATTACH_ROW_MIRROR_H
#define MORVANTILE_PLATFORM_QT_ATTACH_ROW_MIRROR_H

#include <QAbstractItemModel>
#include <QObject>
#include <functional>

#include "platform/ui/controls/list_control.h"

namespace morvantile {

// How the selected row of a widget is read and set; -1 is none.
struct RowSelector {
  std::function<int()> get;
  std::function<void(int)> set;
};

// Keeps the rows of a list or menu and those of a widget's model alike, in both directions. Of a
// tree the top-level rows count.
class RowMirror : public QObject, public ListPeer {
 public:
  // Ties the two together, for as long as the mirror lives; the model has to live at least as long.
  // The control gets the widget's rows and selection.
  RowMirror(ListControl& control, int columns, QAbstractItemModel& model, RowSelector selector);
  ~RowMirror() override;
  RowMirror(const RowMirror&) = delete;
  RowMirror& operator=(const RowMirror&) = delete;

  // The widget has another row selected.
  void WidgetSelected();

  void ControlChanged() override {}  // each change of a list is told by itself
  void RowAdded(int row) override;
  void RowRemoved(int row) override;
  void CellChanged(int row, int column) override;
  void RowsCleared() override;
  void SelectionChanged() override;

 private:
  void TakeFromWidget();
  void Follow();
  [[nodiscard]] std::vector<std::string> WidgetRow(int row) const;

  Ref<ListControl> control_;
  int columns_;
  QAbstractItemModel* model_;
  RowSelector selector_;
  bool applying_ = false;
};

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_QT_ATTACH_ROW_MIRROR_H
