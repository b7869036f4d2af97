#ifndef MORVANTILE_PLATFORM_QT_ATTACH_ROW_SELECTORS_H
#define MORVANTILE_PLATFORM_QT_ATTACH_ROW_SELECTORS_H

#include <QAbstractItemView>
#include <QComboBox>

#include "platform/qt/attach/row_mirror.h"

namespace morvantile {

RowSelector SelectorOf(QAbstractItemView& view);
RowSelector SelectorOf(QComboBox& box);

// Tells the mirror whenever the widget has another row selected, for as long as both live.
void FollowSelection(QAbstractItemView& view, RowMirror& mirror);
void FollowSelection(QComboBox& box, RowMirror& mirror);

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_QT_ATTACH_ROW_SELECTORS_H
