// Memory for vector code.

#ifndef MORVANTILE_PLATFORM_IMAGING_ALIGNED_H
#define MORVANTILE_PLATFORM_IMAGING_ALIGNED_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>

namespace morvantile {

// What such memory is aligned to: the widest vector, and a line of the cache.
inline constexpr std::size_t kAlignment = 64;

struct AlignedDelete {
  void operator()(std::uint8_t* bytes) const {
    ::operator delete[](bytes, std::align_val_t{kAlignment});
  }
};

using AlignedBytes = std::unique_ptr<std::uint8_t[], AlignedDelete>;

// `size` bytes whose content is not set; null if there isn't so much memory.
inline AlignedBytes MakeAlignedBytes(std::size_t size) {
  return AlignedBytes(static_cast<std::uint8_t*>(
      ::operator new[](size, std::align_val_t{kAlignment}, std::nothrow)));
}

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_IMAGING_ALIGNED_H
