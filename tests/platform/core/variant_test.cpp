#include "platform/core/variant.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "platform/core/color.h"

namespace morvantile {
namespace {

TEST(Variant, ConvertsEitherWay) {
  EXPECT_TRUE(Variant(7).IsNumeric() && Variant("-7").IsNumeric() && Variant("1.9").IsNumeric());
  EXPECT_FALSE(Variant("7 windows").IsNumeric());
  EXPECT_EQ(Variant(std::string("1.9")).Integer(), 1);
  EXPECT_EQ(Variant("x").Integer(), 0);
  EXPECT_EQ(Variant(INT64_MIN).Integer(), INT64_MIN);
  EXPECT_EQ(Variant(INT64_MIN).String(), "-9223372036854775808");
  EXPECT_EQ(Variant("Left").String(), "Left");
}

TEST(Color, HoldsItsChannelsInTheBytesOfItsBits) {
  const Color color = RGB(1, -1, 256, 4);
  EXPECT_EQ(color.bits, 0x040100FFU);
  EXPECT_EQ(std::vector({color.Red(), color.Green(), color.Blue(), color.Alpha()}),
            std::vector<std::int64_t>({1, 0, 255, 4}));
}

}  // namespace
}  // namespace morvantile
