#include "platform/ui/check_box.h"
#include "platform/ui/edit_field.h"
#include "platform/ui/label.h"
#include "platform/ui/radio_button.h"
#include "platform/ui/window.h"
#include "tests/plist/rows.h"

namespace morvantile {
namespace {

Ref<EditField> Field(const char* text) {
  Ref<EditField> field = New<EditField>();
  field->Name = "c";
  field->SetText(text);
  return field;
}

Ref<StaticText> Text(const char* text) {
  Ref<StaticText> label = New<StaticText>();
  label->Name = "c";
  label->SetCaption(text);
  return label;
}

template <typename C>
Ref<C> Set(bool value) {
  Ref<C> control = New<C>();
  control->Name = "c";
  control->SetValue(value);
  return control;
}

// What a control shows once it has been read by the operation.
template <typename C>
std::string Got(N n, void (plistDict::*get)(const Ref<C>&), const Ref<C>& control) {
  (n.*get)(control);
  if constexpr (std::is_same_v<C, EditField> || std::is_same_v<C, StaticText>) {
    return control->Text();
  } else {
    return control->Value() ? "on" : "off";
  }
}

TEST(SimpleControls, ComeBackAsTheyWereStoredOrElseAreStored) {
  const auto field = [](N n) { return Got(n, &plistDict::GetEditField, Field("own")); };
  const auto text = [](N n) { return Got(n, &plistDict::GetStaticText, Text("own")); };
  const auto box = [](N n) { return Got(n, &plistDict::GetCheckbox, Set<CheckBox>(true)); };
  const auto radio = [](N n) { return Got(n, &plistDict::GetRadio, Set<RadioButton>(true)); };
  Check({
      {"{}", [](N n) { n.SetEditField(Field("x")); }, "{c: 'x'}"},
      {"{c: ''}", field, "'' ="},
      {"{}", field, "'own' {c: 'own'}"},
      {"{}", [](N n) { n.SetStaticText(Text("x")); }, "{c: 'x'}"},
      {"{c: 'x'}", text, "'x' ="},
      {"{}", text, "'own' {c: 'own'}"},
      {"{}", [](N n) { n.SetCheckbox(Set<CheckBox>(true)); }, "{c: boolean 'true'}"},
      {"{c: boolean 'false'}", box, "'off' ="},
      {"{}", box, "'on' {c: boolean 'true'}"},
      {"{}", [](N n) { n.SetRadio(Set<RadioButton>(true)); }, "{c: boolean 'true'}"},
      {"{c: boolean 'false'}", radio, "'off' ="},
      {"{}", radio, "'on' {c: boolean 'true'}"},
  });
}

TEST(SimpleControls, TheRadioButtonsOfOneNameShareAKey) {
  const Ref<plistDict> node = New<plistDict>();
  const Ref<RadioGroup> group = New<RadioGroup>();
  const Ref<RadioButton> first = Set<RadioButton>(true);
  const Ref<RadioButton> second = Set<RadioButton>(false);
  group->Add(first);
  group->Add(second);
  second->SetValue(true);
  EXPECT_FALSE(first->Value());
  node->SetRadio(second);
  node->GetRadio(first);
  EXPECT_TRUE(first->Value() && !second->Value());
}

Ref<Window> At(const char* title, int left, int top, int width, int height) {
  Ref<Window> window = New<Window>();
  window->SetTitle(title);
  window->SetLeft(left);
  window->SetTop(top);
  window->SetWidth(width);
  window->SetHeight(height);
  return window;
}

// Title and place of a window that is read from the node.
std::string Got(N n, const char* key) {
  const Ref<Window> window = At("Own", 1, 2, 3, 4);
  n.GetWindow(key, window);
  return window->Title() + " " + Str(window->Left()) + " " + Str(window->Top()) + " " +
         Str(window->Width()) + " " + Str(window->Height());
}

TEST(Windows, ComeBackWhereTheyWereStoredOrElseAreStored) {
  const std::string place =
      "WindowPos: {left: integer '-20', top: integer '30', width: integer '40', "
      "height: integer '99999999999'}";
  const std::string own =
      "{windowName: 'Own', WindowPos: {left: integer '1', top: integer '2', "
      "width: integer '3', height: integer '4'}}";
  const auto get = [](N n) { return Got(n, "w"); };
  Check({
      {"{W: {windowName: 'A', " + place + "}}", get, "'A -20 30 40 2147483647' ="},
      {"{}", get, "'Own 1 2 3 4' {w: " + own + "}"},
      {"{w: {" + place + "}}", [](N n) { n.SetWindow("w", At("Own", 1, 2, 3, 4)); },
       "{w: {WindowPos: {left: integer '1', top: integer '2', width: integer '3', height: "
       "integer '4'}, windowName: 'Own'}}"},
      {"{w: {windowName: 'A', WindowPos: {top: integer '30', width: integer '40', left: integer "
       "'7'}}}",
       get,
       "'A 7 30 40 0' {w: {windowName: 'A', WindowPos: {top: integer '30', width: integer '40', "
       "left: integer '7', height: integer '0'}}}"},
      {"{w: {WindowPos: 'x'}}", get,
       "' 1 2 3 4' {w: {WindowPos: 'x', windowName: ''}} Child exists: WindowPos already exists"},
      {"{w: 'x'}", get, "'Own 1 2 3 4' = Child exists: w already exists"},
      {"{w: 'x'}", [](N n) { n.SetWindow("w", At("", 1, 2, 3, 4)); },
       "= Child exists: w already exists"},
      {"{}", [](N n) { n.SetWindow("w", nullptr); }, "use of a nil object: ="},
      {"['x']", [](N n) { n.AppendWindow(At("Own", 1, 2, 3, 4)); }, "['x', " + own + "]"},
      {"{}", [](N n) { n.AppendWindow(At("Own", 1, 2, 3, 4)); }, "= root is not an array"},
  });
}

}  // namespace
}  // namespace morvantile
