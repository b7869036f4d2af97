// What the reader makes of lines, as Sketch shows it: a "|" stands for Chr(13).

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/plist/sketch.h"

namespace morvantile {
namespace {

// The tree of a file with these lines behind its <dict>.
std::string Read(const std::vector<std::string>& lines) {
  std::string text = "<plist>\n<dict>\n";
  for (const std::string& line : lines) text += line + "\n";
  const Ref<plist> document = New<plist>(text);
  EXPECT_FALSE(document->error) << document->errorMessage;
  std::string sketch = Sketch(*document->root);
  std::replace(sketch.begin(), sketch.end(), '\r', '|');
  return sketch;
}

// The stored text of the key "k" with these lines as its value.
std::string Value(std::vector<std::string> lines) {
  lines.insert(lines.begin(), "<key>k</key>");
  lines.emplace_back("</dict>");
  const std::string sketch = Read(lines);
  const std::size_t quote = sketch.find('"');
  if (quote == std::string::npos) return sketch;
  return sketch.substr(quote + 1, sketch.rfind('"') - quote - 1);
}

TEST(Scanner, AValueEndsOnItsLineOrOnALaterOne) {
  EXPECT_EQ(Value({"<string>ab</string>"}), "ab");
  EXPECT_EQ(Value({"<string>ab", "cd</string>"}), "ab|cd|");
  EXPECT_EQ(Value({"<string>ab", "cd", "</string>"}), "ab|cd|");
  EXPECT_EQ(Value({"<string>", "ab", "</string>"}), "|ab|");
  EXPECT_EQ(Value({"<data>", "QUJD", "REVG", "</data>"}), "QUJDREVG");
  EXPECT_EQ(Value({"<data>QUJD", "</data>"}), "QUJD");
  EXPECT_EQ(Value({"<string></string>"}), "");
}

TEST(Scanner, ReadsEveryKindOfElement) {
  EXPECT_EQ(Read({"\t<key>i</key>", "\t<integer>5</integer>",
                  "<key>t</key>",   "<true/>",
                  "<key>f</key>",   "<FALSE/>",
                  "<key>odd</key>", "<Uid>7</Uid>",
                  "<key>d</key>",   "<dict>",
                  "<key>x</key>",   "<real>1.5</real>",
                  "</dict>",        "<key>e</key>",
                  "<dict/>",        "<key>l</key>",
                  "<array>",        "<string>a</string>",
                  "<array/>",       "<dict>",
                  "</dict>",        "</array>",
                  "</dict>",        "</plist>"}),
            R"({i: integer "5", t: boolean "true", f: boolean "false", odd: Uid "7", )"
            R"(d: {x: real "1.5"}, e: {}, l: [0: string "a", 1: [], 2: {}]})");
}

TEST(Scanner, CutsALineInFrontOfOpeningTagsOnly) {
  EXPECT_EQ(Read({"<key>a</key><string>b</string><key>c</key><true/>", "</dict>"}),
            R"({a: string "b", c: boolean "true"})");
  EXPECT_EQ(Read({"<key>a</key>", "<string>b</string></dict>", "<key>c</key>", "<true/>"}),
            R"({a: string "b", c: boolean "true"})")
      << "an end tag behind a closing tag is not seen";
  EXPECT_EQ(Read({"<key>d</key>", "<dict><key>x</key>", "<string>in</string>", "</dict>", "<true/>",
                  "</dict>"}),
            R"({d: {: string "in"}, x: boolean "true"})")
      << "what follows an opening tag is the parent's, after the child";
}

TEST(Scanner, DecodesBracketsInValuesAndNothingElse) {
  EXPECT_EQ(Value({"<string>&lt;a&GT; &amp;lt; & &#65;</string>"}), "<a> &amp;lt; & &#65;");
  EXPECT_EQ(Read({"<key>a&lt;b</key>", "<true/>", "</dict>"}), R"({a&lt;b: boolean "true"})");
  EXPECT_EQ(Value({"<string>a>b</string>"}), "a>b");
  EXPECT_EQ(Value({"<string>x</stringy>"}), "x");
}

TEST(Scanner, WhatItDoesNotKnowOpensAValueThatNothingCloses) {
  EXPECT_EQ(Read({"<key>k</key>", "<string>a</string>", "<!-- note -->", "<key>l</key>",
                  "<string>lost</string>", "</dict>"}),
            R"({k: !-- note -- "a"})");
  EXPECT_EQ(Read({"<key>k</key>", "<string/>", "<string>lost</string>", "</dict>"}),
            "{k: string !}");
  EXPECT_EQ(Read({"<key>k</key>", "<string a=\"b\">x</string>", "</dict>"}),
            "{k: string a=\"b\" !}");
}

TEST(Scanner, AnEndTagCountsOnlyAsTheWholeLastField) {
  EXPECT_EQ(Read({"<key>d</key>", "<dict>", "<key>x</key>", "<true/>", " \t</DICT>", "<key>y</key>",
                  "<true/>", "</dict>"}),
            R"({d: {x: boolean "true"}, y: boolean "true"})");
  EXPECT_EQ(Read({"<key>k</key>", "<string>open", "</dict>", "<key>after</key>", "<true/>"}),
            "{k: string !}")
      << "an open value is lost at the end of its node";
}

TEST(Scanner, AnArrayTakesANumberForEachLine) {
  EXPECT_EQ(Read({"<key>l</key>", "<array>", "<string>a</string>", "", "nothing",
                  "<string>b</string>", "</array>", "</dict>"}),
            R"({l: [0: string "a", 3: string "b"]})");
}

TEST(Scanner, AKeyWithoutAValueLeavesNothingAndAValueWithoutAKeyGoesUnderTheLast) {
  EXPECT_EQ(Read({"<string>first</string>", "<key>gone</key>", "<key>k", "<true/>", "<false/>",
                  "<key></key>", "<integer>1</integer>", "</dict>"}),
            R"({: integer "1", k: boolean "false"})");
}

TEST(Scanner, ARepeatedKeyIsOverwrittenAndItsFirstNodeFound) {
  EXPECT_EQ(Read({"<key>k</key>", "<string>a</string>", "<key>K</key>", "<integer>2</integer>",
                  "</dict>"}),
            R"({k: integer "2"})");
}

TEST(Scanner, TheEndOfTheFileEndsEverything) {
  EXPECT_EQ(Read({"<key>a</key>", "<dict>", "<key>b</key>", "<array>", "<string>x</string>"}),
            R"({a: {b: [0: string "x"]}})");
  EXPECT_EQ(Read({}), "{}");
}

TEST(Scanner, AnyLineEndIsOne) {
  for (const std::string end : {"\n", "\r\n", "\r"}) {
    std::string text;
    for (const char* line : {"<plist>", "<dict>", "<key>a</key>", "<true/>", "</dict>"}) {
      text += line + end;
    }
    EXPECT_EQ(Sketch(*New<plist>(text)->root), R"({a: boolean "true"})");
  }
}

TEST(Scanner, AMillionLevelsAreReadSavedAndReadAgain) {
  constexpr int kLevels = 1'000'000;
  std::string text = "<plist>\n<dict>\n";
  for (int i = 0; i < kLevels; ++i) text += "<key>a</key>\n<dict>\n";
  text += "<key>deep</key>\n<true/>\n";
  for (int i = 0; i < kLevels; ++i) text += "</dict>\n";
  const Ref<plist> document = New<plist>(text + "</dict>\n</plist>\n");
  ASSERT_TRUE(document->Find("true"));
  EXPECT_EQ(document->foundKey, "deep");
}

}  // namespace
}  // namespace morvantile
