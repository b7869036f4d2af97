#include "platform/plutil/equal_scalars.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <random>
#include <string_view>

namespace morvantile::plutil {
namespace {

constexpr ObjectIndex kFree = std::numeric_limits<ObjectIndex>::max();

// A hash table with open addressing. The hash starts from a random number, so that nobody can
// prepare a document whose scalars all fall on one place.
class ScalarTable {
 public:
  explicit ScalarTable(const Document& document);

  std::uint32_t HashOf(const Object& scalar) const;

  // Says that `hash` will be looked for soon.
  void Announce(std::uint32_t hash) const { __builtin_prefetch(&slots_[hash & mask_]); }

  // The index of the first scalar asked for that equals the one at `index`, whose hash is `hash`.
  ObjectIndex FirstEqual(ObjectIndex index, std::uint32_t hash);

 private:
  struct Slot {
    std::uint32_t hash;
    ObjectIndex index;
  };

  void Grow();

  const Document& document_;
  std::uint64_t seed_;
  std::vector<Slot> slots_;
  std::size_t mask_;
  std::size_t used_ = 0;
};

}  // namespace

// The table is larger than the processor's cache where it matters, so places are announced a few
// objects ahead.
std::vector<ObjectIndex> FirstEquals(const Document& document) {
  constexpr std::size_t kAhead = 16;
  const std::size_t count = document.objects.size();
  ScalarTable table(document);
  std::array<std::uint32_t, kAhead> hashes{};
  const auto announce = [&](std::size_t i) {
    if (i >= count || IsContainer(document.objects[i].Is())) return;
    hashes[i % kAhead] = table.HashOf(document.objects[i]);
    table.Announce(hashes[i % kAhead]);
  };
  for (std::size_t i = 0; i < kAhead; ++i) announce(i);

  std::vector<ObjectIndex> equals(count);
  for (std::size_t i = 0; i < count; ++i) {
    const auto index = static_cast<ObjectIndex>(i);
    const bool is_container = IsContainer(document.objects[i].Is());
    equals[i] = is_container ? index : table.FirstEqual(index, hashes[i % kAhead]);
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

ScalarTable::ScalarTable(const Document& document)
    : document_(document),
      slots_(std::bit_ceil(std::max<std::size_t>(document.objects.size() / 2, 16)), Slot{0, kFree}),
      mask_(slots_.size() - 1) {
  std::random_device random;
  seed_ = (std::uint64_t{random()} << 32U) | random();
}

std::uint32_t ScalarTable::HashOf(const Object& scalar) const {
  const std::uint64_t start = seed_ + static_cast<std::uint64_t>(scalar.Is());
  const std::uint64_t hash = HoldsBytes(scalar.Is()) ? HashOfBytes(scalar.AsBytes(), start)
                                                     : Mix(start ^ scalar.Bits(), kOdd);
  return static_cast<std::uint32_t>(hash >> 32U);
}

ObjectIndex ScalarTable::FirstEqual(ObjectIndex index, std::uint32_t hash) {
  if (used_ > slots_.size() / 4 * 3) Grow();
  const Object& scalar = document_.objects[index];
  std::size_t at = hash & mask_;
  for (; slots_[at].index != kFree; at = (at + 1) & mask_) {
    const Slot& slot = slots_[at];
    if (slot.hash == hash && AreEqual(document_.objects[slot.index], scalar)) return slot.index;
  }
  slots_[at] = {hash, index};
  ++used_;
  return index;
}

void ScalarTable::Grow() {
  std::vector<Slot> larger(2 * slots_.size(), Slot{0, kFree});
  mask_ = larger.size() - 1;
  for (const Slot& slot : slots_) {
    if (slot.index == kFree) continue;
    std::size_t at = slot.hash & mask_;
    while (larger[at].index != kFree) at = (at + 1) & mask_;
    larger[at] = slot;
  }
  slots_.swap(larger);
}

}  // namespace

}  // namespace morvantile::plutil
