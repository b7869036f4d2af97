#include "platform/qt/attach/row_selectors.h"

#include <QItemSelectionModel>

namespace morvantile {
namespace {

int TopLevelRow(const QModelIndex& index) {
  QModelIndex top = index;
  while (top.parent().isValid()) top = top.parent();
  return top.row();
}

}  // namespace

RowSelector SelectorOf(QAbstractItemView& view) {
  return {[&view] { return TopLevelRow(view.currentIndex()); },
          [&view](int row) { view.setCurrentIndex(view.model()->index(row, 0)); }};
}

RowSelector SelectorOf(QComboBox& box) {
  return {[&box] { return box.currentIndex(); }, [&box](int row) { box.setCurrentIndex(row); }};
}

void FollowSelection(QAbstractItemView& view, RowMirror& mirror) {
  QObject::connect(view.selectionModel(), &QItemSelectionModel::currentRowChanged, &mirror,
                   [&mirror] { mirror.WidgetSelected(); });
}

void FollowSelection(QComboBox& box, RowMirror& mirror) {
  QObject::connect(&box, &QComboBox::currentIndexChanged, &mirror,
                   [&mirror] { mirror.WidgetSelected(); });
}

}  // namespace morvantile
