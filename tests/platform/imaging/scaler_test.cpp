#include "platform/imaging/scaler.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <ostream>
#include <vector>

#include "tests/platform/imaging/reference.h"

namespace morvantile {
namespace {

using Bytes = std::vector<std::uint8_t>;

Bytes PixelBytes(const Picture& picture) {
  Bytes bytes;
  for (int y = 0; y < picture.Height(); ++y) {
    bytes.insert(bytes.end(), picture.Row(y), picture.Row(y) + std::ptrdiff_t{4} * picture.Width());
  }
  return bytes;
}

Ref<Picture> Uniform(int width, int height, std::array<std::uint8_t, 4> pixel, bool hasAlpha) {
  Ref<Picture> picture = Picture::Create(width, height, hasAlpha);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x)
      std::copy_n(pixel.data(), 4, picture->MutableRow(y) + std::ptrdiff_t{4} * x);
  }
  return picture;
}

void ExpectExactWithinOneLevel(const Ref<Picture>& source, int width, int height) {
  const Ref<Picture> result = Resample(source, width, height);
  ASSERT_TRUE(result);
  ASSERT_EQ(result->Width(), width);
  ASSERT_EQ(result->Height(), height);
  EXPECT_EQ(result->HasAlpha(), source->HasAlpha());
  EXPECT_EQ(FirstDifference(*result, ExactlyResampled(*source, width, height)), "")
      << source->Width() << " x " << source->Height() << " to " << width << " x " << height;
}

struct Sizes {
  int sourceWidth, sourceHeight, width, height;
};

void PrintTo(const Sizes& sizes, std::ostream* out) {
  *out << sizes.sourceWidth << 'x' << sizes.sourceHeight << " to " << sizes.width << 'x'
       << sizes.height;
}

class ScalerSizes : public testing::TestWithParam<Sizes> {};

TEST_P(ScalerSizes, EqualTheDefinitionWithinOneLevel) {
  const Sizes sizes = GetParam();
  for (const Content content :
       {Content::kNoise, Content::kStripes, Content::kBlocks, Content::kGradient}) {
    for (const bool hasAlpha : {false, true}) {
      const Ref<Picture> source =
          Sample(content, sizes.sourceWidth, sizes.sourceHeight, hasAlpha, 4);
      ExpectExactWithinOneLevel(source, sizes.width, sizes.height);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Single, ScalerSizes,
                         testing::Values(Sizes{1, 1, 1, 2}, Sizes{1, 1, 70, 33}, Sizes{1, 90, 1, 9},
                                         Sizes{90, 1, 9, 1}, Sizes{1, 9, 5, 90}, Sizes{9, 1, 90, 5},
                                         Sizes{200, 150, 1, 1}, Sizes{2, 2, 3, 3},
                                         Sizes{3, 200, 1, 300}, Sizes{200, 3, 300, 1}));
INSTANTIATE_TEST_SUITE_P(Reducing, ScalerSizes,
                         testing::Values(Sizes{128, 96, 64, 48}, Sizes{131, 97, 64, 49},
                                         Sizes{255, 131, 31, 17}, Sizes{101, 67, 100, 66},
                                         Sizes{300, 170, 270, 153}, Sizes{640, 20, 6, 1},
                                         Sizes{20, 640, 1, 6}, Sizes{515, 259, 67, 35}));
INSTANTIATE_TEST_SUITE_P(Enlarging, ScalerSizes,
                         testing::Values(Sizes{20, 20, 120, 120}, Sizes{19, 7, 64, 25},
                                         Sizes{33, 17, 34, 18}, Sizes{5, 3, 260, 150},
                                         Sizes{100, 100, 101, 150}));
INSTANTIATE_TEST_SUITE_P(OneSideEach, ScalerSizes,
                         testing::Values(Sizes{90, 40, 30, 120}, Sizes{40, 90, 120, 30},
                                         Sizes{64, 64, 64, 21}, Sizes{64, 64, 21, 64}));

TEST(Scaler, HoldsTheDefinitionOverVeryLargeReductions) {
  for (const bool hasAlpha : {false, true}) {
    ExpectExactWithinOneLevel(Sample(Content::kStripes, 20000, 3, hasAlpha), 4, 2);
    ExpectExactWithinOneLevel(Sample(Content::kStripes, 3, 20000, hasAlpha), 2, 3);
    ExpectExactWithinOneLevel(Sample(Content::kNoise, 40, 6001, hasAlpha), 1, 40);
    ExpectExactWithinOneLevel(Sample(Content::kBlocks, 6001, 40, hasAlpha), 40, 1);
  }
}

TEST(Scaler, PassesTheOriginalSizeThroughBitForBit) {
  for (const bool hasAlpha : {false, true}) {
    const Ref<Picture> source = Sample(Content::kNoise, 37, 23, hasAlpha, 12);
    const Ref<Picture> result = Resample(source, 37, 23);
    ASSERT_TRUE(result);
    EXPECT_EQ(PixelBytes(*result), PixelBytes(*source));
    EXPECT_EQ(result->HasAlpha(), hasAlpha);
    EXPECT_NE(result->Row(0), source->Row(0));
  }
}

TEST(Scaler, LeavesTheSourceUntouched) {
  const Ref<Picture> source = Sample(Content::kNoise, 50, 40, true);
  const Bytes before = PixelBytes(*source);
  Resample(source, 25, 20);
  Resample(source, 80, 90);
  EXPECT_EQ(PixelBytes(*source), before);
}

TEST(Scaler, TakesASideBelowOneAsOne) {
  const Ref<Picture> source = Sample(Content::kNoise, 100, 5, false);
  const Ref<Picture> flat = Resample(source, 6, 0);
  ASSERT_TRUE(flat);
  EXPECT_EQ(flat->Width(), 6);
  EXPECT_EQ(flat->Height(), 1);
  EXPECT_EQ(PixelBytes(*flat), PixelBytes(*Resample(source, 6, 1)));
  EXPECT_EQ(PixelBytes(*Resample(source, INT64_MIN, -3)), PixelBytes(*Resample(source, 1, 1)));
}

TEST(Scaler, GivesNilForNilAndForWhatNoPictureCanHold) {
  EXPECT_FALSE(Resample(nullptr, 10, 10));
  const Ref<Picture> source = Sample(Content::kNoise, 2, 2, true);
  EXPECT_FALSE(Resample(source, 16385, 16384));
  EXPECT_FALSE(Resample(source, Picture::kMaxBytes, 1));
  EXPECT_FALSE(Resample(source, INT64_MAX, INT64_MAX));
}

TEST(Scaler, IgnoresTheAlphaBytesOfAnOpaquePicture) {
  const Ref<Picture> source = Sample(Content::kNoise, 61, 47, false);
  Ref<Picture> filled = Picture::Create(61, 47, false);
  for (int y = 0; y < 47; ++y) {
    std::memcpy(filled->MutableRow(y), source->Row(y), std::size_t{61} * 4);
    for (int x = 0; x < 61; ++x) filled->MutableRow(y)[4 * x + 3] = 255;
  }
  for (const Sizes to : {Sizes{0, 0, 30, 20}, Sizes{0, 0, 99, 120}}) {
    const Bytes result = PixelBytes(*Resample(source, to.width, to.height));
    EXPECT_EQ(result, PixelBytes(*Resample(filled, to.width, to.height)));
    for (std::size_t i = 3; i < result.size(); i += 4) ASSERT_EQ(result[i], 255);
  }
}

TEST(Scaler, KeepsAUniformPictureUniform) {
  for (const std::array<std::uint8_t, 4> pixel :
       {std::array<std::uint8_t, 4>{255, 1, 128, 255}, {0, 254, 77, 128}, {100, 200, 255, 51}}) {
    for (const Sizes to : {Sizes{0, 0, 40, 30}, Sizes{0, 0, 7, 5}, Sizes{0, 0, 300, 211}}) {
      const Ref<Picture> result = Resample(Uniform(93, 71, pixel, true), to.width, to.height);
      EXPECT_EQ(PixelBytes(*result), PixelBytes(*Uniform(to.width, to.height, pixel, true)));
    }
  }
}

TEST(Scaler, LetsNoColourBleedOutOfTransparentPixels) {
  const Ref<Picture> source = Uniform(64, 64, {10, 20, 30, 255}, true);
  for (int y = 0; y < 64; ++y) {
    for (int x = 0; x < 64; ++x) {
      if ((x / 5 + y / 5) % 2 == 0) continue;
      const std::array<std::uint8_t, 4> loud = {255, 255, 255, 0};
      std::copy_n(loud.data(), 4, source->MutableRow(y) + std::ptrdiff_t{4} * x);
    }
  }
  for (const Sizes to : {Sizes{0, 0, 30, 25}, Sizes{0, 0, 65, 63}, Sizes{0, 0, 200, 130}}) {
    const Bytes result = PixelBytes(*Resample(source, to.width, to.height));
    for (std::size_t i = 0; i < result.size(); i += 4) {
      if (result[i + 3] < 64) continue;
      ASSERT_NEAR(result[i], 10, 1);
      ASSERT_NEAR(result[i + 1], 20, 1);
      ASSERT_NEAR(result[i + 2], 30, 1);
    }
  }
}

TEST(Scaler, MakesAFullyTransparentPixelAllZero) {
  const Ref<Picture> result = Resample(Uniform(20, 20, {255, 128, 7, 0}, true), 13, 31);
  EXPECT_EQ(PixelBytes(*result), Bytes(std::size_t{13} * 31 * 4, 0));
}

}  // namespace
}  // namespace morvantile
