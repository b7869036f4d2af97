#include "platform/plutil/equal_scalars.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <random>
#include <string_view>

#include "platform/core/hash_index.h"

namespace morvantile::plutil {
namespace {

std::uint32_t HashOf(const Object& scalar, std::uint64_t seed);
bool AreEqual(const Object& a, const Object& b);

}  // namespace

// In large documents the table is larger than the caches, so its cells are prefetched a few objects
// ahead.
std::vector<ObjectIndex> FirstEquals(const Document& document) {
  constexpr std::size_t kAhead = 16;
  const std::size_t count = document.objects.size();
  // The hash starts from a random number, so that nobody can prepare a document whose scalars all
  // get the same.
  std::random_device random;
  const std::uint64_t seed = (std::uint64_t{random()} << 32U) | random();
  HashIndex table;
  table.Reset(count / 4);
  std::array<std::uint32_t, kAhead> hashes{};
  const auto announce = [&](std::size_t i) {
    if (i >= count || IsContainer(document.objects[i].Is())) return;
    hashes[i % kAhead] = HashOf(document.objects[i], seed);
    table.Expect(hashes[i % kAhead]);
  };
  for (std::size_t i = 0; i < kAhead; ++i) announce(i);

  std::vector<ObjectIndex> equals(count);
  for (std::size_t i = 0; i < count; ++i) {
    equals[i] = static_cast<ObjectIndex>(i);
    const Object& object = document.objects[i];
    if (!IsContainer(object.Is())) {
      const std::uint32_t hash = hashes[i % kAhead];
      const auto first = table.Find(
          hash, [&](ObjectIndex other) { return AreEqual(document.objects[other], object); });
      if (first == HashIndex::kNone) {
        table.Add(hash, equals[i]);
      } else {
        equals[i] = first;
      }
    }
    announce(i + kAhead);
  }
  return equals;
}

namespace {

bool HoldsBytes(Kind kind) { return kind == Kind::kData || kind == Kind::kText; }

bool AreEqual(const Object& a, const Object& b) {
  if (a.Is() != b.Is()) return false;
  return HoldsBytes(a.Is()) ? a.AsBytes() == b.AsBytes() : a.Bits() == b.Bits();
}

constexpr std::uint64_t kOdd = 0x9E3779B97F4A7C15U;

// Both halves of the product, folded, as in the hash functions of the family "wyhash".
std::uint64_t Mix(std::uint64_t a, std::uint64_t b) {
  __extension__ using Wide = unsigned __int128;
  const Wide product = static_cast<Wide>(a) * b;
  return static_cast<std::uint64_t>(product) ^ static_cast<std::uint64_t>(product >> 64U);
}

std::uint64_t HashOfBytes(std::string_view bytes, std::uint64_t hash) {
  std::uint64_t word = bytes.size();
  hash = Mix(hash ^ word, kOdd);
  for (; bytes.size() >= sizeof word; bytes.remove_prefix(sizeof word)) {
    std::memcpy(&word, bytes.data(), sizeof word);
    hash = Mix(hash ^ word, kOdd);
  }
  word = 0;
  if (!bytes.empty()) std::memcpy(&word, bytes.data(), bytes.size());
  return Mix(hash ^ word, kOdd);
}

std::uint32_t HashOf(const Object& scalar, std::uint64_t seed) {
  const std::uint64_t start = seed + static_cast<std::uint64_t>(scalar.Is());
  const std::uint64_t hash = HoldsBytes(scalar.Is()) ? HashOfBytes(scalar.AsBytes(), start)
                                                     : Mix(start ^ scalar.Bits(), kOdd);
  return static_cast<std::uint32_t>(hash >> 32U);
}

}  // namespace

}  // namespace morvantile::plutil
