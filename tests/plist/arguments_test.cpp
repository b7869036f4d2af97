// Arguments that live in the object that the operation changes.

#include <gtest/gtest.h>

#include "platform/ui/window.h"
#include "tests/plist/rows.h"

namespace morvantile {
namespace {

using D = plist&;
using T = const std::string&;

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
    [](D, N n, T t) { n.SetList(t, std::vector<std::string>(2, t), 0, 1); },
    [](D, N n, T t) { n.SetWindow(t, New<Window>()); },
    [](D, N n, T t) { n.children[1]->GetWindow(t, New<Window>()); },
    [](D, N n, T t) { n.Load(nullptr, t, false, nullptr, nullptr, false); },
};

// What is left of a document that holds some of everything, and that report, once one of its texts
// has been used, or a copy of the text.
std::string Outcome(void (*use)(D, N, T), std::size_t text, const char* report, bool is_copied) {
  const Ref<plist> d = Tree(
      "{a name that takes memory of its own: {u: {}, v: {}, w: {}, x: {}, y: {}, z: {}}, "
      "list: [{}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}], "
      "text: 'a value that takes memory of its own', short: 'text'}");
  d->Find("a value that");
  d->error = true;
  d->errorMessage = report;
  ListFromOne<std::string>& names = d->root->childrenNames;
  const std::string* const texts[] = {&d->errorMessage, &d->foundKey,   &d->foundValue,
                                      &d->lastSearch,   &d->headers[1], &d->root->name,
                                      &names[1],        &names[2]};
  const std::string copy = *texts[text];
  use(*d, *d->root, is_copied ? copy : *texts[text]);
  return Sketch(*d->root) + d->root->name + d->foundKey + d->lastSearch + d->errorMessage;
}

TEST(Arguments, MayBeTextsOfTheDocument) {
  for (const char* report : {"text", "short", "a report that takes memory of its own"}) {
    for (std::size_t text = 0; text < 8; ++text) {
      for (const auto& use : kUses) {
        EXPECT_EQ(Outcome(use, text, report, false), Outcome(use, text, report, true))
            << &use - kUses << " with " << text << ", " << report;
      }
    }
  }
}

}  // namespace
}  // namespace morvantile
