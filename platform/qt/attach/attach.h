// A program's own Qt widgets as control objects.
//
// A control object that is attached to a widget has the widget's state from the start; what the
// program sets on it shows in the widget, and what the user does in the widget comes back. So a
// window's state can be kept in a property list:
//
//   auto window = morvantile::AttachWindow(mainWindow);
//   prefs->root->GetWindow("main", window);
//
// The control is the caller's, the tie to the widget ends with the widget. After that the control
// keeps its last state. A widget is attached once.

#ifndef MORVANTILE_PLATFORM_QT_ATTACH_ATTACH_H
#define MORVANTILE_PLATFORM_QT_ATTACH_ATTACH_H

#include <string>

#include "platform/core/export.h"
#include "platform/ui/controls/check_box.h"
#include "platform/ui/controls/edit_field.h"
#include "platform/ui/controls/label.h"
#include "platform/ui/controls/listbox.h"
#include "platform/ui/controls/popup_menu.h"
#include "platform/ui/controls/radio_button.h"
#include "platform/ui/window.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QRadioButton;
class QTableWidget;
class QTreeWidget;
class QWidget;

namespace morvantile {

// The control's Name is the widget's objectName; set that first. Of a tree the top-level items are
// rows. A list has as many columns as the widget has at that moment, at least one. A widget that
// sorts its rows by itself should be told to do so after its rows have been restored.
MORVANTILE_API Ref<Listbox> Attach(QTreeWidget& widget);
MORVANTILE_API Ref<Listbox> Attach(QTableWidget& widget);
MORVANTILE_API Ref<Listbox> Attach(QListWidget& widget);
MORVANTILE_API Ref<PopupMenu> Attach(QComboBox& widget);
MORVANTILE_API Ref<EditField> Attach(QLineEdit& widget);
MORVANTILE_API Ref<CheckBox> Attach(QCheckBox& widget);
// Radio buttons keep the grouping that they have as widgets.
MORVANTILE_API Ref<RadioButton> Attach(QRadioButton& widget);
MORVANTILE_API Ref<StaticText> Attach(QLabel& widget);
// A top-level window: its title and the rectangle of its content.
MORVANTILE_API Ref<Window> AttachWindow(QWidget& widget);

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_QT_ATTACH_ATTACH_H
