#include "plist/xml/reader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/text/text.h"
#include "tests/plist/sketch.h"

namespace morvantile {
namespace {

std::string Outcome(const std::string& body) { return Sketch(*Read(body)->root); }

TEST(Reader, TakesTheTypeFromTheElementAndTheTextVerbatim) {
  EXPECT_EQ(Outcome("\t<key>s</key>\n\t<string> a &amp; \"b\" </string>\n"
                    "<key>i</key>\n<integer>0x7</integer>\n"
                    "<key>d</key>\n<Date>no date</Date>\n"
                    "<key>u</key>\n<thing>x</thing>\n"
                    "<key>t</key>\n<true/>\n<key>f</key>\n<FALSE/>"),
            "{s: string \" a &amp; \"b\" \", i: integer \"0x7\", d: Date \"no date\", "
            "u: thing \"x\", t: boolean \"true\", f: boolean \"false\"}");
}

TEST(Reader, NestsContainersAndNumbersElements) {
  EXPECT_EQ(
      Outcome("<key>a</key>\n<array>\n<string>x</string>\n<dict>\n<key>k</key>\n<true/>\n"
              "</dict>\n<array>\n<array/>\n</array>\n<dict/>\n<string>y</string>\n</array>\n"
              "<key>e</key>\n<dict/>\n<key>f</key>\n<ARRAY/>\n<key>z</key>\n<string>z</string>"),
      "{a: [0: string \"x\", 1: {k: boolean \"true\"}, 2: [0: []], 3: {}, 4: string \"y\"], "
      "e: {}, f: [], z: string \"z\"}");
  const Ref<plist> document = Read("<key>a</key>\n<array>\n<true/>\n<true/>\n</array>");
  EXPECT_EQ(document->root->child("a")->indexOf, 2) << "the line of the end tag counts as well";
  EXPECT_TRUE(document->root->child("a")->rootClass == document);
}

// How a value that spans lines ends up.
TEST(Reader, JoinsTheLinesOfAValue) {
  const auto value = [](const std::string& lines) {
    return Read("<key>k</key>\n" + lines)->root->values.Value("k");
  };
  EXPECT_EQ(value("<string>ab</string>"), "ab");
  EXPECT_EQ(value("<string>ab\ncd</string>"), "ab\rcd\r");
  EXPECT_EQ(value("<string>ab\ncd\n</string>"), "ab\rcd\r");
  EXPECT_EQ(value("<string>\nab\n</string>"), "\rab\r");
  EXPECT_EQ(value("<data>\nQUJD\nREVG\n</data>"), "QUJDREVG");
  EXPECT_EQ(value("<data>QUJD\n</data>"), "QUJD");
  EXPECT_EQ(value("<string>ab\n\n \t cd \n</string>"), "ab\r\rcd \r") << "blank lines stay";
}

TEST(Reader, DecodesTwoCodesAndNoKeys) {
  EXPECT_EQ(Outcome("<key>&lt;</key>\n<string>&lt;&GT;&quot;&#65;&amp;lt;&</string>"),
            "{&lt;: string \"<>&quot;&#65;&amp;lt;&\"}");
  EXPECT_EQ(Outcome("<key>k</key>\n<string>&lt;\n&amp;gt;\n</string>"),
            "{k: string \"<\r&amp;gt;\r\"}");
  EXPECT_EQ(Outcome("<key></key>\n<string></string>"), "{: string \"\"}");
}

TEST(Reader, CutsLinesInFrontOfOpeningTagsOnly) {
  EXPECT_EQ(Outcome("<key>a</key><string>b</string><key>c</key><true/>"),
            "{a: string \"b\", c: boolean \"true\"}");
  EXPECT_EQ(Outcome("<key>k</key>\n<string>a>b</string>"), "{k: string \"a>b\"}");
  EXPECT_EQ(Outcome("<key>k</key>\n<string>x</stringy>"), "{k: string \"x\"}");
  EXPECT_EQ(Outcome("<key>k</key>\n<string>a><b</string>\n<key>l</key>\n<true/>"),
            "{k: string \"<b\r\", l: boolean \"true\"}")
      << "the first field opens a value whose text is dropped";
}

TEST(Reader, LeavesTheFieldsBehindAContainerToItsParent) {
  EXPECT_EQ(Outcome("<key>a</key><dict><key>b</key><string>outer</string>\n"
                    "<key>c</key>\n<string>inner</string>\n</dict>\n"
                    "<key>d</key><array><key>e</key><dict><key>f</key><true/>\n"
                    "<string>0</string>\n</array>\n<key>g</key>\n<true/>\n</dict>"),
            "{a: {c: string \"inner\"}, b: string \"outer\", d: [0: string \"0\"], "
            "e: {g: boolean \"true\"}, f: boolean \"true\"}");
}

TEST(Reader, SeesAnEndTagOnlyAsTheLastFieldOfItsLine) {
  EXPECT_EQ(Outcome("<key>a</key>\n<dict>\n<key>b</key>\n<string>x</string></dict>\n"
                    "<key>c</key>\n<true/>\n</dict>\n<key>d</key>\n<true/>"),
            "{a: {b: string \"x\", c: boolean \"true\"}, d: boolean \"true\"}");
  EXPECT_EQ(Outcome("<key>a</key>\n<true/>\n</dict><key>b</key>\n<true/>"),
            "{a: boolean \"true\", b: boolean \"true\"}");
  EXPECT_EQ(Outcome("<key>a</key>\n<true/>\n</DICT>\n<key>b</key>\n<true/>"),
            "{a: boolean \"true\"}");
  EXPECT_EQ(Outcome("<key></dict></key>\n<true/>"), "{}") << "a key that is the end tag";
}

TEST(Reader, LetsACommentSwallowTheRestOfItsNode) {
  EXPECT_EQ(Outcome("<key>a</key>\n<dict>\n<key>b</key>\n<string>x</string>\n<!-- note -->\n"
                    "<key>c</key>\n<string>y</string>\n</dict>\n<key>d</key>\n<true/>"),
            "{a: {b: !-- note -- \"x\"}, d: boolean \"true\"}");
  EXPECT_EQ(Outcome("<key>k</key>\n<string>a\n<!-- note -->\n</string>"),
            "{k: string \"a\r<!-- note -->\r\"}");
}

TEST(Reader, KnowsNoAttributesAndNoOtherSelfClosedElements) {
  EXPECT_EQ(Outcome("<key>k</key>\n<string a=\"b\">x</string>\n<key>l</key>\n<true/>"),
            "{k: string a=\"b\" !}");
  EXPECT_EQ(Outcome("<key>k</key>\n<string/>\n<key>l</key>\n</string>\n<true/>"), "{k: string !}");
}

TEST(Reader, MovesAnOpenValueUnderTheKeyThatItMeets) {
  EXPECT_EQ(Outcome("<key>a</key>\n<string>x\n<key>b</key>\ny</string>\n<key>c</key>\n<true/>"),
            "{a: string !, c: boolean \"true\"}");
  const Ref<plist> document = Read("<key>a</key>\n<string>x\n<key>b</key>\ny</string>");
  EXPECT_EQ(document->root->values.Value("b"), "x\ry\r");
}

TEST(Reader, EndsANodeWithinAnOpenValue) {
  EXPECT_EQ(
      Outcome("<key>a</key>\n<dict>\n<key>b</key>\n<string>x\n</dict>\n<key>c</key>\n<true/>"),
      "{a: {b: string !}, c: boolean \"true\"}");
  EXPECT_EQ(
      Outcome("<key>a</key>\n<dict>\n<key>b</key>\n<string>x\n<dict/>\n<key>c</key>\n<true/>"),
      "{a: {b: string !}, c: boolean \"true\"}");
}

TEST(Reader, TakesStrayClosingTagsAsItsRulesSay) {
  const Ref<plist> document = Read(
      "<key>a</key>\n<string>x</string>\n<key>b\n</key>\n<key>c</key>\n<dict>\n</dict>\n"
      "<key>d</key>\n</dict >\n<key>e</key>\n</key>");
  EXPECT_EQ(document->root->values.Value("b"), "x");
  EXPECT_EQ(document->root->GetType("d"), "/dict ");
  const Ref<plist> changed =
      Read("<key>a</key>\n<string>x</string>\n<true/>\n<key>b</key>\n</boolean>");
  EXPECT_EQ(changed->root->values.Value("a"), "true");
  EXPECT_EQ(changed->root->values.Value("b"), "x");
  const Ref<plist> again =
      Read("<key>a</key>\n<array/>\n<key>b</key>\n</array>\n<key>c</key>\n<true/>");
  EXPECT_EQ(again->root->childrenNames, (std::vector<std::string>{"", "a", "b"}));
  EXPECT_EQ(Sketch(*again->root), "{a: [], c: boolean \"true\"}");
}

TEST(Reader, KeepsWhatStandsBeforeTheEndOfATruncatedFile) {
  const std::string whole =
      "<plist>\n<dict>\n<key>a</key>\n<array>\n<string>x</string>\n<dict>\n<key>b</key>\n"
      "<string>y</string>\n</dict>\n</array>\n</dict>\n";
  std::vector<std::string> outcomes;
  for (std::size_t size = 0; size <= whole.size(); ++size) {
    const std::string outcome = Sketch(*New<plist>(whole.substr(0, size))->root);
    if (outcomes.empty() || outcomes.back() != outcome) outcomes.push_back(outcome);
  }
  EXPECT_THAT(outcomes,
              testing::ElementsAre("{}", "{a: []}", "{a: [0: string !]}", "{a: [0: string \"x\"]}",
                                   "{a: [0: string \"x\", 1: {}]}",
                                   "{a: [0: string \"x\", 1: {b: string !}]}",
                                   "{a: [0: string \"x\", 1: {b: string \"y\"}]}"));
}

TEST(Reader, LetsTheLastOfRepeatedScalarsAndTheFirstOfRepeatedNodesCount) {
  EXPECT_EQ(Outcome("<key>a</key>\n<string>1</string>\n<key>A</key>\n<integer>2</integer>"),
            "{a: integer \"2\"}");
  const Ref<plist> document = Read(
      "<key>a</key>\n<dict>\n<key>x</key>\n<true/>\n</dict>\n"
      "<key>a</key>\n<dict>\n<key>y</key>\n<true/>\n</dict>");
  EXPECT_EQ(Sketch(*document->root), "{a: {x: boolean \"true\"}}");
  EXPECT_EQ(Written(document),
            "\t<key>a</key>\n\t<dict>\n\t\t<key>x</key>\n\t\t<true/>\n\t</dict>\n"
            "\t<dict>\n\t\t<key>y</key>\n\t\t<true/>\n\t</dict>\n")
      << "all of them are written";
}

TEST(Reader, FillsGapsOfAnArrayWithNothing) {
  EXPECT_EQ(Outcome("<key>a</key>\n<array>\n<true/>\n\nignored\n<true/>\n</array>"),
            "{a: [0: boolean \"true\", 3: boolean \"true\"]}");
}

TEST(Reader, ReadsLineEndsOfEverySystemAndAnyBytes) {
  EXPECT_EQ(Outcome("<key>a</key>\r\n<string>x</string>\r<key>b</key>\r\n<true/>"),
            "{a: string \"x\", b: boolean \"true\"}");
  EXPECT_EQ(Outcome("<key>\xFF</key>\n<string>\xC3(\x80</string>"), "{\xFF: string \"\xC3(\x80\"}");
  EXPECT_EQ(Outcome("<\u212AEY>k</\u212Aey>\n<\u017Ftring>x</string>"), "{k: \u017Ftring \"x\"}")
      << "letters that fold to ASCII";
}

TEST(Reader, TakesTimeLinearInLinesThatSpanTheFile) {
  std::string line;
  for (int i = 0; i < 200'000; ++i) line += "<key>" + Str(i) + "</key><dict>";
  const Ref<plist> document = Read(line);
  EXPECT_EQ(document->root->children.size(), 200'001U);
  const std::string name(100'000, '<');
  Read("<key>k</key>\n</" + name + ">\n</" + name + name);
}

TEST(Reader, LeavesNothingOfAKeyWithoutAValueAndTakesTheLastForAValueWithoutAKey) {
  EXPECT_EQ(Outcome("<string>first</string>\n<key>gone</key>\n<key>k\n<true/>\n<false/>"),
            "{: string \"first\", k: boolean \"false\"}");
}

TEST(Reader, HasNoLimitOfNesting) {
  constexpr int kLevels = 200'000;
  std::string text;
  for (int i = 0; i < kLevels; ++i) text += "<key>k</key>\n<dict>\n";
  text += "<key>deep</key>\n<true/>\n";
  for (int i = 0; i < kLevels; ++i) text += "</dict>\n";
  const Ref<plist> document = Read(text + "<key>last</key>\n<true/>");
  ASSERT_TRUE(document->Find("true"));
  EXPECT_EQ(document->foundKey, "deep");
  ASSERT_TRUE(document->FindNext("true"));
  EXPECT_EQ(document->foundKey, "last");
}

TEST(Load, MakesAnEmptyNodeWhoseChildrenAndMarksStay) {
  const Ref<plistDict> node = New<plistDict>();
  node->SetString("s", "x");
  node->AddChild("c");
  const Ref<plistDict> above = New<plistDict>();
  node->Load(nullptr, "new", true, above, nullptr, false);
  EXPECT_EQ(Sketch(*node), "[]");
  EXPECT_EQ(node->name, "new");
  EXPECT_TRUE(node->parent == above);
  EXPECT_EQ(node->children.size(), 2U);
  EXPECT_EQ(node->searched.Count(), 2U);
  EXPECT_EQ(node->values.Count(), 0U);
}

TEST(StripAll, TakesBlanksAndControlCharactersFromTheLeft) {
  const Ref<plistDict> node = New<plistDict>();
  EXPECT_EQ(node->StripAll(std::string("\0 \t\x1F", 4) + "a b "), "a b ");
  EXPECT_EQ(node->StripAll(" \n") + node->StripAll(""), "");
  EXPECT_EQ(node->StripAll("\xA0x"), "\xA0x");
}

}  // namespace
}  // namespace morvantile
