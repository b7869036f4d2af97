#include "platform/text/text.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <initializer_list>
#include <limits>
#include <string>
#include <utility>

#include "platform/text/folding.h"
#include "platform/text/text_search.h"

namespace morvantile {
namespace {

using Pair = std::pair<std::string, std::string>;
using Row = std::pair<std::string, double>;

void ExpectEqual(std::initializer_list<Pair> results) {
  for (const auto& [result, expected] : results) EXPECT_EQ(result, expected);
}

TEST(SameText, FollowsSimpleCaseFoldingAndNothingMore) {
  // A capital with a simple folding, a final sigma, a k of another length, letters outside the
  // basic plane, and stray bytes, which count for themselves.
  for (const auto& [a, b] :
       {Pair{"Größe", "GRÖßE"}, Pair{"Größe", "grÖẞe"}, Pair{"ΣΙΓΜΑΣ", "σιγμας"},
        Pair{"\u212Aey", "KEY"}, Pair{"\u017Fcale mode", "Scale Mode"}, Pair{"\u1F88", "\u1F80"},
        Pair{"\U00010400", "\U00010428"}, Pair{"A\xC3", "a\xC3"}, Pair{"", ""}}) {
    EXPECT_TRUE(SameText(a, b)) << a;
    EXPECT_EQ(HashOfText(a), HashOfText(b)) << a;
  }
  // Foldings to two letters, and texts that only normalisation makes equal.
  for (const auto& [a, b] : {Pair{"ß", "ss"}, Pair{"\u0130", "i"}, Pair{"ﬁ", "fi"},
                             Pair{"abc", "abcd"}, Pair{"e\u0301", "\u00E9"}, Pair{"\xC3", "\xE3"},
                             Pair{"\xE9", "\u00E9"}, Pair{"\xFF", "\uFFFD"}}) {
    EXPECT_FALSE(SameText(a, b)) << a;
  }
  EXPECT_NE(HashOfText("@[`{"), HashOfText("`{@[")) << "only letters fold";
  EXPECT_NE(HashOfText("a"), HashOfText(std::string_view("a\0", 2)));
}

TEST(Text, CountsCharactersFromOneAndStrayBytesAsOneEach) {
  const std::string text = "aß€\U0001F600z";
  const std::string stray = "\xC3(\x80\xE2\x82";
  ExpectEqual({{Left(text, 3), "aß€"},
               {Right(text, 2), "\U0001F600z"},
               {Mid(text, 2, 2), "ß€"},
               {Left(stray, 1) + Mid(stray, 2, 3) + Right(stray, 1), stray},
               {Left("abc", -1) + Right("abc", INT64_MIN), ""},
               {Mid("abc", INT64_MIN) + Right("abc", 9), "abcabc"},
               {Mid("abc", -5, 2) + Mid("abc", 9, 2), "ab"}});
  EXPECT_EQ(Len(text), 5);
  EXPECT_EQ(Len(stray), 5);
}

TEST(InStr, IgnoresCaseAndFindsOnlyWholeCharacters) {
  EXPECT_EQ(InStr("one TWO two", "two"), 5);
  EXPECT_EQ(InStr(6, "one TWO two", "two"), 9);
  EXPECT_EQ(InStr("aß€", "€"), 3);
  EXPECT_EQ(InStr(0, "x\u212Ay", "KY"), 2) << "characters whose folding has another length";
  EXPECT_EQ(InStr("abc", "abcd"), 0);
  EXPECT_EQ(InStr("é", "\xC3"), 0) << "a stray byte is no part of a character";
  EXPECT_EQ(InStr("é\xC3", "\xC3"), 2);
  EXPECT_EQ(InStr("", "a"), 0);
  EXPECT_EQ(InStr(0, "", ""), 1) << "the empty part is everywhere";
  const std::string texts[] = {"needlneedl", "s\xC3 KEY needle", "\u212A GRÖßE",
                               std::string(300, 'x') + "NEEDLE"};
  for (const char* part : {"", "n", "Needle", "eedlE", "\u017F", "K", "Größe", "\xC3", "x "}) {
    for (const std::string& text : texts) {
      EXPECT_EQ(TextPattern(part).OccursIn(text), InStr(text, part) > 0) << part << " in " << text;
    }
  }
}

TEST(Fields, AreWhatIsBetweenSeparators) {
  EXPECT_EQ(CountFields("2009-03-07", "-"), 3);
  EXPECT_EQ(CountFields("", "-"), 1);
  EXPECT_EQ(CountFields("abc", ""), 1);
  ExpectEqual({{NthField("2009-03-07", "-", 2), "03"},
               {NthField("2009-03-07", "-", 4), ""},
               {NthField("2009-03-07", "-", 0), ""},
               {NthField("aXbxc", "X", 3), "c"},
               {NthField("abc", "", 1), "abc"}});
}

TEST(ReplaceAll, ReplacesFromTheFrontWithoutOverlap) {
  ExpectEqual({{ReplaceAll("a&LT;b&lt;", "&lt;", "<"), "a<b<"},
               {ReplaceAll("aaa", "aa", "a"), "aa"},
               {ReplaceAll("\u212Aa\u212A", "k", "-"), "-a-"},
               {ReplaceAll("abc", "", "x"), "abc"},
               {ReplaceAll("\xC3(\x80", "(", "\xFF"), "\xC3\xFF\x80"}});
}

TEST(ChrAndAsc, ConvertBetweenCodeAndCharacter) {
  EXPECT_EQ(Chr(13) + Chr(0x20AC) + Chr(-1) + Chr(0x110000) + Chr(0xD800), "\r€");
  EXPECT_EQ(Asc("€uro"), 0x20AC);
  EXPECT_EQ(Asc("\xFF"), 0xFF);
  EXPECT_EQ(Asc(""), -1);
}

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(Str, IsTheShortestTextWithoutNeedlessExponent) {
  for (const auto& [text, number] :
       {Row{"999999999999999", 999999999999999.0}, Row{"1e+15", 1e15}, Row{"0.1", 0.1},
        Row{"-120000000000000", -120000000000000.0}, Row{"33.333333333333336", 100.0 / 3}}) {
    EXPECT_EQ(Str(number), text);
  }
  EXPECT_EQ(Str(std::int64_t{INT64_MIN}), "-9223372036854775808");
}

TEST(Str, ReadsBackAsTheSameDouble) {
  for (const double value : {-0.0, kInfinity, -kInfinity, 5e-324, 1.7976931348623157e308}) {
    EXPECT_EQ(std::bit_cast<std::uint64_t>(CDbl(Str(value))), std::bit_cast<std::uint64_t>(value));
  }
  EXPECT_TRUE(std::isnan(CDbl(Str(std::nan("")))));
}

TEST(CDbl, ReadsWhatTheTextBeginsWithAndElseIsZero) {
  const std::string zeros(400, '0');
  for (const auto& [text, number] :
       {Row{" \t+2.50e1\r", 25}, Row{"-.5", -0.5}, Row{"12 apples", 12}, Row{"1,5", 1},
        Row{"&hFf", 255}, Row{"-&H10", -16}, Row{"2e", 2}, Row{"1e999", kInfinity},
        Row{"-1" + zeros, -kInfinity}, Row{"1e-999", 0}, Row{"0." + zeros + "1", 0},
        Row{"0." + zeros + "1e99999999999", kInfinity}}) {
    EXPECT_EQ(CDbl(text), number) << text;
  }
  for (const char* text : {"", " ", "abc", "-", "+", ".", "&h", "&hxyz", "e5", "--1", "infant",
                           "nano", "true", "\xFF"}) {
    EXPECT_EQ(CDbl(text), 0) << text;
  }
}

TEST(CInt64, KeepsAllDigitsAndDropsTheFraction) {
  EXPECT_EQ(CInt64("9007199254740993"), 9007199254740993);
  EXPECT_EQ(CInt64(" +9223372036854775807\r"), INT64_MAX);
  EXPECT_EQ(CInt64("-9223372036854775809"), INT64_MIN);
  EXPECT_EQ(CInt64("-3.7"), -3);
  EXPECT_EQ(CInt64("+-5"), 0);
}

TEST(ReadsAsNumber, WantsTheWholeText) {
  for (const char* text : {"1", "-1", " 1.5 ", "1e3", "&hA"}) EXPECT_TRUE(ReadsAsNumber(text));
  for (const char* text : {"", "1a", "Inf", "nan", "1 2", "&h"}) EXPECT_FALSE(ReadsAsNumber(text));
}

TEST(Format, PrintsWholeNumbers) {
  for (const auto& [text, number] :
       {Row{"-2", -2}, Row{"2", 2.9}, Row{"0", -0.9}, Row{"0", std::nan("")},
        Row{"1000000000000000000000", 1e21}, Row{"-9223372036854775808", -kInfinity}}) {
    EXPECT_EQ(Format(number, "-#"), text);
  }
  EXPECT_EQ(Format(-7, "# %"), "7 %");
}

TEST(Hex, HasCapitalDigitsAndNoPadding) {
  EXPECT_EQ(Hex(255), "FF");
  EXPECT_EQ(Hex(-1), "FFFFFFFFFFFFFFFF");
}

}  // namespace
}  // namespace morvantile
