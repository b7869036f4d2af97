#include "platform/imaging/weights.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace morvantile {
namespace {

constexpr int kLobes = 3;

// Reductions from here on have windows so long that rounding each of their weights to kSumBits
// might show.
constexpr double kLongWindow = 16;
// The largest `bits` with which a sum of weighted samples fits 32 bits.
constexpr int kSumBits = 16;

// The samples from `begin` up to `end` without it.
struct Range {
  int begin, end;

  [[nodiscard]] int Size() const { return end - begin; }
};

// How the samples of the result map to those of the source.
class Geometry {
 public:
  Geometry(int source_size, int result_size)
      : source_size_(source_size),
        scale_(static_cast<double>(source_size) / result_size),
        reduction_(std::max(scale_, 1.0)),
        support_(kLobes * reduction_ * (1 - 1e-9)) {}

  // Source samples per result sample, but at least 1.
  [[nodiscard]] double Reduction() const { return reduction_; }
  // Where a result sample lies among those of the source.
  [[nodiscard]] double Centre(int i) const { return (i + 0.5) * scale_ - 0.5; }
  // The source samples less than the support of the filter away from there.
  [[nodiscard]] Range Window(int i) const {
    const double centre = Centre(i);
    const int begin = centre < support_ ? 0 : static_cast<int>(centre - support_) + 1;
    const int end = std::min(source_size_, static_cast<int>(centre + support_) + 1);
    return {begin, end};
  }

 private:
  int source_size_;
  double scale_;
  double reduction_;
  double support_;  // a tiny bit short, so that rounding lets no sample in where the filter is 0
};

double Sinc(double x) {
  if (x == 0) return 1;
  const double angle = std::numbers::pi * x;
  return std::sin(angle) / angle;
}

// One side of the filter, tabulated so finely that linear interpolation is off by less than 1e-6.
class Lanczos {
 public:
  Lanczos() {
    for (int i = 0; i <= kLobes * kSteps; ++i) {
      const double x = static_cast<double>(i) / kSteps;
      points_[static_cast<std::size_t>(i)] = Sinc(x) * Sinc(x / kLobes);
    }
  }

  // `x` is less than kLobes on either side of 0.
  double operator()(double x) const {
    const double position = std::abs(x) * kSteps;
    const auto step = static_cast<std::size_t>(position);
    const double fraction = position - static_cast<double>(step);
    return points_[step] + (points_[step + 1] - points_[step]) * fraction;
  }

 private:
  static constexpr int kSteps = 2048;
  std::array<double, kLobes * kSteps + 2> points_{};
};

int PairsIn(Range window, int offset) {
  return ((window.end - 1 + offset) >> 1) - ((window.begin + offset) >> 1) + 1;
}

// Sets `offset`, `pairs` and `source_pairs`.
void ChoosePairing(const std::vector<Range>& windows, int source_size, Filter& filter) {
  std::array<int, 2> longest{};
  for (const Range window : windows) {
    longest[0] = std::max(longest[0], PairsIn(window, 0));
    longest[1] = std::max(longest[1], PairsIn(window, 1));
  }
  filter.offset = longest[1] < longest[0] ? 1 : 0;
  filter.pairs = std::min(longest[0], longest[1]);
  filter.source_pairs = (source_size + filter.offset + 1) / 2;
}

// Weights are at most about 1.3 / reduction: near an end of the source those that are missing may
// be negative ones.
void ChooseBits(double reduction, Filter& filter) {
  filter.bits = 14 + std::ilogb(reduction);
  if (reduction < kLongWindow) filter.bits = std::min(filter.bits, kSumBits);
  filter.excess = std::max(0, filter.bits - kSumBits);
}

// Sets the weights of the samples from `distance` on, in units of the result's; returns their sum.
double SetWeights(const Lanczos& lanczos, double distance, double per_sample, int count,
                  double* weights) {
  double sum = 0;
  for (int i = 0; i < count; ++i) {
    weights[i] = lanczos((distance + i) * per_sample);
    sum += weights[i];
  }
  return sum;
}

// Stores weights that sum up to `sum` as fixed-point numbers that sum up to exactly 1 << bits: the
// running sum is rounded, not each weight.
void StoreWeights(const double* weights, int count, double sum, int bits, std::int16_t* to) {
  const double one = std::ldexp(1.0, bits);
  const double factor = one / sum;
  // From 1 on, the running sum stays positive, where conversion to an integer rounds down.
  double running = one + 0.5;
  auto stored = static_cast<std::int64_t>(one);
  for (int i = 0; i < count; ++i) {
    running += weights[i] * factor;
    const auto rounded = static_cast<std::int64_t>(running);
    to[i] = static_cast<std::int16_t>(rounded - stored);
    stored = rounded;
  }
}

}  // namespace

Filter LanczosFilter(int source_size, int result_size) {
  static const Lanczos lanczos;
  const Geometry geometry(source_size, result_size);
  std::vector<Range> windows;
  windows.reserve(static_cast<std::size_t>(result_size));
  for (int i = 0; i < result_size; ++i) windows.push_back(geometry.Window(i));

  Filter filter;
  ChoosePairing(windows, source_size, filter);
  ChooseBits(geometry.Reduction(), filter);
  const std::size_t samples = 2 * static_cast<std::size_t>(filter.pairs);
  filter.first.reserve(windows.size());
  filter.weights.resize(windows.size() * samples);
  std::vector<double> weights(samples);
  const double per_sample = 1 / geometry.Reduction();
  std::int16_t* to = filter.weights.data();
  for (int i = 0; i < result_size; ++i, to += samples) {
    const Range window = windows[static_cast<std::size_t>(i)];
    const double sum = SetWeights(lanczos, window.begin - geometry.Centre(i), per_sample,
                                  window.Size(), weights.data());
    const int begin = window.begin + filter.offset;
    const int first = std::min(begin / 2, filter.source_pairs - filter.pairs);
    filter.first.push_back(first);
    StoreWeights(weights.data(), window.Size(), sum, filter.bits, to + (begin - 2 * first));
  }
  return filter;
}

}  // namespace morvantile
