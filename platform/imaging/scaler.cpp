#include "platform/imaging/scaler.h"

#include <algorithm>
#include <atomic>
#include <cstring>
#include <functional>
#include <new>
#include <thread>
#include <utility>

#include "platform/imaging/aligned.h"
#include "platform/imaging/passes.h"
#include "platform/imaging/resample_internal.h"
#include "platform/imaging/weights.h"
#include "platform/imaging/workers.h"

namespace morvantile {
namespace {

constexpr int kMostThreads = 16;
// Pairs of samples to multiply, below which waking a worker costs more than it gains.
constexpr std::int64_t kPairsForThreads = 1 << 20;
// What a thread may work in, in bytes: a part of its core's own cache, and all threads together a
// part of the source, but not too little to work at all.
constexpr std::int64_t kMostWork = 512 << 10;
constexpr std::int64_t kLeastWork = 128 << 10;
constexpr std::int64_t kPartOfSource = 32;
// Pieces for each thread, so that one that comes late leaves little to wait for; but pieces of
// fewer columns than these would convert too many pixels twice.
constexpr int kPiecesPerThread = 4;
constexpr int kWorthwhileColumns = 64;

int Threads() {
  static const int threads =
      std::clamp(static_cast<int>(std::thread::hardware_concurrency()), 1, kMostThreads);
  return threads;
}

Workers& SharedWorkers() {
  static Workers workers(Threads() - 1);
  return workers;
}

// An empty picture of another size for what is made from the source.
Ref<Picture> CreateLike(const Picture& source, std::int64_t width, std::int64_t height,
                        Ref<Picture> spare) {
  Ref<Picture> picture = Picture::Create(width, height, source.HasAlpha(), std::move(spare));
  if (picture != nullptr) picture->metadata = source.metadata;
  return picture;
}

Ref<Picture> Copy(const Picture& source, Ref<Picture> spare) {
  Ref<Picture> copy = CreateLike(source, source.Width(), source.Height(), std::move(spare));
  if (copy == nullptr) return nullptr;
  for (int y = 0; y < source.Height(); ++y) {
    std::memcpy(copy->MutableRow(y), source.Row(y), 4 * static_cast<std::size_t>(source.Width()));
  }
  return copy;
}

Resampling ResamplingOf(const Picture& source, int width, int height) {
  Filter down = LanczosFilter(source.Height(), height);
  const int sum_rows = RowsWithSums(down);
  return {&source, LanczosFilter(source.Width(), width), std::move(down), sum_rows};
}

// How the columns of the result are shared out.
struct Plan {
  int threads;
  int columns;  // of a piece
  int pieces;
  std::size_t work_bytes;

  [[nodiscard]] std::size_t AllBytes() const {
    return work_bytes * static_cast<std::size_t>(threads);
  }
};

// About as many columns as can be made in `bytes`.
int ColumnsWithin(const Resampling& resampling, std::int64_t bytes) {
  const auto few = static_cast<std::int64_t>(WorkBytes(resampling, kColumnStep));
  const auto twice = static_cast<std::int64_t>(WorkBytes(resampling, 2 * kColumnStep));
  const std::int64_t columns =
      kColumnStep * (1 + std::max<std::int64_t>(bytes - few, 0) / (twice - few));
  return static_cast<int>(std::min<std::int64_t>(columns, resampling.Width()));
}

// The pairs of samples that the two passes multiply with weights, in each channel.
std::int64_t Pairs(const Resampling& resampling) {
  return std::int64_t{resampling.Width()} *
         (std::int64_t{resampling.source->Height()} * resampling.across.pairs +
          std::int64_t{resampling.Height()} * resampling.down.pairs);
}

Plan PlanFor(const Resampling& resampling, int threads) {
  const int width = resampling.Width();
  const std::int64_t source_pixels =
      std::int64_t{resampling.source->Width()} * resampling.source->Height();
  if (Pairs(resampling) < kPairsForThreads) threads = 1;
  threads = std::clamp(width / kColumnStep, 1, threads);
  const std::int64_t bytes =
      std::clamp(4 * source_pixels / kPartOfSource / threads, kLeastWork, kMostWork);

  // As many pieces as give each thread the same number of them.
  int pieces = (width - 1) / ColumnsWithin(resampling, bytes) + 1;
  if (threads > 1) {
    pieces = std::max(pieces, std::min(kPiecesPerThread * threads, width / kWorthwhileColumns));
  }
  const int even_pieces = (pieces + threads - 1) / threads * threads;
  const int even = (width - 1) / even_pieces + 1;
  const int columns = (even + kColumnStep - 1) / kColumnStep * kColumnStep;
  return {threads, columns, (width - 1) / columns + 1, WorkBytes(resampling, columns)};
}

std::size_t FilterBytes(const Filter& filter) {
  return filter.first.size() * sizeof(int) + filter.weights.size() * sizeof(std::int16_t);
}

// False if there is no memory to work in.
bool Run(const Resampling& resampling, const Plan& plan) {
  const AlignedBytes memory = MakeAlignedBytes(plan.AllBytes());
  if (memory == nullptr) return false;
  std::atomic<int> next{0};
  const std::function<void(int)> work = [&](int thread) {
    std::uint8_t* own = memory.get() + plan.work_bytes * static_cast<std::size_t>(thread);
    for (;;) {
      const int piece = next.fetch_add(1);
      if (piece >= plan.pieces) return;
      const std::int64_t begin = std::int64_t{piece} * plan.columns;
      const std::int64_t end = std::min<std::int64_t>(begin + plan.columns, resampling.Width());
      ResampleColumns(resampling, {static_cast<int>(begin), static_cast<int>(end)}, own);
    }
  };
  SharedWorkers().Run(plan.threads - 1, work);
  return true;
}

}  // namespace

std::size_t WorkingBytes(const Picture& source, int width, int height, int threads) {
  const Resampling resampling = ResamplingOf(source, width, height);
  return FilterBytes(resampling.across) + FilterBytes(resampling.down) +
         PlanFor(resampling, threads).AllBytes();
}

Ref<Picture> ResampleWithThreads(const Ref<Picture>& source, std::int64_t width,
                                 std::int64_t height, int threads, Ref<Picture> spare) {
  if (source == nullptr) return nullptr;
  width = std::max<std::int64_t>(width, 1);
  height = std::max<std::int64_t>(height, 1);
  if (width == source->Width() && height == source->Height())
    return Copy(*source, std::move(spare));

  Ref<Picture> result = CreateLike(*source, width, height, std::move(spare));
  if (result == nullptr) return nullptr;
  try {
    Resampling resampling = ResamplingOf(*source, result->Width(), result->Height());
    resampling.result = result.get();
    if (!Run(resampling, PlanFor(resampling, threads))) return nullptr;
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
  return result;
}

Ref<Picture> Resample(const Ref<Picture>& source, std::int64_t width, std::int64_t height,
                      Ref<Picture> spare) {
  return ResampleWithThreads(source, width, height, Threads(), std::move(spare));
}

}  // namespace morvantile
