#include "platform/plutil/equal_scalars.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "platform/core/byte_hash.h"
#include "platform/core/hash_index.h"

namespace morvantile::plutil {
namespace {

bool HoldsBytes(Kind kind) { return kind == Kind::kData || kind == Kind::kText; }

bool AreEqual(const Object& a, const Object& b) {
  if (a.Is() != b.Is()) return false;
  return HoldsBytes(a.Is()) ? a.AsBytes() == b.AsBytes() : a.Bits() == b.Bits();
}

std::uint32_t HashOf(const Object& scalar) {
  if (HoldsBytes(scalar.Is())) return HashOfBytes(scalar.AsBytes());
  const std::uint64_t bits = scalar.Bits();
  return HashOfBytes({reinterpret_cast<const char*>(&bits), sizeof bits});
}

}  // namespace

// In large documents the table is larger than the caches, so its cells are prefetched a few objects
// ahead.
std::vector<ObjectIndex> FirstEquals(const Document& document) {
  constexpr std::size_t kAhead = 16;
  const std::size_t count = document.objects.size();
  HashIndex table;
  table.Reset(count / 4);
  std::array<std::uint32_t, kAhead> hashes{};
  const auto announce = [&](std::size_t i) {
    if (i >= count || IsContainer(document.objects[i].Is())) return;
    hashes[i % kAhead] = HashOf(document.objects[i]);
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

}  // namespace morvantile::plutil
