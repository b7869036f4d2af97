#ifndef MORVANTILE_PLATFORM_CORE_HUGE_PAGES_H
#define MORVANTILE_PLATFORM_CORE_HUGE_PAGES_H

#include <sys/mman.h>

#include <cstddef>
#include <memory>

namespace morvantile {

// Makes room for `count` elements in a vector or string that is about to be filled, and asks the
// system to take huge pages for it: that saves most first-touch page faults of a large one.
template <typename Container>
void ReserveHugePages(Container& container, std::size_t count) {
  constexpr std::size_t kPage = 4096;
  container.reserve(count);
  void* begin = container.data();
  std::size_t size = container.capacity() * sizeof(typename Container::value_type);
  if (std::align(kPage, kPage, begin, size) != nullptr) madvise(begin, size, MADV_HUGEPAGE);
}

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_CORE_HUGE_PAGES_H
