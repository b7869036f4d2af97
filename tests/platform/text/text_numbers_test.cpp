#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <random>

#include "platform/text/text.h"

namespace morvantile {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(Str, IsTheShortestTextWithoutNeedlessExponent) {
  EXPECT_EQ(Str(1000000.0), "1000000");
  EXPECT_EQ(Str(999999999999999.0), "999999999999999");
  EXPECT_EQ(Str(-120000000000000.0), "-120000000000000");
  EXPECT_EQ(Str(1e15), "1e+15");
  EXPECT_EQ(Str(0.1), "0.1");
  EXPECT_EQ(Str(-3.7), "-3.7");
  EXPECT_EQ(Str(100.0 / 3), "33.333333333333336");
  EXPECT_EQ(Str(0.0), "0");
  EXPECT_EQ(Str(std::int64_t{INT64_MIN}), "-9223372036854775808");
}

TEST(Str, ReadsBackAsTheSameDouble) {
  for (const double value :
       {5e-324, 1.7976931348623157e308, -0.0, 1e22, 1e-7, kInfinity, -kInfinity}) {
    EXPECT_EQ(std::bit_cast<std::uint64_t>(CDbl(Str(value))), std::bit_cast<std::uint64_t>(value));
  }
  EXPECT_TRUE(std::isnan(CDbl(Str(std::nan("")))));
  std::mt19937_64 random(1);
  for (int i = 0; i < 20000; ++i) {
    const auto value = std::bit_cast<double>(random());
    if (std::isfinite(value)) {
      ASSERT_EQ(CDbl(Str(value)), value);
    }
  }
}

TEST(CDbl, ReadsWhatTheTextBeginsWith) {
  EXPECT_EQ(CDbl(" \t+2.50e1\r"), 25);
  EXPECT_EQ(CDbl("-.5"), -0.5);
  EXPECT_EQ(CDbl("12 apples"), 12);
  EXPECT_EQ(CDbl("1,5"), 1) << "whatever the locale's decimal point";
  EXPECT_EQ(CDbl("&hFf"), 255);
  EXPECT_EQ(CDbl("-&H10"), -16);
  EXPECT_EQ(CDbl("2e"), 2);
}

TEST(CDbl, GivesZeroForWhatIsNoNumber) {
  for (const char* text : {"", " ", "abc", "-", "+", ".", "&h", "&hxyz", "e5", "--1", "infant",
                           "nano", "true", "\xFF"}) {
    EXPECT_EQ(CDbl(text), 0) << text;
  }
}

TEST(CDbl, GoesToTheEndsOfTheRange) {
  EXPECT_EQ(CDbl("1e999"), kInfinity);
  EXPECT_EQ(CDbl("-1" + std::string(400, '0')), -kInfinity);
  EXPECT_EQ(CDbl("1e-999"), 0);
  EXPECT_EQ(CDbl("0." + std::string(400, '0') + "1"), 0);
  EXPECT_EQ(CDbl("0." + std::string(400, '0') + "1e99999999999"), kInfinity);
}

TEST(CInt64, KeepsAllDigitsAndDropsTheFraction) {
  EXPECT_EQ(CInt64("9007199254740993"), 9007199254740993);
  EXPECT_EQ(CInt64(" +9223372036854775807\r"), INT64_MAX);
  EXPECT_EQ(CInt64("-9223372036854775809"), INT64_MIN);
  EXPECT_EQ(CInt64("-3.7"), -3);
  EXPECT_EQ(CInt64("1e3"), 1000);
  EXPECT_EQ(CInt64("+-5"), 0);
  EXPECT_EQ(CInt64("&hFF"), 255);
  EXPECT_EQ(CInt64("abc"), 0);
}

TEST(ReadsAsNumber, WantsTheWholeText) {
  for (const char* text : {"1", "-1", " 1.5 ", "1e3", "&hA"}) EXPECT_TRUE(ReadsAsNumber(text));
  for (const char* text : {"", "1a", "Inf", "nan", "1 2", "&h"}) EXPECT_FALSE(ReadsAsNumber(text));
}

TEST(Format, PrintsWholeNumbers) {
  EXPECT_EQ(Format(-2, "-#"), "-2");
  EXPECT_EQ(Format(0, "-#"), "0");
  EXPECT_EQ(Format(2.9, "-#"), "2");
  EXPECT_EQ(Format(-0.9, "-#"), "0");
  EXPECT_EQ(Format(1e21, "-#"), "1000000000000000000000");
  EXPECT_EQ(Format(-7, "# %"), "7 %");
  EXPECT_EQ(Format(-kInfinity, "-#"), "-9223372036854775808");
  EXPECT_EQ(Format(std::nan(""), "-#"), "0");
}

TEST(Hex, HasCapitalDigitsAndNoPadding) {
  EXPECT_EQ(Hex(0), "0");
  EXPECT_EQ(Hex(255), "FF");
  EXPECT_EQ(Hex(-1), "FFFFFFFFFFFFFFFF");
}

}  // namespace
}  // namespace morvantile
