// Arguments that live in the object that the operation changes.

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "platform/ui/window.h"
#include "tests/platform/files/scratch_folder.h"
#include "tests/plist/sketch.h"

namespace morvantile {
namespace {

// A document that holds some of everything, and a report.
Ref<plist> Filled(const std::string& report) {
  Ref<plist> document = NewDocument();
  plistDict& root = *document->root;
  const Ref<plistDict> first = root.child("a name that takes memory of its own");
  for (const char* key : {"u", "v", "w", "x", "y", "z"}) first->AddChild(key);
  root.AddArray("list");
  for (int i = 0; i < 20; ++i) root.child("list")->AppendDict();
  root.SetString("text", "a value that takes memory of its own");
  root.SetString("short", "text");
  document->Find("a value that");
  document->error = true;
  document->errorMessage = report;
  return document;
}

using Text = std::function<const std::string&(plist&)>;
using UseOfText = std::function<void(plist&, plistDict& root, const std::string& text)>;

const std::vector<Text> kTexts = {[](plist & d) -> auto& {return d.errorMessage;
}  // namespace
, [](plist& d) -> auto& { return d.foundKey; }
, [](plist& d) -> auto& { return d.foundValue; }
, [](plist& d) -> auto& { return d.lastSearch; }
, [](plist& d) -> auto& { return d.headers[1]; }
, [](plist& d) -> auto& { return d.root->name; }
, [](plist& d) -> auto& { return d.root->childrenNames[1]; }
, [](plist& d) -> auto& { return d.root->childrenNames[2]; }
,
};  // namespace morvantile

const std::vector<UseOfText> kUses = {
    [](plist& d, plistDict&, auto& text) { (void)d.Find(text); },
    [](plist& d, plistDict&, auto& text) { (void)d.FindNext(text); },
    [](plist& d, plistDict&, auto& text) { (void)d.Encrypt(text); },
    [](plist&, plistDict& root, auto& text) { root.SetString(text, text); },
    [](plist&, plistDict& root, auto& text) { root.SetData(text, text); },
    [](plist&, plistDict& root, auto& text) { root.SetDate(text, New<Date>(2009, 3, 7)); },
    [](plist&, plistDict& root, auto& text) { (void)root.GetString(text, text); },
    [](plist&, plistDict& root, auto& text) { (void)root.GetInteger(text, 7); },
    [](plist&, plistDict& root, auto& text) { (void)root.GetReal(text, 7); },
    [](plist&, plistDict& root, auto& text) { (void)root.GetBoolean(text, true); },
    [](plist&, plistDict& root, auto& text) { (void)root.GetDate(text, New<Date>(2009, 3, 7)); },
    [](plist&, plistDict& root, auto& text) { (void)root.GetColor(text); },
    [](plist&, plistDict& root, auto& text) { (void)root.CheckType(text, text); },
    [](plist&, plistDict& root, auto& text) { (void)root.child(text); },
    [](plist&, plistDict& root, auto& text) { (void)root.AddArray(text); },
    [](plist&, plistDict& root, auto& text) { root.child("list")->AppendString(text); },
    [](plist&, plistDict& root, auto& text) { root.Remove(text, true); },
    [](plist&, plistDict& root, auto& text) { root.Rename(text, "new"); },
    [](plist&, plistDict& root, auto& text) { root.Rename("text", text); },
    [](plist&, plistDict& root, auto& text) { root.Move(text, root.child("list"), true, text); },
    [](plist&, plistDict& root, auto& text) { root.Move("text", root.children[1], true, text); },
    [](plist&, plistDict& root, auto& text) {
      root.SetList(text, {text, "b"}, 0, 1);
    },
    [](plist&, plistDict& root, auto& text) { root.SetWindow(text, New<Window>()); },
    [](plist&, plistDict& root, auto& text) { root.children[1]->GetWindow(text, New<Window>()); },
    [](plist&, plistDict& root, auto& text) {
      root.Load(nullptr, text, false, nullptr, nullptr, false);
    },
};

std::string Outcome(plist& document) {
  return Sketch(*document.root) + " " + document.root->name + " " + document.foundKey + " " +
         document.lastSearch + " " + document.errorMessage;
}

TEST(Arguments, MayBeTextsOfTheDocument) {
  for (const char* report : {"text", "short", "a report that takes memory of its own"}) {
    for (std::size_t text = 0; text < kTexts.size(); ++text) {
      for (std::size_t use = 0; use < kUses.size(); ++use) {
        const Ref<plist> own = Filled(report);
        kUses[use](*own, *own->root, kTexts[text](*own));
        const Ref<plist> copied = Filled(report);
        const std::string copy = kTexts[text](*copied);
        kUses[use](*copied, *copied->root, copy);
        EXPECT_EQ(Outcome(*own), Outcome(*copied)) << use << " with " << text << ", " << report;
      }
    }
  }
}

using Node = Ref<plistDict>;

const std::vector<std::function<void(plistDict& root, const Node& node)>> kUsesOfNodes = {
    [](plistDict& root, const Node& node) { root.AppendDict(node); },
    [](plistDict&, const Node& node) { node->AppendDict(node); },
    [](plistDict& root, const Node& node) { root.AppendAsNewChild(node); },
    [](plistDict& root, const Node& node) { root.children[1]->AppendAsNewChild(node); },
    [](plistDict& root, const Node& node) { root.Move("text", node); },
    [](plistDict& root, const Node& node) { root.Move(root.childrenNames[1], node); },
    [](plistDict& root, const Node& node) { root.Copy(root.childrenNames[2], node); },
};

TEST(Arguments, MayBeNodesOfTheTree) {
  for (std::size_t use = 0; use < kUsesOfNodes.size(); ++use) {
    for (const std::size_t place : {1U, 2U}) {
      const Ref<plist> own = Filled("");
      kUsesOfNodes[use](*own->root, own->root->children[place]);
      const Ref<plist> copied = Filled("");
      const Node copy(copied->root->children[place].get());
      kUsesOfNodes[use](*copied->root, copy);
      EXPECT_EQ(Outcome(*own), Outcome(*copied)) << use << " with " << place;
    }
  }
}

TEST(Arguments, OfLoadMayBeTheFilesOfTheDocument) {
  const ScratchFolder folder;
  const Ref<plist> document = New<plist>(folder.Item("a"), false);
  document->root->SetString("k", "v");
  document->Save(false, true);
  document->Load(folder.Item("a"), nullptr);
  document->Load(document->org, nullptr);
  EXPECT_EQ(Sketch(*document->root), R"({k: string "v"})");
  EXPECT_EQ(document->org->Name(), "a");
  document->Load(folder.Item("missing"), document->org);
  EXPECT_EQ(Sketch(*document->root), R"({k: string "v"})");
  document->Load(folder.Put("text", "<dict>\n<key>k</key>\n<true/>\n</dict>"), nullptr);
  document->Load(folder.Item("missing"), document->savePath);
  EXPECT_EQ(document->savePath->Name(), "missing");
  EXPECT_EQ(document->root->children.size(), 2U) << "the first <dict> is read once more";
}

}  // namespace
}  // namespace morvantile
