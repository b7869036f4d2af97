#include "platform/ui/controls/check_box.h"
#include "platform/ui/controls/edit_field.h"
#include "platform/ui/controls/label.h"
#include "platform/ui/controls/radio_button.h"
#include "platform/ui/window.h"
#include "tests/plist/rows.h"

namespace morvantile {
namespace {

// A control that shows one value is read from an empty node; then another value is stored over it,
// and read into the control that shows the first one.
template <typename C, typename Value, typename Shown>
void ExpectKept(void (plistDict::*store)(const Ref<C>&), void (plistDict::*get)(const Ref<C>&),
                void (C::*change)(Value), Shown (C::*shown)() const, Value one, Value other,
                const char* sketch) {
  const Ref<plist> document = NewDocument();
  plistDict& node = *document->root;
  const Ref<C> control = New<C>();
  control->Name = "c";
  (*control.*change)(one);
  (node.*get)(control);
  EXPECT_EQ(Sketch(node), sketch);
  (*control.*change)(other);
  (node.*store)(control);
  (*control.*change)(one);
  (node.*get)(control);
  EXPECT_EQ((*control.*shown)(), other) << sketch;
}

TEST(SimpleControls, ComeBackAsTheyWereStoredOrElseAreStored) {
  using P = plistDict;
  const std::string x = "x";
  ExpectKept<EditField, const std::string&>(&P::SetEditField, &P::GetEditField, &EditField::SetText,
                                            &EditField::Text, x, "", "{c: 'x'}");
  ExpectKept<StaticText, const std::string&>(&P::SetStaticText, &P::GetStaticText,
                                             &StaticText::SetCaption, &StaticText::Caption, x, "",
                                             "{c: 'x'}");
  ExpectKept(&P::SetCheckbox, &P::GetCheckbox, &CheckBox::SetValue, &CheckBox::Value, true, false,
             "{c: boolean 'true'}");
  ExpectKept(&P::SetRadio, &P::GetRadio, &RadioButton::SetValue, &RadioButton::Value, true, false,
             "{c: boolean 'true'}");
}

TEST(SimpleControls, TheRadioButtonsOfOneNameShareAKey) {
  const Ref<plistDict> node = New<plistDict>();
  const Ref<RadioGroup> group = New<RadioGroup>();
  const Ref<RadioButton> first = New<RadioButton>();
  const Ref<RadioButton> second = New<RadioButton>();
  group->Add(first);
  group->Add(second);
  second->SetValue(true);
  node->SetRadio(second);
  node->GetRadio(first);
  EXPECT_TRUE(first->Value() && !second->Value());
}

Ref<Window> NewWindow() {
  Ref<Window> window = New<Window>();
  window->SetTitle("A");
  window->SetLeft(1);
  window->SetTop(2);
  window->SetWidth(3);
  window->SetHeight(4);
  return window;
}

TEST(Windows, ComeBackWhereTheyWereStoredOrElseAreStored) {
  const auto get = [](N n) {
    const Ref<Window> window = NewWindow();
    n.GetWindow("w", window);
    return window->Title() + " " + Str(window->Left()) + " " + Str(window->Top()) + " " +
           Str(window->Width()) + " " + Str(window->Height());
  };
  const auto set = [](N n) { n.SetWindow("w", NewWindow()); };
  const auto append = [](N n) { n.AppendWindow(NewWindow()); };
  const std::string place =
      "WindowPos: {left: integer '1', top: integer '2', width: integer '3', height: integer '";
  const std::string own = "{windowName: 'A', " + place + "4'}}";
  CheckRows({
      {"{}", get, "'A 1 2 3 4' {w: " + own + "}"},
      {"{w: {windowName: 'B', WindowPos: {left: integer '-5', top: integer '6', "
       "width: integer '7', height: integer '99999999999'}}}",
       get, "'B -5 6 7 2147483647' ="},
      {"{w: {windowName: 'A', " + place + "77'}}}", set, "{w: " + own + "}"},
      {"{w: {WindowPos: 'x'}}", get,
       "' 1 2 3 4' {w: {WindowPos: 'x', windowName: ''}} Child exists: WindowPos already exists"},
      {"{w: 'x'}", get, "'A 1 2 3 4' = Child exists: w already exists"},
      {"{w: 'x'}", set, "= Child exists: w already exists"},
      {"{}", [](N n) { n.SetWindow("w", nullptr); }, "use of a nil object: ="},
      {"['x']", append, "['x', " + own + "]"},
      {"{}", append, "= root is not an array"},
  });
}

}  // namespace
}  // namespace morvantile
