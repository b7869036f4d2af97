#include "plist/xml/reader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/text/text.h"
#include "tests/plist/sketch.h"

namespace morvantile {
namespace {

// The bodies of roots, and what they are read as.
void Check(std::initializer_list<std::pair<const char*, const char*>> rows) {
  for (const auto& [body, sketch] : rows) EXPECT_EQ(Sketch(*Read(body)->root), sketch) << body;
}

TEST(Reader, TakesTheTypeFromTheElementAndTheTextVerbatim) {
  Check({
      {"\t<key>s</key>|\t<string> a &amp; \"b\" </string>", "{s: ' a &amp; \"b\" '}"},
      {"<key></key>|<integer>0x7</integer>", "{: integer '0x7'}"},
      {"<key>d</key>|<Date>no date</Date>", "{d: Date 'no date'}"},
      {"<key>u</key>|<thing>x</thing>", "{u: thing 'x'}"},
      {"<true/>|<key>f</key>|<FALSE/>", "{: boolean 'true', f: boolean 'false'}"},
      {"<string>1</string>|<key>gone</key>|<key>k|<true/>|<false/>", "{: '1', k: boolean 'false'}"},
      {"<key>a</key>|<string>1</string>|<key>A</key>|<integer>2</integer>", "{a: integer '2'}"},
      {"<key>\xFF</key>\r|<string>\xC3(\x80</string>\r<key>b</key>", "{\xFF: '\xC3(\x80'}"},
      {"<\u212AEY>k</\u212Aey>|<\u017Ftring>x</string>", "{k: \u017Ftring 'x'}"},
      {"<string a=\"b\">x</string>|<key>l</key>|<true/>", "{: string a=\"b\" !}"},
      {"<string/>|<key>l</key>|</string>|<true/>", "{: !}"},
  });
}

TEST(Reader, NestsContainersAndNumbersElementsByLines) {
  Check({
      {"<array/>|<key>e</key>|<dict/>|<key>f</key>|<ARRAY/>", "{: [], e: {}, f: []}"},
      {"<array>|<dict>|<true/>|</dict>|<array>|<array/>|</array>|<string>x</string>|<dict/>|</"
       "array>",
       "{: [{: boolean 'true'}, [[]], 'x', {}]}"},
      {"<array>|<true/>||ignored|<true/>|</array>", "{: [boolean 'true', 3: boolean 'true']}"},
      {"<dict>|<true/>|</dict>|<dict/>", "{: {: boolean 'true'}}"},
  });
  const Ref<plist> document = Read("<array>|<true/>|</array>|<dict>|<true/>|</dict>");
  EXPECT_EQ(document->root->child("")->indexOf, 1) << "the line of the end tag counts as well";
  EXPECT_TRUE(document->root->child("")->rootClass == document);
  EXPECT_EQ(Written(document),
            "\t<key></key>|\t<dict>|\t\t<true/>|\t</dict>|"
            "\t<dict>|\t\t<key></key>|\t\t<true/>|\t</dict>|");
}

TEST(Reader, JoinsTheLinesOfAValue) {
  Check({
      {"<string>ab|cd</string>", "{: 'ab\rcd\r'}"},
      {"<string>ab|cd|</string>", "{: 'ab\rcd\r'}"},
      {"<string>|ab|| \t cd |</string>", "{: '\rab\r\rcd \r'}"},
      {"<data>|QUJD|REVG|</data>", "{: data 'QUJDREVG'}"},
      {"<data>QUJD|</data>", "{: data 'QUJD'}"},
      {"<string>&lt;|&amp;gt;|<!-- note -->|</string>", "{: '<\r&amp;gt;\r<!-- note -->\r'}"},
      {"<key>&lt;</key>|<string>&GT;&quot;&#65;&lt</string>", "{&lt;: '>&quot;&#65;&lt'}"},
  });
}

TEST(Reader, CutsLinesInFrontOfOpeningTagsOnly) {
  Check({
      {"<key>a</key><string>b</string><key>c</key><true/>", "{a: 'b', c: boolean 'true'}"},
      {"<string>a>b</string>", "{: 'a>b'}"},
      {"<string>x</stringy>", "{: 'x'}"},
      {"<string>a><b</string>|<key>l</key>|<true/>", "{: '<b\r', l: boolean 'true'}"},
      {"<dict><key>b</key><string>outer</string>|<string>inner</string>|</dict>",
       "{: {: 'inner'}, b: 'outer'}"},
      {"<array><key>e</key><dict><key>f</key><true/>|<string>0</string>|</array>|<true/>|</dict>",
       "{: ['0'], e: {: boolean 'true'}, f: boolean 'true'}"},
  });
}

TEST(Reader, EndsANodeAtAnEndTagThatIsTheLastFieldOfItsLine) {
  Check({
      {"<dict>|<string>x</string></dict>|<key>c</key>|<true/>|</dict>|<key>d</key>|<true/>",
       "{: {: 'x', c: boolean 'true'}, d: boolean 'true'}"},
      {"<true/>|</dict><key>b</key>|<true/>", "{: boolean 'true', b: boolean 'true'}"},
      {"<true/>|</DICT>|<key>b</key>|<true/>", "{: boolean 'true'}"},
      {"<key></dict></key>|<true/>", "{}"},
      {"<dict>|<string>x|</dict>|<key>c</key>|<true/>", "{: {: !}, c: boolean 'true'}"},
      {"<dict>|<string>x|<dict/>|<key>c</key>|<true/>", "{: {: !}, c: boolean 'true'}"},
      {"<dict>|<string>x</string>|<!-- note -->|<true/>|</dict>|<key>d</key>|<true/>",
       "{: {: !-- note -- 'x'}, d: boolean 'true'}"},
  });
}

// A value that ends up under a key without a type is known to `values` alone.
TEST(Reader, TakesStrayClosingTagsAsItsRulesSay) {
  const std::tuple<const char*, const char*, const char*> rows[] = {
      {"<key>a</key>|<string>x|<key>b</key>|y</string>", "{a: !}", "x\ry\r"},
      {"<string>x</string>|<key>b|</key>|<key>d</key>|</dict >", "{: 'x', d: /dict  !}", "x"},
      {"<string>x</string>|<true/>|<key>b</key>|</boolean>", "{: boolean 'true'}", "x"},
  };
  for (const auto& [body, sketch, value] : rows) {
    const Ref<plist> document = Read(body);
    EXPECT_EQ(Sketch(*document->root), sketch) << body;
    EXPECT_EQ(document->root->values.Value("b"), value) << body;
  }
  EXPECT_EQ(Read("<array/>|<key>b</key>|</array>")->root->childrenNames[2], "b");
}

TEST(Reader, KeepsWhatStandsBeforeTheEndOfATruncatedFile) {
  const std::string whole =
      Lines("<plist>|<dict>|<array>|<string>x</string>|<dict>|<key>b</key>|<true/>|</dict>|");
  std::vector<std::string> outcomes;
  for (std::size_t size = 0; size <= whole.size(); ++size) {
    const std::string outcome = Sketch(*New<plist>(whole.substr(0, size))->root);
    if (outcomes.empty() || outcomes.back() != outcome) outcomes.push_back(outcome);
  }
  EXPECT_THAT(outcomes, testing::ElementsAre("{}", "{: []}", "{: [!]}", "{: ['x']}",
                                             "{: ['x', {}]}", "{: ['x', {b: boolean 'true'}]}"));
}

TEST(Load, MakesAnEmptyNodeWhoseChildrenAndMarksStay) {
  const Ref<plistDict> node = Tree("{s: 'x', c: {}}")->root;
  node->searched.SetValue("c", true);
  const Ref<plistDict> above = New<plistDict>();
  node->Load(nullptr, "new", true, above, nullptr, false);
  EXPECT_EQ(Sketch(*node) + node->name, "[]new");
  EXPECT_TRUE(node->parent == above);
  EXPECT_EQ(node->children.size() + node->searched.Count() + node->values.Count(), 3U);
}

TEST(StripAll, TakesBlanksAndControlCharactersFromTheLeft) {
  EXPECT_EQ(New<plistDict>()->StripAll(std::string("\0 \t\x1F", 4) + "!a b "), "!a b ");
  EXPECT_EQ(New<plistDict>()->StripAll(" \n"), "");
}

}  // namespace
}  // namespace morvantile
