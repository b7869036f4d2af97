#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <utility>

#include "platform/text/text.h"

namespace morvantile {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(Str, IsTheShortestTextWithoutNeedlessExponent) {
  for (const auto& [number, text] : {std::pair{1000000.0, "1000000"},
                                     {999999999999999.0, "999999999999999"},
                                     {-120000000000000.0, "-120000000000000"},
                                     {1e15, "1e+15"},
                                     {0.1, "0.1"},
                                     {-3.7, "-3.7"},
                                     {100.0 / 3, "33.333333333333336"},
                                     {0.0, "0"}}) {
    EXPECT_EQ(Str(number), text);
  }
  EXPECT_EQ(Str(std::int64_t{INT64_MIN}), "-9223372036854775808");
}

TEST(Str, ReadsBackAsTheSameDouble) {
  for (const double value : {5e-324, -0.0, 1e22, 1e-7, kInfinity, -kInfinity}) {
    EXPECT_EQ(std::bit_cast<std::uint64_t>(CDbl(Str(value))), std::bit_cast<std::uint64_t>(value));
  }
  EXPECT_TRUE(std::isnan(CDbl(Str(std::nan("")))));
  std::mt19937_64 random(1);
  for (int i = 0; i < 20000; ++i) {
    const auto value = std::bit_cast<double>(random());
    ASSERT_TRUE(CDbl(Str(value)) == value || std::isnan(value)) << value;
  }
}

TEST(CDbl, ReadsWhatTheTextBeginsWithAndElseIsZero) {
  for (const auto& [text, number] : {std::pair<std::string, double>{" \t+2.50e1\r", 25},
                                     {"-.5", -0.5},
                                     {"12 apples", 12},
                                     {"1,5", 1},
                                     {"&hFf", 255},
                                     {"-&H10", -16},
                                     {"2e", 2},
                                     {"1e999", kInfinity},
                                     {"-1" + std::string(400, '0'), -kInfinity},
                                     {"1e-999", 0},
                                     {"0." + std::string(400, '0') + "1", 0},
                                     {"0." + std::string(400, '0') + "1e99999999999", kInfinity}}) {
    EXPECT_EQ(CDbl(text), number) << text;
  }
  for (const char* text : {"", " ", "abc", "-", "+", ".", "&h", "&hxyz", "e5", "--1", "infant",
                           "nano", "true", "\xFF"}) {
    EXPECT_EQ(CDbl(text), 0) << text;
  }
}

TEST(CInt64, KeepsAllDigitsAndDropsTheFraction) {
  for (const auto& [text, number] : {std::pair<const char*, std::int64_t>{"abc", 0},
                                     {"9007199254740993", 9007199254740993},
                                     {" +9223372036854775807\r", INT64_MAX},
                                     {"-9223372036854775809", INT64_MIN},
                                     {"-3.7", -3},
                                     {"1e3", 1000},
                                     {"+-5", 0},
                                     {"&hFF", 255}}) {
    EXPECT_EQ(CInt64(text), number) << text;
  }
}

TEST(ReadsAsNumber, WantsTheWholeText) {
  for (const char* text : {"1", "-1", " 1.5 ", "1e3", "&hA"}) EXPECT_TRUE(ReadsAsNumber(text));
  for (const char* text : {"", "1a", "Inf", "nan", "1 2", "&h"}) EXPECT_FALSE(ReadsAsNumber(text));
}

TEST(Format, PrintsWholeNumbers) {
  for (const auto& [number, text] : {std::pair{-2.0, "-2"},
                                     {0.0, "0"},
                                     {2.9, "2"},
                                     {-0.9, "0"},
                                     {1e21, "1000000000000000000000"},
                                     {-kInfinity, "-9223372036854775808"},
                                     {std::nan(""), "0"}}) {
    EXPECT_EQ(Format(number, "-#"), text);
  }
  EXPECT_EQ(Format(-7, "# %"), "7 %");
}

TEST(Hex, HasCapitalDigitsAndNoPadding) {
  EXPECT_EQ(Hex(0), "0");
  EXPECT_EQ(Hex(255), "FF");
  EXPECT_EQ(Hex(-1), "FFFFFFFFFFFFFFFF");
}

}  // namespace
}  // namespace morvantile
