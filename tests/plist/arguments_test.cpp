// Arguments that live in the object that the operation changes.

#include <gtest/gtest.h>

#include "platform/ui/window.h"
#include "tests/platform/files/scratch_folder.h"
#include "tests/plist/sketch.h"

namespace morvantile {
namespace {

// A document that holds some of everything, and a report.
Ref<plist> Filled(const std::string& report) {
  Ref<plist> document = Tree(
      "{a name that takes memory of its own: {u: {}, v: {}, w: {}, x: {}, y: {}, z: {}}, "
      "list: [{}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}], "
      "text: 'a value that takes memory of its own', short: 'text'}");
  document->Find("a value that");
  document->error = true;
  document->errorMessage = report;
  return document;
}

using D = plist&;
using N = plistDict&;
using T = const std::string&;

std::vector<const std::string*> TextsOf(plist& d) {
  return {&d.errorMessage,
          &d.foundKey,
          &d.foundValue,
          &d.lastSearch,
          &d.headers[1],
          &d.root->name,
          &d.root->childrenNames[1],
          &d.root->childrenNames[2]};
}

void (*const kUses[])(D, N, T) = {
    [](D d, N, T t) { (void)d.Find(t); },
    [](D d, N, T t) { (void)d.FindNext(t); },
    [](D d, N, T t) { (void)d.Encrypt(t); },
    [](D, N n, T t) { n.SetString(t, t); },
    [](D, N n, T t) { n.SetData(t, t); },
    [](D, N n, T t) { n.SetDate(t, New<Date>(2009, 3, 7)); },
    [](D, N n, T t) { n.GetString(t, t); },
    [](D, N n, T t) { n.GetInteger(t, 7); },
    [](D, N n, T t) { n.GetReal(t, 7); },
    [](D, N n, T t) { n.GetBoolean(t, true); },
    [](D, N n, T t) { n.GetDate(t, New<Date>(2009, 3, 7)); },
    [](D, N n, T t) { n.GetColor(t); },
    [](D, N n, T t) { n.CheckType(t, t); },
    [](D, N n, T t) { n.child(t); },
    [](D, N n, T t) { n.AddArray(t); },
    [](D, N n, T t) { n.child("list")->AppendString(t); },
    [](D, N n, T t) { n.Remove(t, true); },
    [](D, N n, T t) { n.Rename(t, "new"); },
    [](D, N n, T t) { n.Rename("text", t); },
    [](D, N n, T t) { n.Move(t, n.child("list"), true, t); },
    [](D, N n, T t) { n.Move("text", n.children[1], true, t); },
    [](D, N n, T t) {
      n.SetList(t, std::vector<std::string>{t, "b"}, 0, 1);
    },
    [](D, N n, T t) { n.SetWindow(t, New<Window>()); },
    [](D, N n, T t) { n.children[1]->GetWindow(t, New<Window>()); },
    [](D, N n, T t) { n.Load(nullptr, t, false, nullptr, nullptr, false); },
};

std::string Outcome(plist& d) {
  return Sketch(*d.root) + " " + d.root->name + " " + d.foundKey + " " + d.lastSearch + " " +
         d.errorMessage;
}

TEST(Arguments, MayBeTextsOfTheDocument) {
  for (const char* report : {"text", "short", "a report that takes memory of its own"}) {
    for (std::size_t text = 0; text < TextsOf(*Filled("")).size(); ++text) {
      for (const auto& use : kUses) {
        const Ref<plist> own = Filled(report);
        use(*own, *own->root, *TextsOf(*own)[text]);
        const Ref<plist> copied = Filled(report);
        use(*copied, *copied->root, std::string(*TextsOf(*copied)[text]));
        EXPECT_EQ(Outcome(*own), Outcome(*copied))
            << &use - kUses << " with " << text << ", " << report;
      }
    }
  }
}

using Node = const Ref<plistDict>&;

void (*const kUsesOfNodes[])(N, Node) = {
    [](N root, Node node) { root.AppendDict(node); },
    [](N, Node node) { node->AppendDict(node); },
    [](N root, Node node) { root.AppendAsNewChild(node); },
    [](N root, Node node) { root.children[1]->AppendAsNewChild(node); },
    [](N root, Node node) { root.Move("text", node); },
    [](N root, Node node) { root.Move(root.childrenNames[1], node); },
    [](N root, Node node) { root.Copy(root.childrenNames[2], node); },
};

TEST(Arguments, MayBeNodesOfTheTree) {
  for (const auto& use : kUsesOfNodes) {
    for (const std::size_t place : {1U, 2U}) {
      const Ref<plist> own = Filled("");
      use(*own->root, own->root->children[place]);
      const Ref<plist> copied = Filled("");
      use(*copied->root, Ref<plistDict>(copied->root->children[place]));
      EXPECT_EQ(Outcome(*own), Outcome(*copied)) << &use - kUsesOfNodes << " with " << place;
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
  EXPECT_EQ(document->org->Name() + Sketch(*document->root), "a{k: 'v'}");
  document->Load(folder.Item("missing"), document->org);
  EXPECT_EQ(document->org->Name() + Sketch(*document->root), "missing{k: 'v'}");
}

}  // namespace
}  // namespace morvantile
