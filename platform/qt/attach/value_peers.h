// The peers of the controls that hold one value.

#ifndef MORVANTILE_PLATFORM_QT_ATTACH_VALUE_PEERS_H
#define MORVANTILE_PLATFORM_QT_ATTACH_VALUE_PEERS_H

#include <QCheckBox>
#include <QLineEdit>
#include <QRadioButton>

#include "platform/qt/attach/control_peer.h"
#include "platform/ui/controls/check_box.h"
#include "platform/ui/controls/edit_field.h"
#include "platform/ui/controls/radio_button.h"

namespace morvantile {

class EditFieldPeer : public PeerOf<EditField, QLineEdit> {
 public:
  EditFieldPeer(EditField& field, QLineEdit* widget);
  void ControlChanged() override;
};

class CheckBoxPeer : public PeerOf<CheckBox, QCheckBox> {
 public:
  CheckBoxPeer(CheckBox& box, QCheckBox* widget);
  void ControlChanged() override;
};

class RadioButtonPeer : public PeerOf<RadioButton, QRadioButton> {
 public:
  RadioButtonPeer(RadioButton& button, QRadioButton* widget);
  void ControlChanged() override;

 private:
  void TurnOff();
};

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_QT_ATTACH_VALUE_PEERS_H
