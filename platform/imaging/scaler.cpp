#include "platform/imaging/scaler.h"

#include <algorithm>
#include <atomic>
#include <cstring>
#include <functional>
#include <memory>
#include <new>
#include <thread>
#include <utility>

#include "platform/imaging/passes.h"
#include "platform/imaging/resample_internal.h"
#include "platform/imaging/weights.h"
#include "platform/imaging/workers.h"

namespace morvantile {
namespace {

constexpr int kMostThreads = 16;
// Pixels, of source and result together, below which waking a worker costs more than it gains.
constexpr std::int64_t kPixelsForThreads = 32 << 10;
// The memory that a thread works in: a part of its core's own cache.
constexpr std::size_t kWorkBytes = 256 << 10;
// The fewest columns that a thread takes at a time, unless there are fewer.
constexpr int kFewestColumns = 16;

int Threads() {
  static const int threads =
      std::clamp(static_cast<int>(std::thread::hardware_concurrency()), 1, kMostThreads);
  return threads;
}

Workers& SharedWorkers() {
  static Workers workers(Threads() - 1);
  return workers;
}

Ref<Picture> Copy(const Picture& source) {
  Ref<Picture> copy = Picture::Create(source.Width(), source.Height(), source.HasAlpha());
  if (copy == nullptr) return nullptr;
  for (int y = 0; y < source.Height(); ++y) {
    std::memcpy(copy->MutableRow(y), source.Row(y), 4 * static_cast<std::size_t>(source.Width()));
  }
  return copy;
}

std::int64_t Pixels(const Picture& picture) {
  return std::int64_t{picture.Width()} * picture.Height();
}

// How the columns of the result are shared out.
struct Plan {
  int threads;
  int columns;  // at a time
  std::size_t workBytes;
};

Plan PlanFor(const Resampling& resampling, int threads) {
  const int width = resampling.result->Width();
  if (Pixels(*resampling.source) + Pixels(*resampling.result) < kPixelsForThreads) threads = 1;
  int pieces = threads;
  Plan plan{};
  for (;;) {
    plan.columns = (width + pieces - 1) / pieces;
    plan.columns = (plan.columns + kFewestColumns - 1) / kFewestColumns * kFewestColumns;
    plan.columns = std::min(plan.columns, width);
    plan.workBytes = WorkBytes(resampling, plan.columns);
    if (plan.workBytes <= kWorkBytes || plan.columns <= kFewestColumns) break;
    pieces += threads;
  }
  plan.threads = std::min(threads, (width + plan.columns - 1) / plan.columns);
  return plan;
}

struct AlignedDelete {
  void operator()(std::uint8_t* memory) const {
    ::operator delete (memory, std::align_val_t{kWorkAlignment});
  }
};

using Memory = std::unique_ptr<std::uint8_t, AlignedDelete>;

Memory AlignedMemory(std::size_t bytes) {
  return Memory(
      static_cast<std::uint8_t*>(::operator new (bytes, std::align_val_t{kWorkAlignment})));
}

void Run(const Resampling& resampling, const Plan& plan) {
  const std::size_t stride =
      (plan.workBytes + kWorkAlignment - 1) / kWorkAlignment * kWorkAlignment;
  const Memory memory = AlignedMemory(stride * static_cast<std::size_t>(plan.threads));
  const int width = resampling.result->Width();
  std::atomic<int> next{0};
  const std::function<void(int)> work = [&](int thread) {
    std::uint8_t* own = memory.get() + stride * static_cast<std::size_t>(thread);
    for (;;) {
      const int begin = next.fetch_add(1) * plan.columns;
      if (begin >= width) return;
      ResampleColumns(resampling, {begin, std::min(begin + plan.columns, width)}, own);
    }
  };
  SharedWorkers().Run(plan.threads - 1, work);
}

}  // namespace

Ref<Picture> ResampleWithThreads(const Ref<Picture>& source, std::int64_t width,
                                 std::int64_t height, int threads) {
  if (source == nullptr) return nullptr;
  width = std::max<std::int64_t>(width, 1);
  height = std::max<std::int64_t>(height, 1);
  if (width == source->Width() && height == source->Height()) return Copy(*source);

  Ref<Picture> result = Picture::Create(width, height, source->HasAlpha());
  if (result == nullptr) return nullptr;
  try {
    const Resampling resampling{source.get(), result.get(),
                                LanczosFilter(source->Width(), result->Width()),
                                LanczosFilter(source->Height(), result->Height())};
    Run(resampling, PlanFor(resampling, threads));
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
  return result;
}

Ref<Picture> Resample(const Ref<Picture>& source, std::int64_t width, std::int64_t height) {
  return ResampleWithThreads(source, width, height, Threads());
}

}  // namespace morvantile
