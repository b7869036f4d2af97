#include "platform/core/byte_hash.h"

#include <random>

namespace morvantile {

std::uint64_t HashSeed() {
  static const std::uint64_t seed = [] {
    std::random_device random;
    return (std::uint64_t{random()} << 32) | random();
  }();
  return seed;
}

}  // namespace morvantile
