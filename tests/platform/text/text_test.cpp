#include "platform/text/text.h"

#include <gtest/gtest.h>

#include "platform/text/folding.h"
#include "platform/text/text_search.h"

namespace morvantile {
namespace {

struct Pair {
  std::string_view a, b;
};

TEST(SameText, FollowsSimpleCaseFoldingAndNothingMore) {
  for (const auto& [a, b] : {Pair{"Größe", "GRÖßE"},
                             {"Größe", "grÖẞe"},    // its capital has a simple folding
                             {"ΣΙΓΜΑΣ", "σιγμας"},  // a final sigma is a sigma
                             {"\u212Aey", "KEY"},   // a k of another length
                             {"\u017Fcale mode", "Scale Mode"},
                             {"\u1F88", "\u1F80"},
                             {"\U00010400", "\U00010428"},  // outside the basic plane
                             {"A\xC3", "a\xC3"},            // stray bytes count for themselves
                             {"", ""}}) {
    EXPECT_TRUE(SameText(a, b)) << a;
    EXPECT_EQ(HashOfText(a), HashOfText(b)) << a;
  }
  for (const auto& [a, b] : {Pair{"ß", "ss"},
                             {"\u0130", "i"},  // folds only in two letters
                             {"ﬁ", "fi"},
                             {"abc", "abcd"},
                             {"e\u0301", "\u00E9"},  // folding is not normalisation
                             {"\xC3", "\xE3"},
                             {"\xE9", "\u00E9"},
                             {"\xFF", "\uFFFD"}}) {
    EXPECT_FALSE(SameText(a, b)) << a;
  }
  EXPECT_NE(HashOfText("@[`{"), HashOfText("`{@[")) << "only letters fold";
  EXPECT_NE(HashOfText("a"), HashOfText(std::string_view("a\0", 2)));
}

TEST(Text, CountsCharactersFromOneAndStrayBytesAsOneEach) {
  const std::string text = "aß€\U0001F600z";
  EXPECT_EQ(Len(text), 5);
  EXPECT_EQ(Left(text, 3), "aß€");
  EXPECT_EQ(Right(text, 2), "\U0001F600z");
  EXPECT_EQ(Mid(text, 2, 2), "ß€");
  EXPECT_EQ(Mid(text, 4), "\U0001F600z");
  EXPECT_EQ(InStr(text, "€"), 3);
  const std::string stray = "\xC3(\x80\xE2\x82";
  EXPECT_EQ(Len(stray), 5);
  EXPECT_EQ(Left(stray, 1) + Mid(stray, 2, 3) + Right(stray, 1), stray);
  EXPECT_EQ(ReplaceAll(stray, "(", "\xFF"), "\xC3\xFF\x80\xE2\x82");
}

TEST(Text, TakesCountsAndPositionsOutsideTheText) {
  EXPECT_EQ(Left("abc", 9) + Left("abc", -1), "abc");
  EXPECT_EQ(Right("abc", 9) + Right("abc", INT64_MIN), "abc");
  EXPECT_EQ(Mid("abc", INT64_MIN), "abc");
  EXPECT_EQ(Mid("abc", -5, 2), "ab");
  EXPECT_EQ(Mid("abc", 9, 2), "");
  EXPECT_EQ(Len(""), 0);
}

TEST(InStr, IgnoresCaseAndFindsOnlyWholeCharacters) {
  EXPECT_EQ(InStr("one TWO two", "two"), 5);
  EXPECT_EQ(InStr(6, "one TWO two", "two"), 9);
  EXPECT_EQ(InStr(0, "x\u212Ay", "KY"), 2) << "characters whose folding has another length";
  EXPECT_EQ(InStr("abc", "abcd"), 0);
  EXPECT_EQ(InStr("é", "\xC3"), 0) << "a stray byte is no part of a character";
  EXPECT_EQ(InStr("é\xC3", "\xC3"), 2);
  EXPECT_EQ(InStr("", "a"), 0);
  EXPECT_EQ(InStr(0, "", ""), 1) << "the empty part is everywhere";
}

TEST(TextPattern, FindsWhatInStrFinds) {
  for (const char* part : {"", "n", "Needle", "eedlE", "\u017F", "K", "Größe", "\xC3", "x "}) {
    for (const std::string& text :
         {std::string("needlneedl"), std::string("s\xC3 KEY needle"), std::string("\u212A GRÖßE"),
          std::string(300, 'x') + "NEEDLE"}) {
      EXPECT_EQ(TextPattern(part).OccursIn(text), InStr(0, text, part) > 0)
          << part << " in " << text;
    }
  }
}

TEST(Fields, AreWhatIsBetweenSeparators) {
  EXPECT_EQ(CountFields("2009-03-07", "-"), 3);
  EXPECT_EQ(NthField("2009-03-07", "-", 2), "03");
  EXPECT_EQ(NthField("2009-03-07", "-", 4) + NthField("2009-03-07", "-", 0), "");
  EXPECT_EQ(CountFields("--", "-"), 3);
  EXPECT_EQ(NthField("aXbxc", "X", 3), "c");
  EXPECT_EQ(CountFields("", "-"), 1);
  EXPECT_EQ(CountFields("abc", ""), 1);
  EXPECT_EQ(NthField("abc", "", 1), "abc");
}

TEST(ReplaceAll, ReplacesFromTheFrontWithoutOverlap) {
  EXPECT_EQ(ReplaceAll("a&LT;b&lt;", "&lt;", "<"), "a<b<");
  EXPECT_EQ(ReplaceAll("aaa", "aa", "a"), "aa");
  EXPECT_EQ(ReplaceAll("\u212Aa\u212A", "k", "-"), "-a-");
  EXPECT_EQ(ReplaceAll("abc", "", "x"), "abc");
  EXPECT_EQ(ReplaceAll("", "a", "x"), "");
}

TEST(ChrAndAsc, ConvertBetweenCodeAndCharacter) {
  EXPECT_EQ(Chr(13) + Chr(0x20AC), "\r€");
  EXPECT_EQ(Chr(-1) + Chr(0x110000) + Chr(0xD800), "");
  EXPECT_EQ(Asc("€uro"), 0x20AC);
  EXPECT_EQ(Asc("\xFF"), 0xFF);
  EXPECT_EQ(Asc(""), -1);
}

}  // namespace
}  // namespace morvantile
