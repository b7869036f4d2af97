#include "platform/imaging/resample_internal.h"

#include <gtest/gtest.h>

#include <cstring>

#include "hwy/targets.h"
#include "platform/imaging/scaler.h"
#include "tests/platform/imaging/reference.h"

namespace morvantile {
namespace {

struct Case {
  Content content;
  int sourceWidth, sourceHeight;
  bool hasAlpha;
  int width, height;

  Ref<Picture> Source() const { return Sample(content, sourceWidth, sourceHeight, hasAlpha, 8); }
};

// Every way through the passes: several strips and batches, unfinished rows, edges, long windows.
std::vector<Case> Cases() {
  std::vector<Case> cases;
  for (const bool hasAlpha : {false, true}) {
    for (const Content content : {Content::kNoise, Content::kBlocks}) {
      cases.push_back({content, 601, 403, hasAlpha, 307, 200});
      cases.push_back({content, 433, 357, hasAlpha, 389, 330});
      cases.push_back({content, 71, 113, hasAlpha, 500, 701});
      cases.push_back({content, 1200, 700, hasAlpha, 37, 21});
    }
    cases.push_back({Content::kNoise, 3001, 70, hasAlpha, 40, 3});
    cases.push_back({Content::kNoise, 70, 3001, hasAlpha, 3, 40});
    cases.push_back({Content::kStripes, 5, 3, hasAlpha, 2, 2});
  }
  return cases;
}

bool SamePixels(const Picture& a, const Picture& b) {
  for (int y = 0; y < a.Height(); ++y) {
    if (std::memcmp(a.Row(y), b.Row(y), 4 * static_cast<std::size_t>(a.Width())) != 0) return false;
  }
  return a.Width() == b.Width() && a.Height() == b.Height();
}

// Makes Highway choose among `targets` only, for as long as it lives.
class OnlyTargets {
 public:
  explicit OnlyTargets(std::int64_t targets) { Choose(targets); }
  ~OnlyTargets() { Choose(0); }
  OnlyTargets(const OnlyTargets&) = delete;
  OnlyTargets& operator=(const OnlyTargets&) = delete;

 private:
  static void Choose(std::int64_t targets) {
    hwy::SetSupportedTargetsForTest(targets);
    hwy::GetChosenTarget().Update(hwy::SupportedTargets());
  }
};

TEST(Passes, GiveTheSameBytesWithEveryInstructionSet) {
  const std::vector<std::int64_t> targets = VectorTargets();
  ASSERT_GE(targets.size(), 2U);
  for (const Case& it : Cases()) {
    const Ref<Picture> source = it.Source();
    const Ref<Picture> best = Resample(source, it.width, it.height);
    for (const std::int64_t target : targets) {
      const OnlyTargets only(target);
      const Ref<Picture> result = Resample(source, it.width, it.height);
      EXPECT_TRUE(SamePixels(*result, *best))
          << hwy::TargetName(target) << ": " << it.sourceWidth << " x " << it.sourceHeight << " to "
          << it.width << " x " << it.height;
    }
  }
}

TEST(Passes, AreCorrectWithoutVectors) {
  const Ref<Picture> source = Sample(Content::kNoise, 97, 61, true);
  const OnlyTargets only(HWY_EMU128);
  for (const auto& [width, height] : {std::pair(40, 30), std::pair(150, 80)}) {
    const Ref<Picture> result = Resample(source, width, height);
    EXPECT_EQ(FirstDifference(*result, ExactlyResampled(*source, width, height)), "");
  }
}

TEST(Passes, GiveTheSameBytesWithAnyNumberOfThreads) {
  for (const Case& it : Cases()) {
    const Ref<Picture> source = it.Source();
    const Ref<Picture> alone = ResampleWithThreads(source, it.width, it.height, 1);
    for (const int threads : {2, 3, 7, 16}) {
      const Ref<Picture> result = ResampleWithThreads(source, it.width, it.height, threads);
      EXPECT_TRUE(SamePixels(*result, *alone))
          << threads << " threads: " << it.sourceWidth << " x " << it.sourceHeight << " to "
          << it.width << " x " << it.height;
    }
  }
}

TEST(Scaler, WorksInLessThanASixteenthOfALargeSource) {
  struct Sizes {
    int width, height, toWidth, toHeight;
  };
  for (const Sizes& it :
       {Sizes{1920, 1080, 960, 540}, Sizes{1920, 1080, 96, 54}, Sizes{3840, 2160, 3456, 1944},
        Sizes{3840, 2160, 300, 168}, Sizes{3840, 2160, 6, 3}, Sizes{16384, 16384, 8192, 8192},
        Sizes{16384, 16384, 6, 6}, Sizes{1000, 40000, 15, 600}, Sizes{40000, 1000, 600, 15}}) {
    const std::int64_t bytes = std::int64_t{4} * it.width * it.height;
    const Ref<Picture> source =
        Picture::Wrap(it.width, it.height, std::ptrdiff_t{4} * it.width, nullptr, true, nullptr);
    for (const int threads : {1, 2, 4}) {
      EXPECT_LT(WorkingBytes(*source, it.toWidth, it.toHeight, threads), bytes / 16)
          << it.width << " x " << it.height << " to " << it.toWidth << " x " << it.toHeight;
    }
  }
}

}  // namespace
}  // namespace morvantile
