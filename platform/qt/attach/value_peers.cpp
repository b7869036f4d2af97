#include "platform/qt/attach/value_peers.h"

#include <QButtonGroup>

namespace morvantile {

EditFieldPeer::EditFieldPeer(EditField& field, QLineEdit* widget) : PeerOf(field, widget) {
  QObject::connect(widget, &QLineEdit::textChanged, widget,
                   [this](const QString& text) { control().SetText(text.toStdString()); });
}

void EditFieldPeer::ControlChanged() {
  const QString text = QString::fromStdString(control().Text());
  if (widget().text() != text) widget().setText(text);
}

CheckBoxPeer::CheckBoxPeer(CheckBox& box, QCheckBox* widget) : PeerOf(box, widget) {
  QObject::connect(widget, &QCheckBox::toggled, widget,
                   [this](bool checked) { control().SetValue(checked); });
}

void CheckBoxPeer::ControlChanged() { widget().setChecked(control().Value()); }

RadioButtonPeer::RadioButtonPeer(RadioButton& button, QRadioButton* widget)
    : PeerOf(button, widget) {
  QObject::connect(widget, &QRadioButton::toggled, widget,
                   [this](bool checked) { control().SetValue(checked); });
}

void RadioButtonPeer::ControlChanged() {
  if (control().Value()) {
    widget().setChecked(true);
  } else if (widget().isChecked()) {
    TurnOff();
  }
}

// The toolkit lets nobody turn the last button of an exclusive group off.
void RadioButtonPeer::TurnOff() {
  QButtonGroup* group = widget().group();
  const bool group_exclusive = group != nullptr && group->exclusive();
  const bool auto_exclusive = widget().autoExclusive();
  if (group != nullptr) group->setExclusive(false);
  widget().setAutoExclusive(false);
  widget().setChecked(false);
  widget().setAutoExclusive(auto_exclusive);
  if (group != nullptr) group->setExclusive(group_exclusive);
}

}  // namespace morvantile
