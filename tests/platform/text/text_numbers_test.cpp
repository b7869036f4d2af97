#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <random>
#include <string>

#include "platform/text/text.h"

namespace morvantile {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

struct Row {
  std::string text;
  double number;
};

TEST(Str, IsTheShortestTextWithoutNeedlessExponent) {
  for (const auto& [text, number] :
       {Row{"999999999999999", 999999999999999.0}, Row{"1e+15", 1e15}, Row{"0.1", 0.1},
        Row{"-120000000000000", -120000000000000.0}, Row{"33.333333333333336", 100.0 / 3}}) {
    EXPECT_EQ(Str(number), text);
  }
  EXPECT_EQ(Str(std::int64_t{INT64_MIN}), "-9223372036854775808");
}

TEST(Str, ReadsBackAsTheSameDouble) {
  const auto bits = [](double value) { return std::bit_cast<std::uint64_t>(value); };
  for (const double value : {-0.0, kInfinity, -kInfinity}) {
    EXPECT_EQ(bits(CDbl(Str(value))), bits(value));
  }
  std::mt19937_64 random(1);
  for (int i = 0; i < 20000; ++i) {
    const auto value = std::bit_cast<double>(random());
    const double back = CDbl(Str(value));
    ASSERT_TRUE(back == value || (std::isnan(back) && std::isnan(value))) << value;
  }
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
