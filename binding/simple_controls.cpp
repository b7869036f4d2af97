// Controls with one value kept in a tree, under their names.

#include "platform/ui/controls/check_box.h"
#include "platform/ui/controls/edit_field.h"
#include "platform/ui/controls/label.h"
#include "platform/ui/controls/radio_button.h"
#include "plist/plistDict.h"

namespace morvantile {

void plistDict::SetEditField(const Ref<EditField>& field) { SetString(field->Name, field->Text()); }

void plistDict::GetEditField(const Ref<EditField>& field) {
  field->SetText(GetString(field->Name, field->Text()));
}

void plistDict::GetCheckbox(const Ref<CheckBox>& box) {
  box->SetValue(GetBoolean(box->Name, box->Value()));
}

void plistDict::SetCheckbox(const Ref<CheckBox>& box) { SetBoolean(box->Name, box->Value()); }

void plistDict::SetStaticText(const Ref<StaticText>& text) {
  SetString(text->Name, text->Caption());
}

void plistDict::GetStaticText(const Ref<StaticText>& text) {
  text->SetCaption(GetString(text->Name, text->Caption()));
}

void plistDict::SetRadio(const Ref<RadioButton>& button) {
  SetBoolean(button->Name, button->Value());
}

void plistDict::GetRadio(const Ref<RadioButton>& button) {
  button->SetValue(GetBoolean(button->Name, button->Value()));
}

}  // namespace morvantile
