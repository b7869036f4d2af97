#include <gtest/gtest.h>

#include "platform/ui/check_box.h"
#include "platform/ui/edit_field.h"
#include "platform/ui/label.h"
#include "platform/ui/radio_button.h"
#include "plist/plistDict.h"

namespace morvantile {
namespace {

template <typename C>
Ref<C> Named(const std::string& name) {
  Ref<C> control = New<C>();
  control->Name = name;
  return control;
}

TEST(SimpleControls, AMissingValueIsTakenFromTheControl) {
  const Ref<plistDict> node = New<plistDict>();
  const Ref<EditField> field = Named<EditField>("field");
  field->SetText("text");
  node->GetEditField(field);
  const Ref<CheckBox> box = Named<CheckBox>("box");
  node->GetCheckbox(box);
  const Ref<StaticText> label = Named<StaticText>("label");
  label->SetCaption("caption");
  node->GetStaticText(label);
  const Ref<RadioButton> button = Named<RadioButton>("button");
  button->SetValue(true);
  node->GetRadio(button);

  EXPECT_EQ(node->GetString("field"), "text");
  EXPECT_EQ(node->GetType("box"), "boolean");
  EXPECT_FALSE(box->Value());
  EXPECT_EQ(node->GetString("label"), "caption");
  EXPECT_TRUE(node->GetBoolean("button"));
}

TEST(SimpleControls, AStoredValueComesBackEvenIfItIsEmpty) {
  const Ref<plistDict> node = New<plistDict>();
  const Ref<EditField> field = Named<EditField>("field");
  node->SetEditField(field);
  field->SetText("changed");
  node->GetEditField(field);
  EXPECT_EQ(field->Text(), "");

  const Ref<CheckBox> box = Named<CheckBox>("box");
  box->SetValue(true);
  node->SetCheckbox(box);
  box->SetValue(false);
  node->GetCheckbox(box);
  EXPECT_TRUE(box->Value());

  const Ref<StaticText> label = Named<StaticText>("label");
  label->SetCaption("one");
  node->SetStaticText(label);
  label->SetCaption("two");
  node->GetStaticText(label);
  EXPECT_EQ(label->Text(), "one");
}

TEST(SimpleControls, TheRadioButtonsOfOneNameShareAKey) {
  const Ref<plistDict> node = New<plistDict>();
  const Ref<RadioGroup> group = New<RadioGroup>();
  const Ref<RadioButton> first = Named<RadioButton>("r");
  const Ref<RadioButton> second = Named<RadioButton>("r");
  group->Add(first);
  group->Add(second);
  first->SetValue(true);
  second->SetValue(true);
  EXPECT_FALSE(first->Value());
  node->SetRadio(first);
  node->SetRadio(second);
  EXPECT_EQ(node->count(), 1);
  node->GetRadio(first);
  EXPECT_TRUE(first->Value());
  EXPECT_FALSE(second->Value());
}

}  // namespace
}  // namespace morvantile
