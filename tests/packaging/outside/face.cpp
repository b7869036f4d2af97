// What a program outside the project does with the library, through each of its headers: face FILE

#include <cstdlib>
#include <iostream>
#include <string>
#include <type_traits>
#include <vector>

#include "platform/core/background.h"
#include "platform/core/color.h"
#include "platform/core/date.h"
#include "platform/core/exceptions.h"
#include "platform/core/ref.h"
#include "platform/core/variant.h"
#include "platform/files/binary_stream.h"
#include "platform/files/folder_item.h"
#include "platform/files/text_input_stream.h"
#include "platform/files/text_output_stream.h"
#include "platform/imaging/picture.h"
#include "platform/text/text.h"
#include "platform/ui/clipboard.h"
#include "platform/ui/controls/check_box.h"
#include "platform/ui/controls/edit_field.h"
#include "platform/ui/controls/label.h"
#include "platform/ui/controls/listbox.h"
#include "platform/ui/controls/popup_menu.h"
#include "platform/ui/controls/push_button.h"
#include "platform/ui/controls/radio_button.h"
#include "platform/ui/headless_host.h"
#include "platform/ui/msg_box.h"
#include "platform/ui/screen.h"
#include "platform/ui/window.h"
#include "plist/cipher.h"
#include "plist/plist.h"
#include "plist/plistDict.h"

using namespace morvantile;

namespace {

// Wrong use that the compiler has to refuse: a text for a Boolean, zero for a text, a path for the
// text of a document, and a change through a reference to const.
template <typename Node, typename Document>
concept TakesWrongUse = requires(Node& node) {
  node.SetBoolean("key", "false");
}
|| requires(Node& node) { node.AppendBoolean("false"); }
|| requires(Node& node) { node.GetBoolean("key", "false"); }
|| requires(Node& node) { node.child(0); }
|| requires(Node& node) { node.SetString("key", 0); }
|| requires(Node& node) { node.AppendString(nullptr); }
|| requires { new Document("settings.plist"); }
|| requires(Ref<const Node> node) { node->SetString("key", "text"); }
|| requires(Ref<const Node> node) { Ref<Node>(node); };

static_assert(!TakesWrongUse<plistDict, plist>);
static_assert(!std::is_destructible_v<plistDict> && !std::is_destructible_v<plist>);

void Require(bool holds, const char* what) {
  if (holds) return;
  std::cout << "not so: " << what << '\n';
  std::exit(1);
}

int turns = 0;

std::int64_t CountOf(const Ref<const plistDict>& node) {
  std::int64_t count = node->count();
  for (std::size_t i = 1; i < node->children.size(); ++i) count += CountOf(node->children[i]);
  return count;
}

void UseNodes(plist& document) {
  plistDict& root = *document.root;
  root.types.SetValue("type", "String");
  root.values.SetValue("type", "text");
  root.searched.SetValue("type", false);
  Require(root.GetType("TYPE") == "String" && root.types.Key(0) == "type", "types");
  root.child("inner")->AddArray("list");
  const Ref<plistDict> list = root.child("inner")->child("list");
  list->AppendDate(New<Date>(2009, 3, 7, 8, 5, 9));
  list->AppendColor(RGB(1, 2, 3, 0));
  list->AppendDict();
  list->Remove(Variant(1), false);
  Require(CountOf(document.root) == 5, "count");
  const Ref<plistDict> above = list->parent;
  Require(above->name == "inner" && above->childrenNames.back() == "list", "parent");
  try {
    static_cast<void>(root.GetType("missing"));
    Require(false, "a missing key throws");
  } catch (const KeyNotFoundException&) {  // by its type, although the library threw it
  }
  Require(document.Find("2009-03") && document.foundKey == "0", "search");
  Require(!document.Encrypt("key").empty() && EncryptBlowfish("key", "text"), "encryption");
}

void UseControls(plistDict& root, HeadlessHost& host) {
  const Ref<Listbox> list = New<Listbox>();
  list->AddRow({"row"});
  const Ref<PopupMenu> menu = New<PopupMenu>();
  menu->AddRow("item");
  const Ref<RadioButton> button = New<RadioButton>();
  New<RadioGroup>()->Add(button);
  root.SetListbox(list);
  root.SetPopup(menu);
  root.SetRadio(button);
  root.SetCheckbox(New<CheckBox>());
  root.SetEditField(New<EditField>());
  root.SetStaticText(New<StaticText>());
  const Ref<Window> window = New<Window>();
  window->SetTitle("title");
  root.SetWindow("window", window);
  Require(root.child("window")->GetString("windowName") == "title", "window");
  MsgBox("message");
  Clipboard().SetPicture(Picture::Create(2, 2, true));
  Require(host.messages.size() == 1 && Clipboard().Picture()->Width() == 2, "host");
  Require(Screen(0).Width == 1440 && New<PushButton>()->Enabled, "screen");
}

void UseFiles(const Ref<FolderItem>& file) {
  const Ref<BinaryStream> bytes = BinaryStream::Create(file, true);
  bytes->Write("a\nb");
  Require(bytes->Close() && TextInputStream::Open(file)->ReadLine() == "a", "binary stream");
  const Ref<TextOutputStream> text = file->CreateTextFile();
  text->WriteLine(Str(0.5));
  Require(text->Close() && TextInputStream::Open(file)->ReadAll() == "0.5\n", "text stream");
  Require(file->Delete(), "deletion");
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 2) return 2;
  const Ref<FolderItem> file = New<FolderItem>(arguments[1]);
  UseFiles(file);
  HeadlessHost host;
  InstallHost(&host);
  const Ref<plist> document = New<plist>(file, false);
  UseNodes(*document);
  UseControls(*document->root, host);
  document->Save(true, true);
  background_task = [] { ++turns; };
  const Ref<plist> loaded = New<plist>(file, false);
  Require(turns > 0, "the library takes the program's background task");
  Require(loaded->isBinary && CountOf(loaded->root) == CountOf(document->root), "binary form");
  InstallHost(nullptr);
  std::cout << "as expected\n";
}
