// Documents made to exhaust the reader. What each costs in full size is told in
// docs/reliability.md; MORVANTILE_ATTACKS=full in the environment makes them so.

#include <gtest/gtest.h>

#include <cstdlib>

#include "platform/text/text.h"
#include "tests/platform/files/scratch_folder.h"
#include "tests/plist/sketch.h"

namespace morvantile {
namespace {

// A file of which `repeated`, with the number in place of "#", and `closing` are there many times;
// and then how many keys and children the root has, and how many levels are below it: -1 stands for
// that many.
struct Attack {
  const char *name, *before, *repeated, *after, *closing;
  std::int64_t times, keys, children, levels;
};

class HostileDocuments : public testing::TestWithParam<Attack> {};

constexpr Attack kAttacks[] = {
    {"Levels", "|<dict>|", "<key>a</key>|<dict>|", "<true/>|", "</dict>|", 1'000'000, 1, 1, -1},
    {"OpenLevels", "|<dict>|", "<array>|", "", "", 1'000'000, 1, 1, -1},
    {"Key", "|<dict>|<key>", "k", "</key>|<true/>|</dict>|", "", 100'000'000, 1, 0, 0},
    {"OneKeyWithoutValues", "|<dict>|", "<key>a</key>|", "", "", 10'000'000, 0, 0, 0},
    {"KeysWithoutValues", "|<dict>|", "<key>#</key>|", "", "", 10'000'000, 0, 0, 0},
    {"Scalar", "|<dict>|", "<key>a</key>|<string>#</string>|", "", "", 1'000'000, 1, 0, 0},
    {"Container", "|<dict>|", "<key>a</key>|<dict/>|", "", "", 1'000'000, 1, -1, 1},
    {"Headers", "", "<plist>|", "", "", 10'000'000, 0, 0, 0},
    {"OpenValue", "|<dict>|<key>a</key>|<string>|", "x|", "", "", 10'000'000, 1, 0, 0},
};

INSTANTIATE_TEST_SUITE_P(, HostileDocuments, testing::ValuesIn(kAttacks),
                         [](const auto& attack) { return attack.param.name; });

TEST_P(HostileDocuments, AreReadAsFarAsTheyCanBe) {
  const Attack& attack = GetParam();
  const bool is_full = std::getenv("MORVANTILE_ATTACKS") != nullptr;
  const std::int64_t times = attack.times / (is_full ? 1 : 100);
  std::string text = attack.before;
  for (std::int64_t i = 0; i < times; ++i) text += ReplaceAll(attack.repeated, "#", Str(i));
  text += attack.after;
  for (std::int64_t i = 0; i < times; ++i) text += attack.closing;
  const ScratchFolder folder;
  Ref<plist> document = New<plist>(folder.Put("a", Lines(text)), false);
  for (const bool is_last : {false, true}) {
    plistDict* node = document->root.get();
    EXPECT_EQ(node->count(), attack.keys);
    EXPECT_EQ(node->children.size() - 1, attack.children < 0 ? times : attack.children);
    std::int64_t levels = 0;
    for (; node->children.size() > 1; ++levels) node = node->children[1].get();
    EXPECT_EQ(levels, attack.levels < 0 ? times : attack.levels);
    if (is_last || attack.levels < 0) break;  // each line would be indented by its levels
    document->Save();
    document = New<plist>(folder.Item("a"), false);
  }
}

}  // namespace
}  // namespace morvantile
