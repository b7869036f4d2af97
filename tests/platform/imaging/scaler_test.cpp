#include "platform/imaging/scaler.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cstring>
#include <memory>
#include <ostream>
#include <vector>

#include "hwy/targets.h"
#include "platform/imaging/resample_internal.h"
#include "platform/imaging/workers.h"
#include "tests/platform/imaging/reference.h"

namespace morvantile {
namespace {

// From one size to another.
struct Sizes {
  int from_width, from_height, width, height;
};

std::ostream& operator<<(std::ostream& out, const Sizes& it) {
  return out << it.from_width << 'x' << it.from_height << " to " << it.width << 'x' << it.height;
}

bool SamePixels(const Picture& a, const Picture& b) {
  if (a.Width() != b.Width() || a.Height() != b.Height()) return false;
  for (int y = 0; y < a.Height(); ++y) {
    if (std::memcmp(a.Row(y), b.Row(y), 4 * static_cast<std::size_t>(a.Width())) != 0) return false;
  }
  return true;
}

// Makes Highway choose this instruction set; 0 is for the best.
void Choose(std::int64_t target) {
  hwy::SetSupportedTargetsForTest(target);
  hwy::GetChosenTarget().Update(hwy::SupportedTargets());
}

void ExpectExactWithinOneLevel(Content content, bool has_alpha, const Sizes& sizes) {
  const Ref<Picture> source = Sample(content, sizes.from_width, sizes.from_height, has_alpha, 4);
  const Ref<Picture> result = Resample(source, sizes.width, sizes.height);
  ASSERT_EQ(std::pair(result->Width(), result->Height()), std::pair(sizes.width, sizes.height));
  EXPECT_EQ(result->HasAlpha(), has_alpha);
  const auto exact = ExactlyResampled(*source, sizes.width, sizes.height);
  EXPECT_EQ(FirstDifference(*result, exact), "") << sizes;
}

TEST(Scaler, EqualsTheDefinitionWithinOneLevel) {
  constexpr std::array kSizes = {
      // Single pixels, rows and columns.
      Sizes{1, 1, 1, 2}, Sizes{1, 1, 70, 33}, Sizes{1, 90, 1, 9}, Sizes{90, 1, 9, 1},
      Sizes{1, 9, 5, 90}, Sizes{9, 1, 90, 5}, Sizes{200, 150, 1, 1}, Sizes{2, 2, 3, 3},
      Sizes{3, 200, 1, 300}, Sizes{200, 3, 300, 1},
      // Smaller.
      Sizes{128, 96, 64, 48}, Sizes{131, 97, 64, 49}, Sizes{255, 131, 31, 17},
      Sizes{101, 67, 100, 66}, Sizes{300, 170, 270, 153}, Sizes{640, 20, 6, 1},
      Sizes{20, 640, 1, 6}, Sizes{515, 259, 67, 35},
      // Larger.
      Sizes{20, 20, 120, 120}, Sizes{19, 7, 64, 25}, Sizes{33, 17, 34, 18}, Sizes{5, 3, 260, 150},
      Sizes{100, 100, 101, 150},
      // One side each, or one alone.
      Sizes{90, 40, 30, 120}, Sizes{40, 90, 120, 30}, Sizes{64, 64, 64, 21}, Sizes{64, 64, 21, 64},
      // Very much smaller.
      Sizes{20000, 3, 4, 2}, Sizes{3, 20000, 2, 3}, Sizes{40, 6001, 1, 40}, Sizes{6001, 40, 40, 1}};
  for (const Sizes& sizes : kSizes) {
    for (const Content content : {Content::kNoise, Content::kStripes, Content::kBlocks}) {
      for (const bool has_alpha : {false, true})
        ExpectExactWithinOneLevel(content, has_alpha, sizes);
    }
  }
}

// Every way through the passes: several strips and batches, unfinished rows, edges, long windows.
TEST(Scaler, MakesTheSameBytesWithEveryInstructionSetAndNumberOfThreads) {
  const std::vector<std::int64_t> targets = VectorTargets();
  ASSERT_GE(targets.size(), 2U);
  ASSERT_THAT(targets, testing::Contains(HWY_EMU128)) << "the way without vectors";
  for (const Sizes& sizes : {Sizes{601, 403, 307, 200}, Sizes{433, 357, 389, 330},
                             Sizes{71, 113, 500, 701}, Sizes{1200, 700, 37, 21},
                             Sizes{3001, 70, 40, 3}, Sizes{70, 3001, 3, 40}, Sizes{5, 3, 2, 2}}) {
    for (const Content content : {Content::kNoise, Content::kBlocks}) {
      for (const bool has_alpha : {false, true}) {
        const Ref<Picture> source =
            Sample(content, sizes.from_width, sizes.from_height, has_alpha, 8);
        const auto resampled = [&](int threads) {
          return ResampleWithThreads(source, sizes.width, sizes.height, threads);
        };
        const Ref<Picture> best = resampled(1);
        for (const std::int64_t target : targets) {
          Choose(target);
          EXPECT_TRUE(SamePixels(*resampled(4), *best)) << hwy::TargetName(target) << ", " << sizes;
        }
        Choose(0);
        for (const int threads : {2, 3, 7, 16}) {
          EXPECT_TRUE(SamePixels(*resampled(threads), *best)) << threads << ", " << sizes;
        }
      }
    }
  }
}

TEST(Scaler, WorksInLessThanASixteenthOfALargeSource) {
  for (const Sizes& sizes :
       {Sizes{1920, 1080, 960, 540}, Sizes{1920, 1080, 96, 54}, Sizes{3840, 2160, 3456, 1944},
        Sizes{3840, 2160, 300, 168}, Sizes{3840, 2160, 6, 3}, Sizes{16384, 16384, 8192, 8192},
        Sizes{16384, 16384, 6, 6}, Sizes{1000, 40000, 15, 600}, Sizes{40000, 1000, 600, 15}}) {
    const std::int64_t stride = std::int64_t{4} * sizes.from_width;
    const Ref<Picture> source =
        Picture::Wrap(sizes.from_width, sizes.from_height, stride, nullptr, true, nullptr);
    for (const int threads : {1, 2, 4}) {
      EXPECT_LT(WorkingBytes(*source, sizes.width, sizes.height, threads),
                stride * sizes.from_height / 16)
          << sizes;
    }
  }
}

TEST(Scaler, TakesASideBelowOneAsOneAndIsNilForWhatNoPictureCanHold) {
  const Ref<Picture> source = Sample(Content::kNoise, 100, 5, false);
  EXPECT_TRUE(SamePixels(*Resample(source, 100, 5), *source));
  EXPECT_TRUE(SamePixels(*Resample(source, 6, 0), *Resample(source, 6, 1)));
  EXPECT_TRUE(SamePixels(*Resample(source, INT64_MIN, -3), *Resample(source, 1, 1)));
  EXPECT_FALSE(Resample(source, INT64_MAX, INT64_MAX));
  EXPECT_FALSE(Resample(nullptr, 10, 10));
}

TEST(Scaler, KeepsAUniformPictureUniform) {
  using Pixel = std::array<std::uint8_t, 4>;
  const auto uniform = [](int width, int height, const Pixel& pixel) {
    const std::size_t count = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    const auto pixels = std::make_shared<std::vector<Pixel>>(count, pixel);
    return Picture::Wrap(width, height, 4 * width, pixels->front().data(), true, pixels);
  };
  for (const Pixel& pixel : {Pixel{255, 1, 128, 255}, Pixel{0, 254, 77, 128}}) {
    for (const auto& [width, height] : {std::pair(40, 30), {7, 5}, {300, 211}}) {
      const Ref<Picture> result = Resample(uniform(93, 71, pixel), width, height);
      EXPECT_TRUE(SamePixels(*result, *uniform(width, height, pixel)));
    }
  }
}

TEST(Workers, ACallDuringAnotherOrWithoutThreadsIsDoneAlone) {
  std::atomic<int> calls{0};
  const auto count = [&](int number) {
    EXPECT_EQ(number, 0);
    calls.fetch_add(1);
  };
  Workers workers(1);
  workers.Run(1, [&](int number) {
    if (number == 0) workers.Run(1, count);
  });
  Workers(0).Run(4, count);
  EXPECT_EQ(calls, 2);
}

}  // namespace
}  // namespace morvantile
