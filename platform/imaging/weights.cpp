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
};

// How the two axes lie to each other.
struct Geometry {
  int sourceSize;
  double scale;      // source samples per result sample
  double reduction;  // the same, but at least 1

  double Centre(int i) const { return (i + 0.5) * scale - 0.5; }
  Range Window(int i) const {
    const double support = kLobes * reduction;
    const double centre = Centre(i);
    // The filter is 0 at the ends of its support. A tiny bit inside, rounding can't let them in.
    const double inside = 1e-9 * support;
    return {std::max(0, static_cast<int>(std::ceil(centre - support + inside))),
            std::min(sourceSize - 1, static_cast<int>(std::floor(centre + support - inside))) + 1};
  }
};

double Sinc(double x) {
  if (x == 0) return 1;
  const double angle = std::numbers::pi * x;
  return std::sin(angle) / angle;
}

// One side of the filter, worked out once at so many points that the straight line between two of
// them is off by less than 1e-6.
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
    return std::lerp(points_[step], points_[step + 1], position - static_cast<double>(step));
  }

 private:
  static constexpr int kSteps = 2048;
  std::array<double, kLobes * kSteps + 2> points_{};
};

int PairsIn(Range window, int offset) {
  return ((window.end - 1 + offset) >> 1) - ((window.begin + offset) >> 1) + 1;
}

// Sets `offset`, `pairs` and `sourcePairs`.
void ChoosePairing(const Geometry& geometry, int resultSize, Filter& filter) {
  std::array<int, 2> longest{};
  for (int i = 0; i < resultSize; ++i) {
    const Range window = geometry.Window(i);
    longest[0] = std::max(longest[0], PairsIn(window, 0));
    longest[1] = std::max(longest[1], PairsIn(window, 1));
  }
  filter.offset = longest[1] < longest[0] ? 1 : 0;
  filter.pairs = std::min(longest[0], longest[1]);
  filter.sourcePairs = (geometry.sourceSize + filter.offset + 1) / 2;
}

// Weights are at most about 1.3 / reduction: near an end of the source those that are missing may
// be negative ones.
void ChooseBits(const Geometry& geometry, Filter& filter) {
  filter.bits = 14 + std::ilogb(geometry.reduction);
  if (geometry.reduction < kLongWindow) filter.bits = std::min(filter.bits, kSumBits);
  filter.excess = std::max(0, filter.bits - kSumBits);
}

// Rounds the running sum of the weights, rather than the weights, so that they sum up exactly.
void StoreRounded(const std::vector<double>& weights, int bits, int lead, std::int32_t* pairs) {
  double sum = 0;
  for (const double weight : weights) sum += weight;
  const double factor = std::ldexp(1.0, bits) / sum;
  double running = 0;
  std::int64_t stored = 0;
  for (std::size_t i = 0; i < weights.size(); ++i) {
    running += weights[i] * factor;
    const auto upToHere = static_cast<std::int64_t>(std::floor(running + 0.5));
    const auto weight = static_cast<std::uint16_t>(upToHere - stored);
    stored = upToHere;
    const std::size_t position = i + static_cast<std::size_t>(lead);
    pairs[position / 2] |= static_cast<std::int32_t>(std::uint32_t{weight} << (position % 2 * 16));
  }
}

}  // namespace

Filter LanczosFilter(int sourceSize, int resultSize) {
  static const Lanczos lanczos;
  const double scale = static_cast<double>(sourceSize) / resultSize;
  const Geometry geometry{sourceSize, scale, std::max(scale, 1.0)};
  Filter filter;
  ChoosePairing(geometry, resultSize, filter);
  ChooseBits(geometry, filter);
  filter.first.reserve(static_cast<std::size_t>(resultSize));
  filter.weights.resize(static_cast<std::size_t>(resultSize) *
                        static_cast<std::size_t>(filter.pairs));
  std::int32_t* pairs = filter.weights.data();
  std::vector<double> weights;
  for (int i = 0; i < resultSize; ++i, pairs += filter.pairs) {
    const Range window = geometry.Window(i);
    weights.clear();
    for (int j = window.begin; j < window.end; ++j) {
      weights.push_back(lanczos((j - geometry.Centre(i)) / geometry.reduction));
    }
    const int first =
        std::min((window.begin + filter.offset) / 2, filter.sourcePairs - filter.pairs);
    filter.first.push_back(first);
    StoreRounded(weights, filter.bits, window.begin + filter.offset - 2 * first, pairs);
  }
  return filter;
}

}  // namespace morvantile
