#include "platform/qt/attach/row_mirror.h"

#include <QScopedValueRollback>
#include <QString>
#include <utility>

#include "platform/ui/controls/listbox.h"

namespace morvantile {
namespace {

std::string TextAt(const QAbstractItemModel& model, int row, int column) {
  return model.index(row, column).data(Qt::EditRole).toString().toStdString();
}

const std::string& CellOf(const ListControl& control, int row, int column) {
  const auto* list = dynamic_cast<const Listbox*>(&control);
  return list == nullptr ? control.List(row) : list->Cell(row, column);
}

}  // namespace

RowMirror::RowMirror(ListControl& control, int columns, QAbstractItemModel& model,
                     RowSelector selector)
    : control_(&control), columns_(columns), model_(&model), selector_(std::move(selector)) {
  control.AttachListPeer(this);
  TakeFromWidget();
  Follow();
}

RowMirror::~RowMirror() { control_->AttachListPeer(nullptr); }

void RowMirror::Follow() {
  QObject::connect(model_, &QAbstractItemModel::rowsInserted, this,
                   [this](const QModelIndex& parent, int first, int last) {
                     if (applying_ || parent.isValid()) return;
                     for (int row = first; row <= last; ++row) {
                       control_->UserInsertRow(row, WidgetRow(row));
                     }
                     WidgetSelected();
                   });
  QObject::connect(model_, &QAbstractItemModel::rowsRemoved, this,
                   [this](const QModelIndex& parent, int first, int last) {
                     if (applying_ || parent.isValid()) return;
                     for (int row = last; row >= first; --row) control_->UserRemoveRow(row);
                     WidgetSelected();
                   });
  QObject::connect(model_, &QAbstractItemModel::dataChanged, this,
                   [this](const QModelIndex& first, const QModelIndex& last) {
                     if (applying_ || first.parent().isValid()) return;
                     for (int row = first.row(); row <= last.row(); ++row) {
                       for (int column = first.column();
                            column <= last.column() && column < columns_; ++column) {
                         control_->UserEdit(row, column, TextAt(*model_, row, column));
                       }
                     }
                   });
  const auto reload = [this] {
    if (!applying_) TakeFromWidget();
  };
  QObject::connect(model_, &QAbstractItemModel::modelReset, this, reload);
  QObject::connect(model_, &QAbstractItemModel::layoutChanged, this, reload);
  QObject::connect(model_, &QAbstractItemModel::rowsMoved, this, reload);
}

void RowMirror::TakeFromWidget() {
  while (control_->ListCount() > 0) control_->UserRemoveRow(control_->ListCount() - 1);
  for (int row = 0; row < model_->rowCount(); ++row) control_->UserInsertRow(row, WidgetRow(row));
  WidgetSelected();
}

void RowMirror::WidgetSelected() {
  if (!applying_) control_->UserSelect(selector_.get());
}

std::vector<std::string> RowMirror::WidgetRow(int row) const {
  std::vector<std::string> cells;
  cells.reserve(static_cast<std::size_t>(columns_));
  for (int column = 0; column < columns_; ++column) cells.push_back(TextAt(*model_, row, column));
  return cells;
}

// What the program does: what the widget says meanwhile is no news.

void RowMirror::RowAdded(int row) {
  const QScopedValueRollback applying(applying_, true);
  model_->insertRow(row);
  for (int column = 0; column < columns_; ++column) CellChanged(row, column);
  SelectionChanged();
}

void RowMirror::RowRemoved(int row) {
  const QScopedValueRollback applying(applying_, true);
  model_->removeRow(row);
  SelectionChanged();
}

void RowMirror::CellChanged(int row, int column) {
  const QScopedValueRollback applying(applying_, true);
  model_->setData(model_->index(row, column),
                  QString::fromStdString(CellOf(*control_, row, column)), Qt::EditRole);
}

void RowMirror::RowsCleared() {
  const QScopedValueRollback applying(applying_, true);
  model_->removeRows(0, model_->rowCount());
}

void RowMirror::SelectionChanged() {
  const QScopedValueRollback applying(applying_, true);
  if (selector_.get() != control_->ListIndex()) selector_.set(control_->ListIndex());
}

}  // namespace morvantile
