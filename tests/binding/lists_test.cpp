#include "platform/ui/controls/listbox.h"
#include "platform/ui/controls/popup_menu.h"
#include "tests/plist/rows.h"

namespace morvantile {
namespace {

using Strings = std::vector<std::string>;

const Strings kFive = {"a", "b", "c", "d", "e"};

// The rows begin with the first letters; in a second column, each has an "x".
Ref<Listbox> List(int columns, std::size_t rows, int selected = -1) {
  Ref<Listbox> list = New<Listbox>();
  list->Name = "1";
  list->Index = 3;
  list->SetColumnCount(columns);
  for (std::size_t row = 0; row < rows; ++row) list->AddRow({kFive[row], "x"});
  list->SetListIndex(selected);
  return list;
}

Ref<PopupMenu> Menu(std::size_t rows, int selected = -1) {
  Ref<PopupMenu> menu = New<PopupMenu>();
  menu->Name = "M";
  for (std::size_t row = 0; row < rows; ++row) menu->AddRow(kFive[row]);
  menu->SetListIndex(selected);
  return menu;
}

// The rows of a control that is read from the node, and the number of the one that is selected.
std::string Got(N n, const Ref<Listbox>& list, bool select) {
  n.GetListbox(list, select);
  std::string cells;
  for (int row = 0; row < list->ListCount(); ++row) {
    for (int column = 0; column < list->ColumnCount(); ++column)
      cells += list->Cell(row, column) + ",";
    cells += " ";
  }
  return cells + Str(list->ListIndex());
}

std::string Got(N n, const Ref<PopupMenu>& menu, bool select) {
  n.GetPopup(menu, select);
  std::string rows;
  for (int row = 0; row < menu->ListCount(); ++row) rows += menu->List(row) + " ";
  return rows + Str(menu->ListIndex());
}

TEST(Listbox, SelectsNoRowThatIsNotThere) {
  const Ref<Listbox> list = List(1, 3, 2);
  list->RemoveRow(0);
  EXPECT_EQ(list->ListIndex(), 1);
  list->RemoveRow(1);
  EXPECT_EQ(list->ListIndex(), -1);
  list->SetListIndex(1);
  EXPECT_EQ(list->ListIndex(), -1);
}

TEST(Listbox, IsStoredInPlaceOfWhatHasItsKeyAndComesBackAsFarAsItHasColumns) {
  const auto set_one = [](N n) { n.SetListbox(List(1, 2, 1)); };
  const auto set_two = [](N n) { n.SetListbox(List(2, 2)); };
  const auto append = [](N n) { n.AppendListbox(List(1, 0)); };
  const auto one = [](N n) { return Got(n, List(1, 0), true); };
  const auto two = [](N n) { return Got(n, List(2, 0), true); };
  const auto unselected = [](N n) { return Got(n, List(1, 1), false); };
  CheckRows({
      {"{}", set_one, "{1.3: {default: 'b', elements: ['a', 'b']}}"},
      {"{1.3: 'x'}", set_two, "{1.3: {default: '', elements: [['a', 'x'], ['b', 'x']]}}"},
      {"{}", append, "= root is not an array"},
      {"['x', 'y', 1.3: {}]", append, "['x', 'y', 1.3: {default: '', elements: []}]"},
      {"{1.3: {default: 'B', elements: ['a', 'b', 'c']}}", one, "'a, b, c, 1' ="},
      {"{1.3: {default: 'd', elements: [['a', 'b', 'c'], ['d', 'e']]}}", two, "'a,b, d,e, 1' ="},
      {"{1.3: {default: '', elements: [['a', 'b'], []]}}", one, "'a, , 1' ="},
      {"{1.3: {default: '', elements: ['a', []]}}", two, "'a,, ,, 1' ="},
      {"{1.3: 'x'}", one, "'-1' = Child exists: 1.3 already exists"},
      {"{1.3: {default: 'b', elements: ['b']}}", unselected, "'a, b, -1' ="},
      {"{}", unselected, "'a, a, -1' {1.3: {default: '', elements: ['a']}}"},
  });
}

TEST(PopupMenu, IsReplacedByItsRecord) {
  const auto set = [](N n) { n.SetPopup(Menu(2, 1)); };
  const auto append = [](N n) { n.AppendPopup(Menu(0)); };
  const auto get = [](N n) { return Got(n, Menu(1, 0), true); };
  CheckRows({
      {"{M.-2147483648: {}}", set, "{M.-2147483648: {default: 'b', elements: ['a', 'b']}}"},
      {"{}", get, "'a 0' {M.-2147483648: {default: 'a', elements: ['a']}}"},
      {"{M.-2147483648: {default: 'C', elements: ['b', 'c', []]}}", get, "'b c  1' ="},
      {"{M.-2147483648: 'x'}", get, "'a 0' = Child exists: M.-2147483648 already exists"},
      {"{}", append, "= root is not an array"},
  });
}

std::string Got(N n, const char* key, std::int64_t base) {
  Strings list = {"old"};
  n.GetList(key, list, base);
  std::string all;
  for (const std::string& text : list) all += text + ",";
  return all;
}

TEST(StringList, IsCutToItsRange) {
  const auto set_found = [](N n) {
    n.searched.SetValue("l", true);
    n.SetList("l", kFive, 5, 1);
    return n.searched.Value("l");
  };
  CheckRows({
      {"{l: 'x'}", set_found, "false {l: ['a', 'b']}"},
      {"{L: 'x'}", [](N n) { n.SetList("l", kFive, 2, 99); }, "{l: ['c', 'd', 'e']}"},
      {"{12: ['x']}", [](N n) { n.SetList("12", kFive, 5, 1); }, "{12: ['a', 'b']}"},
      {"{}", [](N n) { n.SetList("l", kFive, 3, 1); }, "{l: []}"},
      {"{}", [](N n) { n.SetList("l", kFive, -4, 0); }, "{l: ['a']}"},
      {"{}", [](N n) { n.SetList("l", {}, 0, 5); }, "{l: []}"},
      {"['x']", [](N n) { n.AppendList(kFive, 4, 9); }, "['x', ['e']]"},
      {"{}", [](N n) { n.AppendList(kFive, 0, 0); }, "= root is not an array"},
      {"{l: ['a', 'b']}", [](N n) { return Got(n, "l", 0); }, "'a,b,' ="},
      {"{l: ['a', 'b']}", [](N n) { return Got(n, "l", 1); }, "',a,b,' ="},
      {"{}", [](N n) { return Got(n, "l", 0); }, "'' {l: {}}"},
      {"{l: 'x'}", [](N n) { return Got(n, "l", 0); }, "'old,' = Child exists: l already exists"},
  });
}

}  // namespace
}  // namespace morvantile
