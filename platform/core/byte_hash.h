// Hashes of bytes.

#ifndef MORVANTILE_PLATFORM_CORE_BYTE_HASH_H
#define MORVANTILE_PLATFORM_CORE_BYTE_HASH_H

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <random>
#include <string_view>

namespace morvantile {

// A random number, the same for the whole run of the program. Hashes start from it, so that nobody
// can prepare a file whose keys all get the same.
inline std::uint64_t HashSeed() {
  static const std::uint64_t seed = [] {
    std::random_device random;
    return (std::uint64_t{random()} << 32) | random();
  }();
  return seed;
}

// Both halves of the product, folded.
inline std::uint64_t MixedProduct(std::uint64_t a, std::uint64_t b) {
  __extension__ using Product = unsigned __int128;
  const Product product = static_cast<Product>(a) * b;
  return static_cast<std::uint64_t>(product) ^ static_cast<std::uint64_t>(product >> 64);
}

// A hash of `bytes` after the manner of wyhash (https://github.com/wangyi-fudan/wyhash): sixteen at
// a time, the last of them once more where the length is no multiple. `fold` is applied to each
// eight of them.
template <typename Fold = std::identity>
std::uint32_t HashOfBytes(std::string_view bytes, const Fold& fold = {}) {
  constexpr std::uint64_t kFactor = 0x9E3779B97F4A7C15;
  const char* at = bytes.data();
  std::size_t left = bytes.size();
  std::uint64_t state = HashSeed() ^ left;
  const auto load = [&]<typename Word>(Word word, std::size_t offset) -> std::uint64_t {
    std::memcpy(&word, at + offset, sizeof word);
    return word;
  };
  const auto add = [&](std::uint64_t first, std::uint64_t second) {
    state = MixedProduct(state ^ fold(first), kFactor ^ fold(second));
  };
  for (; left > 16; left -= 16, at += 16) {
    add(load(std::uint64_t{}, 0), load(std::uint64_t{}, 8));
  }
  if (left >= 8) {
    add(load(std::uint64_t{}, 0), load(std::uint64_t{}, left - 8));
  } else if (left >= 4) {
    add(load(std::uint32_t{}, 0), load(std::uint32_t{}, left - 4));
  } else if (left > 0) {
    add(load(std::uint8_t{}, 0) | load(std::uint8_t{}, left / 2) << 8,
        load(std::uint8_t{}, left - 1));
  }
  state = MixedProduct(state, kFactor);
  return static_cast<std::uint32_t>(state ^ (state >> 32));
}

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_CORE_BYTE_HASH_H
