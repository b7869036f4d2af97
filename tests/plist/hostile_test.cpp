// Documents made to exhaust the reader. What each costs in full size is told in
// docs/reliability.md; MORVANTILE_ATTACKS=full in the environment makes them so.

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "platform/text/text.h"
#include "tests/platform/files/scratch_folder.h"
#include "tests/plist/sketch.h"

namespace morvantile {
namespace {

std::size_t Sized(std::size_t full) {
  return std::getenv("MORVANTILE_ATTACKS") != nullptr ? full : full / 100;
}

class HostileDocuments : public testing::Test {
 protected:
  Ref<plist> Load(const std::string& body) {
    const std::string text = "<plist version=\"1.0\">\n<dict>\n" + body + "</dict>\n</plist>\n";
    return New<plist>(folder.Put("a", text), false);
  }

  // What the document is when it has been saved and loaded again.
  Ref<plist> Again(const Ref<plist>& document) {
    document->Save();
    EXPECT_FALSE(document->error) << document->errorMessage;
    return New<plist>(folder.Item("a"), false);
  }

  ScratchFolder folder;
};

std::string Repeated(std::string_view text, std::size_t times) {
  std::string all;
  all.reserve(text.size() * times);
  for (std::size_t i = 0; i < times; ++i) all += text;
  return all;
}

std::size_t Levels(Ref<plistDict> node) {
  std::size_t levels = 0;
  for (; node->children.size() > 1; ++levels) node = Ref<plistDict>(node->children[1]);
  return levels;
}

TEST_F(HostileDocuments, AMillionLevelsAreRead) {
  const std::size_t levels = Sized(1'000'000);
  const Ref<plist> document = Load(Repeated("<key>a</key>\n<dict>\n", levels) + "<key>b</key>\n" +
                                   "<true/>\n" + Repeated("</dict>\n", levels));
  EXPECT_EQ(Levels(document->root), levels);
}

TEST_F(HostileDocuments, LevelsThatAreNeverClosedAreRead) {
  const std::size_t levels = Sized(1'000'000);
  EXPECT_EQ(Levels(Load(Repeated("<array>\n", levels))->root), levels);
}

TEST_F(HostileDocuments, AHugeKeyComesBack) {
  const std::string key(Sized(100'000'000), 'k');
  const Ref<plist> again = Again(Load("<key>" + key + "</key>\n<string>v</string>\n"));
  EXPECT_EQ(again->root->count(), 1);
  EXPECT_EQ(again->root->GetString(key), "v");
}

TEST_F(HostileDocuments, KeysWithoutValuesLeaveNothing) {
  const Ref<plist> document = Load(Repeated("<key>a</key>\n", Sized(10'000'000)));
  EXPECT_EQ(Sketch(*document->root), "{}");
}

TEST_F(HostileDocuments, DifferentKeysWithoutValuesLeaveNothing) {
  std::string body;
  for (std::size_t i = 0; i < Sized(10'000'000); ++i) {
    body += "<key>" + Str(static_cast<std::int64_t>(i)) + "</key>\n";
  }
  EXPECT_EQ(Sketch(*Load(body)->root), "{}");
}

TEST_F(HostileDocuments, AScalarsKeyThatIsRepeatedHoldsTheLastValue) {
  const Ref<plist> document =
      Load(Repeated("<key>a</key>\n<string>x</string>\n", Sized(1'000'000)) +
           "<key>A</key>\n<string>last</string>\n");
  EXPECT_EQ(Sketch(*document->root), R"({a: string "last"})");
}

TEST_F(HostileDocuments, AContainersKeyThatIsRepeatedKeepsEveryChild) {
  const std::size_t times = Sized(1'000'000);
  const Ref<plist> document = Load(Repeated("<key>a</key>\n<dict/>\n", times));
  EXPECT_EQ(document->root->count(), 1);
  EXPECT_EQ(document->root->children.size(), times + 1);
  const Ref<plist> again = Again(document);
  EXPECT_EQ(again->root->children.size(), times + 1);
}

TEST_F(HostileDocuments, HeadersWithoutEndAreNoPropertyList) {
  const std::size_t lines = Sized(10'000'000);
  const Ref<plist> document = New<plist>(folder.Put("a", Repeated("<plist>\n", lines)), false);
  EXPECT_EQ(Report(document), "Not a plist file");
  EXPECT_EQ(document->headers.size(), lines + 1);
}

TEST_F(HostileDocuments, AValueThatIsNeverClosedTakesTheRest) {
  const std::size_t lines = Sized(10'000'000);
  const Ref<plist> document = Load("<key>a</key>\n<string>\n" + Repeated("x\n", lines));
  EXPECT_EQ(document->root->count(), 1);
  EXPECT_EQ(document->root->GetString("a"), "");
}

}  // namespace
}  // namespace morvantile
