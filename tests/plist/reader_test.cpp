#include "plist/xml/reader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/text/text.h"
#include "tests/plist/sketch.h"

namespace morvantile {
namespace {

// The body of a root, and what it is read as.
struct Row {
  const char* body;
  const char* sketch;
};

void Check(std::initializer_list<Row> rows) {
  for (const Row& row : rows) EXPECT_EQ(Sketch(*Read(row.body)->root), row.sketch) << row.body;
}

TEST(Reader, TakesTheTypeFromTheElementAndTheTextVerbatim) {
  Check({
      {"\t<key>s</key>|\t<string> a &amp; \"b\" </string>", "{s: ' a &amp; \"b\" '}"},
      {"<key>i</key>|<integer>0x7</integer>", "{i: integer '0x7'}"},
      {"<key>d</key>|<Date>no date</Date>", "{d: Date 'no date'}"},
      {"<key>u</key>|<thing>x</thing>", "{u: thing 'x'}"},
      {"<key>t</key>|<true/>|<key>f</key>|<FALSE/>", "{t: boolean 'true', f: boolean 'false'}"},
      {"<key></key>|<string></string>", "{: ''}"},
      {"<string>1</string>|<key>gone</key>|<key>k|<true/>|<false/>", "{: '1', k: boolean 'false'}"},
      {"<key>a</key>|<string>1</string>|<key>A</key>|<integer>2</integer>", "{a: integer '2'}"},
      {"<key>\xFF</key>\r|<string>\xC3(\x80</string>\r<key>b</key>|<true/>",
       "{\xFF: '\xC3(\x80', b: boolean 'true'}"},
      {"<\u212AEY>k</\u212Aey>|<\u017Ftring>x</string>", "{k: \u017Ftring 'x'}"},
  });
}

TEST(Reader, NestsContainersAndNumbersElementsByLines) {
  Check({
      {"<array/>|<key>e</key>|<dict/>|<key>f</key>|<ARRAY/>", "{: [], e: {}, f: []}"},
      {"<key>a</key>|<array>|<string>x</string>|<dict>|<key>k</key>|<true/>|</dict>|<array>|<array/"
       ">|"
       "</array>|<dict/>|<string>y</string>|</array>|<key>z</key>|<string>z</string>",
       "{a: ['x', {k: boolean 'true'}, [[]], {}, 'y'], z: 'z'}"},
      {"<key>a</key>|<array>|<true/>||ignored|<true/>|</array>",
       "{a: [boolean 'true', 3: boolean 'true']}"},
      {"<key>a</key>|<dict>|<true/>|</dict>|<key>a</key>|<dict/>", "{a: {: boolean 'true'}}"},
  });
  const Ref<plist> document = Read("<key>a</key>|<array>|<true/>|<true/>|</array>");
  EXPECT_EQ(document->root->child("a")->indexOf, 2) << "the line of the end tag counts as well";
  EXPECT_TRUE(document->root->child("a")->rootClass == document);
  EXPECT_EQ(Written(Read("<key>a</key>|<array/>|<key>a</key>|<dict>|<true/>|</dict>")),
            "\t<key>a</key>|\t<dict/>|\t<dict>|\t\t<key></key>|\t\t<true/>|\t</dict>|");
}

TEST(Reader, JoinsTheLinesOfAValue) {
  Check({
      {"<key>k</key>|<string>ab|cd</string>", "{k: 'ab\rcd\r'}"},
      {"<key>k</key>|<string>ab|cd|</string>", "{k: 'ab\rcd\r'}"},
      {"<key>k</key>|<string>|ab|</string>", "{k: '\rab\r'}"},
      {"<key>k</key>|<data>|QUJD|REVG|</data>", "{k: data 'QUJDREVG'}"},
      {"<key>k</key>|<data>QUJD|</data>", "{k: data 'QUJD'}"},
      {"<key>k</key>|<string>ab|| \t cd |</string>", "{k: 'ab\r\rcd \r'}"},
      {"<key>k</key>|<string>&lt;|&amp;gt;|</string>", "{k: '<\r&amp;gt;\r'}"},
      {"<key>&lt;</key>|<string>&lt;&GT;&quot;&#65;&amp;lt;&</string>",
       "{&lt;: '<>&quot;&#65;&amp;lt;&'}"},
  });
}

TEST(Reader, CutsLinesInFrontOfOpeningTagsOnly) {
  Check({
      {"<key>a</key><string>b</string><key>c</key><true/>", "{a: 'b', c: boolean 'true'}"},
      {"<key>k</key>|<string>a>b</string>", "{k: 'a>b'}"},
      {"<key>k</key>|<string>x</stringy>", "{k: 'x'}"},
      {"<key>k</key>|<string>a><b</string>|<key>l</key>|<true/>", "{k: '<b\r', l: boolean 'true'}"},
      {"<key>a</key><dict><key>b</key><string>outer</string>|<key>c</key>|<string>inner</string>|"
       "</dict>|<key>d</key><array><key>e</key><dict><key>f</key><true/>|<string>0</string>|</"
       "array>|"
       "<key>g</key>|<true/>|</dict>",
       "{a: {c: 'inner'}, b: 'outer', d: ['0'], e: {g: boolean 'true'}, f: boolean 'true'}"},
  });
}

TEST(Reader, SeesAnEndTagOnlyAsTheLastFieldOfItsLine) {
  Check({
      {"<key>a</key>|<dict>|<string>x</string></dict>|<key>c</key>|<true/>|</dict>|<key>d</"
       "key>|<true/>",
       "{a: {: 'x', c: boolean 'true'}, d: boolean 'true'}"},
      {"<true/>|</dict><key>b</key>|<true/>", "{: boolean 'true', b: boolean 'true'}"},
      {"<true/>|</DICT>|<key>b</key>|<true/>", "{: boolean 'true'}"},
      {"<key></dict></key>|<true/>", "{}"},
      {"<key>a</key>|<dict>|<string>x|</dict>|<key>c</key>|<true/>",
       "{a: {: !}, c: boolean 'true'}"},
      {"<key>a</key>|<dict>|<string>x|<dict/>|<key>c</key>|<true/>",
       "{a: {: !}, c: boolean 'true'}"},
  });
}

TEST(Reader, KnowsNoCommentsNoAttributesAndNoOtherSelfClosedElements) {
  Check({
      {"<key>a</key>|<dict>|<string>x</string>|<!-- note -->|<true/>|</dict>|<key>d</key>|<true/>",
       "{a: {: !-- note -- 'x'}, d: boolean 'true'}"},
      {"<string>a|<!-- note -->|</string>", "{: 'a\r<!-- note -->\r'}"},
      {"<string a=\"b\">x</string>|<key>l</key>|<true/>", "{: string a=\"b\" !}"},
      {"<string/>|<key>l</key>|</string>|<true/>", "{: !}"},
  });
}

TEST(Reader, TakesStrayClosingTagsAsItsRulesSay) {
  // A value that ends up under a key without a type is known to `values` alone.
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
  const Ref<plist> document = Read("<key>a</key>|<array/>|<key>b</key>|</array>");
  EXPECT_EQ(document->root->childrenNames, (std::vector<std::string>{"", "a", "b"}));
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

TEST(Reader, TakesTimeLinearInLinesThatSpanTheFile) {
  std::string line;
  for (int i = 0; i < 200'000; ++i) line += "<key>" + Str(i) + "</key><dict>";
  EXPECT_EQ(Read(line)->root->children.size(), 200'001U);
  const std::string name(100'000, '<');
  Read("</" + name + ">|</" + name + name);
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
  const Ref<plistDict> node = New<plistDict>();
  EXPECT_EQ(node->StripAll(std::string("\0 \t\x1F", 4) + "a b "), "a b ");
  EXPECT_EQ(node->StripAll(" \n") + node->StripAll("") + node->StripAll("\xA0x"), "\xA0x");
}

}  // namespace
}  // namespace morvantile
