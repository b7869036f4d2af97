#include "tests/platform/imaging/reference.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <numbers>
#include <random>

namespace morvantile {
namespace {

double Sinc(double x) {
  return x == 0 ? 1 : std::sin(std::numbers::pi * x) / (std::numbers::pi * x);
}

double Lanczos3(double x) { return std::abs(x) < 3 ? Sinc(x) * Sinc(x / 3) : 0; }

// Every sample along the axis for every result sample: plain rather than fast.
std::vector<std::vector<double>> Weights(int from, int to) {
  const double scale = static_cast<double>(from) / to;
  const double widening = std::max(1.0, scale);
  std::vector<std::vector<double>> all;
  for (int i = 0; i < to; ++i) {
    std::vector<double> weights;
    double sum = 0;
    for (int j = 0; j < from; ++j) {
      weights.push_back(Lanczos3(((j + 0.5) - (i + 0.5) * scale) / widening));
      sum += weights.back();
    }
    for (double& weight : weights) weight /= sum;
    all.push_back(weights);
  }
  return all;
}

ExactPixel PremultipliedPixel(const Picture& picture, int x, int y) {
  const std::uint8_t* bytes = picture.Row(y) + std::ptrdiff_t{4} * x;
  const double alpha = picture.HasAlpha() ? bytes[3] : 255;
  return {bytes[0] * alpha / 255, bytes[1] * alpha / 255, bytes[2] * alpha / 255, alpha};
}

ExactPixel Straight(ExactPixel pixel) {
  if (pixel[3] <= 0) return {};
  for (const auto c : {0U, 1U, 2U}) pixel[c] = std::clamp(pixel[c] * 255 / pixel[3], 0., 255.);
  pixel[3] = std::min(pixel[3], 255.);
  return pixel;
}

void Add(const ExactPixel& pixel, double weight, ExactPixel& sum) {
  for (std::size_t c = 0; c < 4; ++c) sum[c] += weight * pixel[c];
}

std::vector<ExactPixel> WeightedRows(const Picture& picture, const std::vector<double>& weights) {
  std::vector<ExactPixel> row(static_cast<std::size_t>(picture.Width()));
  for (int y = 0; y < picture.Height(); ++y) {
    const double weight = weights[static_cast<std::size_t>(y)];
    if (weight == 0) continue;
    for (int x = 0; x < picture.Width(); ++x) {
      Add(PremultipliedPixel(picture, x, y), weight, row[static_cast<std::size_t>(x)]);
    }
  }
  return row;
}

bool IsClose(const std::uint8_t* got, const ExactPixel& want) {
  const bool hides_colour = got[3] == 0 && (got[0] != 0 || got[1] != 0 || got[2] != 0);
  if (hides_colour || std::abs(got[3] - want[3]) > 1) return false;
  const bool is_opaque = got[3] == 255;
  for (std::size_t c = 0; c < 3; ++c) {
    const double difference =
        is_opaque ? got[c] - want[c] : (got[c] * got[3] - want[c] * want[3]) / 255;
    if (std::abs(difference) > (is_opaque ? 1 : 1.5)) return false;
  }
  return true;
}

std::uint8_t Byte(Content content, int x, int y, int channel, std::minstd_rand& random) {
  if (content == Content::kNoise) return static_cast<std::uint8_t>(random() >> 16);
  const bool in_stripe = channel == 3 ? x % 8 < 6 : (x + y * channel) % 2 == 1;
  const bool in_block = (x / (7 + channel) + y / 5) % 2 == 0;
  return (content == Content::kStripes ? in_stripe : in_block) ? 255 : 0;
}

}  // namespace

std::vector<ExactPixel> ExactlyResampled(const Picture& source, int width, int height) {
  const auto across = Weights(source.Width(), width);
  std::vector<ExactPixel> exact;
  for (const std::vector<double>& down : Weights(source.Height(), height)) {
    const std::vector<ExactPixel> row = WeightedRows(source, down);
    for (const std::vector<double>& weights : across) {
      ExactPixel sum{};
      for (std::size_t i = 0; i < row.size(); ++i) Add(row[i], weights[i], sum);
      exact.push_back(Straight(sum));
    }
  }
  return exact;
}

std::string FirstDifference(const Picture& result, const std::vector<ExactPixel>& exact) {
  auto want = exact.begin();
  for (int y = 0; y < result.Height(); ++y) {
    for (int x = 0; x < result.Width(); ++x, ++want) {
      const std::uint8_t* got = result.Row(y) + std::ptrdiff_t{4} * x;
      if (IsClose(got, *want)) continue;
      std::string text = "at " + std::to_string(x) + ", " + std::to_string(y);
      for (std::size_t c = 0; c < 4; ++c) {
        text += "; " + std::to_string(got[c]) + " for " + std::to_string((*want)[c]);
      }
      return text;
    }
  }
  return "";
}

Ref<Picture> Sample(Content content, int width, int height, bool has_alpha, int padding) {
  const int stride = 4 * width + padding;
  const int size = stride * height - padding;
  const auto bytes = std::make_shared<std::vector<std::uint8_t>>();
  std::minstd_rand random(42);
  for (int i = 0; i < size; ++i) {
    const int at = i % stride;
    bytes->push_back(at < 4 * width ? Byte(content, at / 4, i / stride, at % 4, random) : 0xA5);
  }
  return Picture::Wrap(width, height, stride, bytes->data(), has_alpha, bytes);
}

}  // namespace morvantile
