#include "platform/imaging/aligned.h"

#include <sys/mman.h>

namespace morvantile {
namespace {

constexpr std::size_t kLargePage = std::size_t{2} << 20;

}  // namespace

AlignedBytes MakeAlignedBytes(std::size_t size) {
  const bool large = size >= kLargePage / 2;
  const std::size_t alignment = large ? kLargePage : kAlignment;
  const std::size_t whole = (size + alignment - 1) / alignment * alignment;
  AlignedBytes bytes(static_cast<std::uint8_t*>(std::aligned_alloc(alignment, whole)));
  // A hint: if it is refused, the pages are small ones.
  if (large && bytes != nullptr) madvise(bytes.get(), whole, MADV_HUGEPAGE);
  return bytes;
}

}  // namespace morvantile
