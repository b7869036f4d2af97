// The widgets behind the controls that the dialogs are made of.

#ifndef MORVANTILE_PLATFORM_QT_WIDGETS_CONTROL_WIDGETS_H
#define MORVANTILE_PLATFORM_QT_WIDGETS_CONTROL_WIDGETS_H

#include <QWidget>
#include <memory>

#include "platform/ui/controls/control.h"

namespace morvantile {

// A control that is shown: the widget, which belongs to its parent, and the peer that keeps the two
// alike for as long as it lives.
struct ShownControl {
  QWidget* widget;
  std::unique_ptr<ControlPeer> peer;
};

// Makes the widget that shows the control inside `parent`, which is drawn at `scale` of its size, 0
// to 1. The widget is null for a control of another class than the dialogs have: lists, menus,
// fields and boxes are there for programs with widgets of their own, which attach them.
ShownControl Show(Control& control, QWidget& parent, double scale);

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_QT_WIDGETS_CONTROL_WIDGETS_H
