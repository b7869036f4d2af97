#include "platform/core/variant.h"

#include <gtest/gtest.h>

#include "platform/core/color.h"

namespace morvantile {
namespace {

TEST(Variant, IsNumericForNumbersAndTextsThatReadAsOne) {
  EXPECT_TRUE(Variant(7).IsNumeric());
  EXPECT_TRUE(Variant("-7").IsNumeric());
  EXPECT_TRUE(Variant(std::string("1.9")).IsNumeric());
  EXPECT_FALSE(Variant("7 windows").IsNumeric());
  EXPECT_FALSE(Variant("nan").IsNumeric());
  EXPECT_FALSE(Variant("").IsNumeric());
}

TEST(Variant, ConvertsEitherWay) {
  EXPECT_EQ(Variant("1.9").Integer(), 1);
  EXPECT_EQ(Variant("x").Integer(), 0);
  EXPECT_EQ(Variant(INT64_MIN).Integer(), INT64_MIN);
  EXPECT_EQ(Variant(INT64_MIN).String(), "-9223372036854775808");
  EXPECT_EQ(Variant("Left").String(), "Left");
}

TEST(Color, HoldsItsChannelsInTheBytesOfItsBits) {
  const Color color = RGB(1, 2, 255, 4);
  EXPECT_EQ(color.bits, 0x040102FFU);
  EXPECT_EQ(color.Red(), 1);
  EXPECT_EQ(color.Green(), 2);
  EXPECT_EQ(color.Blue(), 255);
  EXPECT_EQ(color.Alpha(), 4);
  EXPECT_EQ(RGB(-1, 256, 0, 0).bits, 0x0000FF00U);
}

}  // namespace
}  // namespace morvantile
