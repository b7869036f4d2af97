// Pictures of any size, stride and pixels, to any size, against the definition of the scaler.

#include "platform/imaging/scaler.h"

#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <vector>

#include "fuzz/require.h"
#include "tests/platform/imaging/reference.h"

namespace morvantile {
namespace {

using Bytes = std::vector<std::uint8_t>;

// A picture whose storage ends with its last pixel, filled with the bytes over and over.
Ref<Picture> PictureOf(int width, int height, int padding, bool has_alpha, const Bytes& bytes) {
  const std::ptrdiff_t stride = std::ptrdiff_t{4} * width + padding;
  const auto pixels =
      std::make_shared<Bytes>(static_cast<std::size_t>(stride * (height - 1) + 4 * width));
  for (std::size_t i = 0; i < pixels->size(); ++i) (*pixels)[i] = bytes[i % bytes.size()];
  return Picture::Wrap(width, height, stride, pixels->data(), has_alpha, pixels);
}

// Sizes that no picture can have, or that take too long, are only tried where nil must come.
void ResampleToWhatIsTooLarge(const Ref<Picture>& source, FuzzedDataProvider& input) {
  const auto width = input.ConsumeIntegral<std::int64_t>();
  const auto height = input.ConsumeIntegral<std::int64_t>();
  const double pixels = static_cast<double>(std::max<std::int64_t>(width, 1)) *
                        static_cast<double>(std::max<std::int64_t>(height, 1));
  if (4 * pixels <= 2.0 * Picture::kMaxBytes) return;
  Require(!Resample(source, width, height), "a picture beyond the limit is nil");
}

void RequireSameBytes(const Picture& one, const Picture& other) {
  const auto length = static_cast<std::size_t>(one.Width()) * 4;
  for (int y = 0; y < one.Height(); ++y) {
    Require(std::memcmp(one.Row(y), other.Row(y), length) == 0, "the original size is a copy");
  }
}

void ResampleAny(FuzzedDataProvider& input) {
  const int longest = input.ConsumeBool() ? 30 : 200;
  const int width = input.ConsumeIntegralInRange(1, longest);
  const int height = input.ConsumeIntegralInRange(1, 1000 / longest);
  const int padding = input.ConsumeIntegralInRange(0, 40);
  const bool has_alpha = input.ConsumeBool();
  const int to_width = input.ConsumeIntegralInRange(-1, 70);
  const int to_height = input.ConsumeIntegralInRange(-1, 25);
  const bool tries_limit = input.ConsumeBool();
  Bytes bytes = input.ConsumeBytes<std::uint8_t>(4096);
  if (bytes.empty()) bytes = {0xFF};
  const Ref<Picture> source = PictureOf(width, height, padding, has_alpha, bytes);
  if (tries_limit) ResampleToWhatIsTooLarge(source, input);

  const Ref<Picture> result = Resample(source, to_width, to_height);
  Require(result && result->Width() == std::max(to_width, 1) &&
              result->Height() == std::max(to_height, 1) && result->HasAlpha() == has_alpha,
          "the result has the size that was asked for");
  if (result->Width() == width && result->Height() == height)
    return RequireSameBytes(*result, *source);
  const auto exact = ExactlyResampled(*source, result->Width(), result->Height());
  RequireEqual(FirstDifference(*result, exact), "", "the result is the definition's");
}

}  // namespace
}  // namespace morvantile

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider input(data, size);
  morvantile::ResampleAny(input);
  return 0;
}
