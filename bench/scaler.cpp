// The scaler, used as the slider does, and beside it a plain copy of the source and Qt's smooth
// scaling, which is of lower quality. scaler_ratios.py runs this and Pillow in turn and makes a
// table of both.

#include <benchmark/benchmark.h>

#include <QImage>
#include <cstdint>
#include <cstring>
#include <memory>
#include <random>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "platform/imaging/resample_internal.h"

namespace morvantile {
namespace {

struct Row {
  int source_width, source_height, width, height;
};

// A picture in memory of somebody else's, as one from the clipboard is.
Ref<Picture> Noise(int width, int height, bool has_alpha) {
  const std::ptrdiff_t stride = std::ptrdiff_t{4} * width;
  const auto bytes =
      std::make_shared<std::vector<std::uint8_t>>(static_cast<std::size_t>(stride * height));
  std::minstd_rand random(1);
  for (std::uint8_t& byte : *bytes) byte = static_cast<std::uint8_t>(random() >> 16);
  return Picture::Wrap(width, height, stride, bytes->data(), has_alpha, bytes);
}

void Copy(benchmark::State& state, Row row) {
  const Ref<Picture> source = Noise(row.source_width, row.source_height, true);
  std::vector<std::uint8_t> copy(static_cast<std::size_t>(source->Stride() * source->Height()));
  for (auto _ : state) {
    std::memcpy(copy.data(), source->Row(0), copy.size());
    benchmark::DoNotOptimize(copy.data());
    benchmark::ClobberMemory();
  }
}

void Scale(benchmark::State& state, Row row, bool has_alpha, int threads) {
  const Ref<Picture> source = Noise(row.source_width, row.source_height, has_alpha);
  Ref<Picture> result;
  for (auto _ : state) {
    result = ResampleWithThreads(source, row.width, row.height, threads, std::move(result));
    benchmark::DoNotOptimize(result);
  }
}

void ScaleWithQt(benchmark::State& state, Row row, QImage::Format format) {
  const Ref<Picture> source = Noise(row.source_width, row.source_height, true);
  const QImage image(source->Row(0), row.source_width, row.source_height,
                     static_cast<qsizetype>(source->Stride()), format);
  for (auto _ : state) {
    benchmark::DoNotOptimize(
        image.scaled(row.width, row.height, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
  }
}

template <typename Function, typename... Args>
void Register(const std::string& name, Function function, Args... args) {
  benchmark::RegisterBenchmark(name.c_str(), function, args...)
      ->UseRealTime()
      ->Unit(benchmark::kMillisecond);
}

bool RegisterRows() {
  const int cores = static_cast<int>(std::thread::hardware_concurrency());
  for (const Row row :
       {Row{3840, 2160, 1920, 1080}, Row{3840, 2160, 300, 168}, Row{3840, 2160, 3456, 1944},
        Row{100, 100, 600, 600}, Row{7680, 4320, 3840, 2160}, Row{15360, 8640, 7680, 4320}}) {
    const auto size = [](int width, int height) {
      return std::to_string(width) + "x" + std::to_string(height);
    };
    const std::string name =
        size(row.source_width, row.source_height) + "_to_" + size(row.width, row.height);
    Register(name + "/copy", Copy, row);
    Register(name + "/alpha", Scale, row, true, cores);
    Register(name + "/alpha_one_core", Scale, row, true, 1);
    Register(name + "/opaque", Scale, row, false, cores);
    Register(name + "/opaque_one_core", Scale, row, false, 1);
    Register(name + "/qt_alpha", ScaleWithQt, row, QImage::Format_ARGB32);
    Register(name + "/qt_opaque", ScaleWithQt, row, QImage::Format_RGB32);
  }
  return true;
}

const bool registered = RegisterRows();

}  // namespace
}  // namespace morvantile
