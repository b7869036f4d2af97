// Memory for pixels and vector code.

#ifndef MORVANTILE_PLATFORM_IMAGING_ALIGNED_H
#define MORVANTILE_PLATFORM_IMAGING_ALIGNED_H

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>

namespace morvantile {

// What such memory is aligned to at least: the widest vector, and a cache line.
inline constexpr std::size_t kAlignment = 64;

struct AlignedFree {
  void operator()(std::uint8_t* bytes) const { std::free(bytes); }
};

using AlignedBytes = std::unique_ptr<std::uint8_t[], AlignedFree>;

// `size` bytes whose content is not set; null if there isn't so much memory. Where the system can,
// large memory comes in huge pages: the first-touch page faults of small ones take as long as
// resampling the picture.
AlignedBytes MakeAlignedBytes(std::size_t size);

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_IMAGING_ALIGNED_H
