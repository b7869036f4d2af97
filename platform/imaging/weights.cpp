#include "platform/imaging/weights.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace morvantile {
namespace {

constexpr double kLobes = 3;

double Sinc(double x) {
  if (x == 0) return 1;
  const double angle = std::numbers::pi * x;
  return std::sin(angle) / angle;
}

double Lanczos(double x) { return std::abs(x) < kLobes ? Sinc(x) * Sinc(x / kLobes) : 0; }

Window WindowAround(double centre, double reduction, int sourceSize) {
  const double support = kLobes * reduction;
  Window window;
  window.first = std::max(0, static_cast<int>(std::floor(centre - support)));
  const int last = std::min(sourceSize - 1, static_cast<int>(std::ceil(centre + support)));
  double sum = 0;
  for (int i = window.first; i <= last; ++i) {
    window.weights.push_back(Lanczos((i - centre) / reduction));
    sum += window.weights.back();
  }
  for (double& weight : window.weights) weight /= sum;
  return window;
}

}  // namespace

std::vector<Window> LanczosWindows(int sourceSize, int resultSize) {
  const double scale = static_cast<double>(sourceSize) / resultSize;
  std::vector<Window> windows;
  windows.reserve(static_cast<std::size_t>(resultSize));
  for (int i = 0; i < resultSize; ++i) {
    windows.push_back(WindowAround((i + 0.5) * scale - 0.5, std::max(scale, 1.0), sourceSize));
  }
  return windows;
}

}  // namespace morvantile
