// An arena for the many small pieces of a tree.

#ifndef MORVANTILE_PLATFORM_CORE_BULK_MEMORY_H
#define MORVANTILE_PLATFORM_CORE_BULK_MEMORY_H

#include <cstddef>
#include <new>

namespace morvantile {

// While one exists on a thread, AllocateBulk carves the pieces of this thread out of slabs: a
// million of them take a few hundred calls of the heap, and large slabs ask the system for huge
// pages. A slab is freed when its last piece is released, on any thread; until then one piece keeps
// all of it. So this is for what is made at once and is mostly released at once, such as a tree
// that is read from a file.
class BulkScope {
 public:
  BulkScope();
  ~BulkScope();
  BulkScope(const BulkScope&) = delete;
  BulkScope& operator=(const BulkScope&) = delete;
};

// Memory for `size` bytes, aligned for pointers; a block of its own without a BulkScope, or if it
// is large. Throws std::bad_alloc.
void* AllocateBulk(std::size_t size);

// Releases what AllocateBulk returned for that size.
void ReleaseBulk(void* memory, std::size_t size) noexcept;

// The allocator of containers in such memory.
template <typename T>
struct BulkAllocator {
  using value_type = T;

  BulkAllocator() = default;
  template <typename U>
  BulkAllocator(const BulkAllocator<U>&) {}

  T* allocate(std::size_t count) {
    static_assert(alignof(T) <= alignof(void*));
    if (count > static_cast<std::size_t>(-1) / 2 / sizeof(T)) throw std::bad_array_new_length();
    return static_cast<T*>(AllocateBulk(count * sizeof(T)));
  }
  void deallocate(T* memory, std::size_t count) { ReleaseBulk(memory, count * sizeof(T)); }

  friend bool operator==(const BulkAllocator&, const BulkAllocator&) { return true; }
};

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_CORE_BULK_MEMORY_H
