// Colours.

#ifndef MORVANTILE_PLATFORM_CORE_COLOR_H
#define MORVANTILE_PLATFORM_CORE_COLOR_H

#include <algorithm>
#include <cstdint>

namespace morvantile {

// A colour in 32 bits: red in bits 16 to 23, green in 8 to 15, blue in 0 to 7, and a fourth channel
// in the top byte, 0 for an opaque colour.
struct Color {
  std::uint32_t bits = 0;

  // The channels.
  [[nodiscard]] std::int64_t Red() const { return bits >> 16 & 0xFF; }
  [[nodiscard]] std::int64_t Green() const { return bits >> 8 & 0xFF; }
  [[nodiscard]] std::int64_t Blue() const { return bits & 0xFF; }
  [[nodiscard]] std::int64_t Alpha() const { return bits >> 24; }

  // Whether all four channels are the same.
  friend bool operator==(const Color&, const Color&) = default;
};

// The colour of these channels; one outside 0 to 255 is taken as the nearer end.
inline Color RGB(std::int64_t red, std::int64_t green, std::int64_t blue, std::int64_t alpha) {
  const auto channel = [](std::int64_t value) {
    return static_cast<std::uint32_t>(std::clamp<std::int64_t>(value, 0, 0xFF));
  };
  return {channel(alpha) << 24 | channel(red) << 16 | channel(green) << 8 | channel(blue)};
}

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_CORE_COLOR_H
