// The widgets behind the controls.

#ifndef MORVANTILE_PLATFORM_QT_CONTROL_WIDGETS_H
#define MORVANTILE_PLATFORM_QT_CONTROL_WIDGETS_H

#include <QWidget>
#include <memory>

#include "platform/ui/control.h"

namespace morvantile {

// Makes the widget that shows the control inside `parent`, and the peer that keeps the two alike
// for as long as it lives. The widget belongs to `parent` and outlives the peer. Null for a class
// of control that the host doesn't know.
std::unique_ptr<ControlPeer> MakePeer(Control& control, QWidget& parent);

// The widget of a peer made by MakePeer.
QWidget* WidgetOf(const ControlPeer& peer);

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_QT_CONTROL_WIDGETS_H
