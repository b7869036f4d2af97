#include "platform/text/text.h"

#include <gtest/gtest.h>

#include "platform/text/folding.h"
#include "platform/text/text_search.h"

namespace morvantile {
namespace {

struct Pair {
  std::string a, b;
};

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
  for (const auto& [part, expected] :
       {Pair{Left(text, 3), "aß€"}, Pair{Right(text, 2), "\U0001F600z"},
        Pair{Mid(text, 2, 2), "ß€"}, Pair{Mid(text, 4), "\U0001F600z"},
        Pair{Left(stray, 1) + Mid(stray, 2, 3) + Right(stray, 1), stray},
        // Counts and positions outside the text.
        Pair{Left("abc", 9), "abc"}, Pair{Left("abc", -1), ""}, Pair{Right("abc", 9), "abc"},
        Pair{Right("abc", INT64_MIN), ""}, Pair{Mid("abc", INT64_MIN), "abc"},
        Pair{Mid("abc", -5, 2), "ab"}, Pair{Mid("abc", 9, 2), ""}}) {
    EXPECT_EQ(part, expected);
  }
  EXPECT_EQ(Len(text), 5);
  EXPECT_EQ(Len(stray), 5);
  EXPECT_EQ(Len(""), 0);
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
  EXPECT_EQ(CountFields("--", "-"), 3);
  EXPECT_EQ(CountFields("", "-"), 1);
  EXPECT_EQ(CountFields("abc", ""), 1);
  for (const auto& [field, expected] :
       {Pair{NthField("2009-03-07", "-", 2), "03"}, Pair{NthField("2009-03-07", "-", 4), ""},
        Pair{NthField("2009-03-07", "-", 0), ""}, Pair{NthField("aXbxc", "X", 3), "c"},
        Pair{NthField("abc", "", 1), "abc"}}) {
    EXPECT_EQ(field, expected);
  }
}

TEST(ReplaceAll, ReplacesFromTheFrontWithoutOverlap) {
  for (const auto& [text, expected] :
       {Pair{ReplaceAll("a&LT;b&lt;", "&lt;", "<"), "a<b<"},
        Pair{ReplaceAll("aaa", "aa", "a"), "aa"},
        Pair{ReplaceAll("\u212Aa\u212A", "k", "-"), "-a-"}, Pair{ReplaceAll("abc", "", "x"), "abc"},
        Pair{ReplaceAll("\xC3(\x80", "(", "\xFF"), "\xC3\xFF\x80"},
        Pair{ReplaceAll("", "a", "x"), ""}}) {
    EXPECT_EQ(text, expected);
  }
}

TEST(ChrAndAsc, ConvertBetweenCodeAndCharacter) {
  EXPECT_EQ(Chr(13) + Chr(0x20AC) + Chr(-1) + Chr(0x110000) + Chr(0xD800), "\r€");
  EXPECT_EQ(Asc("€uro"), 0x20AC);
  EXPECT_EQ(Asc("\xFF"), 0xFF);
  EXPECT_EQ(Asc(""), -1);
}

}  // namespace
}  // namespace morvantile
