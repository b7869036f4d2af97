// Documents made to exhaust the reader. What each costs in full size is told in
// docs/reliability.md; MORVANTILE_ATTACKS=full in the environment makes them so.

#include <gtest/gtest.h>

#include <cstdlib>

#include "platform/text/text.h"
#include "tests/platform/files/scratch_folder.h"
#include "tests/plist/sketch.h"

namespace morvantile {
namespace {

constexpr std::int64_t kTimes = -1;

// A file of which `repeated`, with the number in place of "#", and `closing` are there many times.
struct Attack {
  const char* name;
  const char *before, *repeated, *after, *closing;
  std::int64_t times;
  // What the root has then: keys, children, and levels below it along the first children.
  std::int64_t keys, children, levels;
};

void PrintTo(const Attack& attack, std::ostream* out) { *out << attack.name; }

class HostileDocuments : public testing::TestWithParam<Attack> {};

INSTANTIATE_TEST_SUITE_P(
    , HostileDocuments,
    testing::Values(Attack{"Levels", "<plist>|<dict>|", "<key>a</key>|<dict>|", "<true/>|",
                           "</dict>|", 1'000'000, 1, 1, kTimes},
                    Attack{"OpenLevels", "<plist>|<dict>|", "<array>|", "", "", 1'000'000, 1, 1,
                           kTimes},
                    Attack{"Key", "<plist>|<dict>|<key>", "k", "</key>|<true/>|</dict>|", "",
                           100'000'000, 1, 0, 0},
                    Attack{"OneKeyWithoutValues", "<plist>|<dict>|", "<key>a</key>|", "", "",
                           10'000'000, 0, 0, 0},
                    Attack{"KeysWithoutValues", "<plist>|<dict>|", "<key>#</key>|", "", "",
                           10'000'000, 0, 0, 0},
                    Attack{"Scalar", "<plist>|<dict>|", "<key>a</key>|<string>#</string>|", "", "",
                           1'000'000, 1, 0, 0},
                    Attack{"Container", "<plist>|<dict>|", "<key>a</key>|<dict/>|", "", "",
                           1'000'000, 1, kTimes, 1},
                    Attack{"Headers", "<plist>|", "<plist>|", "", "", 10'000'000, 0, 0, 0},
                    Attack{"OpenValue", "<plist>|<dict>|<key>a</key>|<string>|", "x|", "", "",
                           10'000'000, 1, 0, 0}),
    [](const auto& attack) { return attack.param.name; });

TEST_P(HostileDocuments, AreReadAsFarAsTheyCanBe) {
  const Attack& attack = GetParam();
  const std::int64_t times =
      std::getenv("MORVANTILE_ATTACKS") != nullptr ? attack.times : attack.times / 100;
  std::string text = attack.before;
  for (std::int64_t i = 0; i < times; ++i) text += ReplaceAll(attack.repeated, "#", Str(i));
  text += attack.after;
  for (std::int64_t i = 0; i < times; ++i) text += attack.closing;
  const ScratchFolder folder;
  const Ref<plist> document = New<plist>(folder.Put("a", Lines(text)), false);
  const auto expected = [times](std::int64_t number) { return number == kTimes ? times : number; };
  plistDict& root = *document->root;
  EXPECT_EQ(root.count(), expected(attack.keys));
  EXPECT_EQ(static_cast<std::int64_t>(root.children.size()) - 1, expected(attack.children));
  std::int64_t levels = 0;
  for (plistDict* node = &root; node->children.size() > 1; ++levels) node = node->children[1].get();
  EXPECT_EQ(levels, expected(attack.levels));
  if (levels > 1 || document->error) return;  // a line is indented by its levels
  document->Save();
  const Ref<plist> again = New<plist>(folder.Item("a"), false);
  EXPECT_EQ(again->root->count(), root.count());
  EXPECT_EQ(again->root->children.size(), root.children.size());
}

}  // namespace
}  // namespace morvantile
