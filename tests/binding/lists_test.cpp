#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/ui/listbox.h"
#include "platform/ui/popup_menu.h"
#include "plist/plist.h"
#include "plist/plistDict.h"

namespace morvantile {
namespace {

using Strings = std::vector<std::string>;

Ref<Listbox> Names(int columns) {
  Ref<Listbox> list = New<Listbox>();
  list->Name = "Names";
  list->Index = 3;
  list->SetColumnCount(columns);
  return list;
}

// All cells of a list, rows ended by ";".
std::string CellsOf(const Listbox& list) {
  std::string cells;
  for (int row = 0; row < list.ListCount(); ++row) {
    for (int column = 0; column < list.ColumnCount(); ++column) {
      cells += list.Cell(row, column) + (column + 1 < list.ColumnCount() ? "," : ";");
    }
  }
  return cells;
}

class ListBinding : public testing::Test {
 protected:
  ListBinding() { node->rootClass = document; }

  Ref<plist> document = New<plist>(nullptr, false);
  Ref<plistDict> node = document->root;
};

TEST_F(ListBinding, AListOfOneColumnComesBackWithItsSelection) {
  const Ref<Listbox> list = Names(1);
  for (const char* row : {"a", "b", "c"}) list->AddRow({row});
  list->SetListIndex(1);
  node->SetListbox(list);
  EXPECT_EQ(node->child("names.3")->GetString("default"), "b");
  EXPECT_EQ(node->child("Names.3")->child("elements")->GetType("2"), "string");

  for (const bool select : {false, true}) {
    const Ref<Listbox> back = Names(1);
    node->GetListbox(back, select);
    EXPECT_EQ(CellsOf(*back), "a;b;c;");
    EXPECT_EQ(back->ListIndex(), select ? 1 : -1);
  }
}

TEST_F(ListBinding, AListOfColumnsComesBackAsFarAsItHasThem) {
  const Ref<Listbox> list = Names(3);
  list->AddRow({"a", "b", "c"});
  list->AddRow({"d", "e", "f"});
  list->SetListIndex(1);
  node->SetListbox(list);

  const Ref<Listbox> back = Names(2);
  node->GetListbox(back, true);
  EXPECT_EQ(CellsOf(*back), "a,b;d,e;");
  EXPECT_EQ(back->Text(), "d");
}

TEST_F(ListBinding, ARecordOfTheOtherFormIsReadAsFarAsItFits) {
  const Ref<Listbox> wide = Names(2);
  wide->AddRow({"a", "b"});
  node->SetListbox(wide);
  const Ref<Listbox> narrow = Names(1);
  node->GetListbox(narrow, false);
  EXPECT_EQ(CellsOf(*narrow), "a;");

  node->SetListbox(narrow);
  const Ref<Listbox> again = Names(2);
  node->GetListbox(again, false);
  EXPECT_EQ(CellsOf(*again), "a,;");
  EXPECT_FALSE(document->error);
}

TEST_F(ListBinding, AMissingRecordIsMadeFromTheListAndThenReadIntoIt) {
  const Ref<Listbox> empty = Names(1);
  node->GetListbox(empty, true);
  EXPECT_EQ(empty->ListCount(), 0);
  EXPECT_TRUE(node->child("Names.3")->child("elements")->isArray);

  const Ref<Listbox> full = Names(1);
  full->Index = Control::kNoIndex;
  full->AddRow({"a"});
  node->GetListbox(full, false);
  EXPECT_EQ(CellsOf(*full), "a;a;");
  EXPECT_TRUE(node->Exists("Names.-2147483648"));
}

TEST_F(ListBinding, AStoredRecordReplacesTheOneBeforeAndAnyScalar) {
  const Ref<Listbox> list = Names(1);
  list->AddRow({"a"});
  list->AddRow({"b"});
  node->SetString("Names.3", "in the way");
  node->SetListbox(list);
  list->DeleteAllRows();
  list->AddRow({"c"});
  node->SetListbox(list);
  const Ref<Listbox> back = Names(1);
  node->GetListbox(back, false);
  EXPECT_EQ(CellsOf(*back), "c;");
}

TEST_F(ListBinding, AKeyThatReadsAsANumberIsReplacedAsAKey) {
  const Ref<Listbox> list = Names(1);
  list->Name = "1";
  for (const char* row : {"a", "b"}) {
    list->DeleteAllRows();
    list->AddRow({row});
    node->SetListbox(list);
    node->SetList("12", {row}, 0, 0);
  }
  EXPECT_EQ(node->child("1.3")->child("elements")->GetString("0"), "b");
  EXPECT_EQ(node->child("12")->GetString("0"), "b");
  EXPECT_EQ(node->child("12")->count(), 1);

  node->AddArray("all");
  const Ref<plistDict> all = node->child("all");
  for (const char* text : {"x", "y"}) all->AppendString(text);
  for (int i = 0; i < 2; ++i) all->AppendListbox(list);
  EXPECT_EQ(all->GetString("1"), "y");
}

TEST_F(ListBinding, AppendingNeedsAnArrayAndStoresUnderTheControlsKey) {
  const Ref<Listbox> list = Names(1);
  node->AppendListbox(list);
  EXPECT_TRUE(document->error);
  EXPECT_EQ(node->count(), 0);
  node->AddArray("all");
  node->child("all")->AppendListbox(list);
  EXPECT_EQ(node->child("all")->GetType("Names.3"), "dict");
}

TEST_F(ListBinding, AMenuIsReplacedByItsRecord) {
  const Ref<PopupMenu> menu = New<PopupMenu>();
  menu->Name = "Menu";
  for (const char* row : {"a", "B"}) menu->AddRow(row);
  menu->SetListIndex(1);
  node->SetPopup(menu);
  node->child("Menu.-2147483648")->SetString("default", "b");
  menu->AddRow("c");
  for (const bool select : {false, true}) {
    node->GetPopup(menu, select);
    EXPECT_EQ(menu->ListCount(), 2);
    EXPECT_EQ(menu->ListIndex(), select ? 1 : -1);
  }
}

TEST_F(ListBinding, AMenuWithoutARecordKeepsItsRows) {
  const Ref<PopupMenu> menu = New<PopupMenu>();
  menu->AddRow("a");
  menu->SetListIndex(0);
  node->GetPopup(menu, true);
  EXPECT_EQ(menu->Text(), "a");
  EXPECT_EQ(node->count(), 1);
}

TEST_F(ListBinding, AStringListIsCutToItsRange) {
  const Strings five = {"a", "b", "c", "d", "e"};
  struct Case {
    Strings list;
    std::int64_t first, last;
    Strings stored;
  };
  for (const Case& test :
       {Case{five, 2, 99, {"c", "d", "e"}}, Case{five, 7, 1, {"a", "b"}}, Case{five, 3, 1, {}},
        Case{five, -4, 0, {"a"}}, Case{{}, 0, 5, {}}, Case{five, 0, 4, five}}) {
    node->SetList("l", test.list, test.first, test.last);
    Strings read = {"old"};
    node->GetList("l", read, 0);
    EXPECT_EQ(read, test.stored) << test.first << " to " << test.last;
    EXPECT_EQ(node->GetType("l"), "array");
  }
}

TEST_F(ListBinding, TheBaseOfAStringListLeavesRoomAtItsFront) {
  node->SetList("l", {"a", "b"}, 0, 1);
  Strings read;
  node->GetList("l", read, 1);
  EXPECT_EQ(read, (Strings{"", "a", "b"}));
  node->GetList("missing", read, 0);
  EXPECT_EQ(read, Strings{});
  EXPECT_EQ(node->GetType("missing"), "dict");
  node->SetString("scalar", "x");
  read = {"kept"};
  node->GetList("scalar", read, 0);
  EXPECT_EQ(read, Strings{"kept"});
}

TEST_F(ListBinding, AnArrayTakesOneElementAStringList) {
  node->AppendList({"a"}, 0, 0);
  EXPECT_TRUE(document->error);
  node->AddArray("all");
  node->child("all")->AppendString("first");
  node->child("all")->AppendList({"a", "b"}, 1, 9);
  Strings read;
  node->child("all")->GetList("1", read, 0);
  EXPECT_EQ(read, Strings{"b"});

  plistDict& gapped = *node->child("all");
  gapped.AppendString("last");
  gapped.Remove("0", true);
  gapped.AppendList({"c"}, 0, 0);
  EXPECT_EQ(gapped.indexOf, 2);
  EXPECT_EQ(gapped.index(2)->GetString("0"), "c");
}

}  // namespace
}  // namespace morvantile
