#include "platform/core/bulk_memory.h"

#include <sanitizer/asan_interface.h>
#include <sys/mman.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <utility>

namespace morvantile {
namespace {

constexpr std::size_t kGrain = sizeof(void*);
constexpr std::size_t kFirstSlab = 4096;
constexpr std::size_t kLargestSlab = std::size_t{2} << 20;  // a huge page of the usual systems
constexpr std::size_t kLargestPiece = 1024;
constexpr std::size_t kSlabsUser = std::size_t{1} << 62;

// In front of each piece: its offset in its slab, or 0 for a block of its own.
using Distance = std::uint64_t;

// The beginning of a slab.
struct Slab {
  std::size_t size;
  std::atomic<std::size_t> users{
      kSlabsUser};  // the live pieces, biased while the slab is being filled

  void Leave(std::size_t count) noexcept {
    if (users.fetch_sub(count, std::memory_order_acq_rel) != count) return;
    ASAN_UNPOISON_MEMORY_REGION(this, size);
    std::free(this);
  }
};

Slab* NewSlab(std::size_t size) {
  const bool is_largest = size == kLargestSlab;
  void* const memory = is_largest ? std::aligned_alloc(size, size) : std::malloc(size);
  if (memory == nullptr) throw std::bad_alloc();
  if (is_largest) madvise(memory, size, MADV_HUGEPAGE);
  return new (memory) Slab{size};
}

Distance& DistanceOf(void* piece) { return *(static_cast<Distance*>(piece) - 1); }

// The pieces of one thread, while it has a BulkScope.
class Filling {
 public:
  int scopes = 0;

  // Memory for a whole number of grains, kLargestPiece at most.
  void* Allocate(std::size_t size) {
    if (Released* const again = released_[size / kGrain]) {
      released_[size / kGrain] = again->next;
      return again;
    }
    const std::size_t whole = sizeof(Distance) + size;
    if (left_ < whole) Renew();
    char* const block = reinterpret_cast<char*>(slab_) + slab_->size - left_;
    ASAN_UNPOISON_MEMORY_REGION(block, whole);
    const auto distance = static_cast<Distance>(slab_->size - left_);
    left_ -= whole;
    ++pieces_;
    return new (block) Distance(distance) + 1;
  }

  // Keeps a piece for the next of its size.
  void Release(void* piece, std::size_t size) {
    Released*& first = released_[size / kGrain];
    first = new (piece) Released{first};
  }

  void End() {
    for (Released*& first : released_) {
      while (first != nullptr) LeaveSlab(std::exchange(first, first->next), kGrain);
    }
    FinishSlab();
    next_size_ = kFirstSlab;
  }

  static void LeaveSlab(void* piece, [[maybe_unused]] std::size_t size) {
    const Distance distance = DistanceOf(piece);
    ASAN_POISON_MEMORY_REGION(piece, size);
    reinterpret_cast<Slab*>(static_cast<char*>(piece) - sizeof(Distance) - distance)->Leave(1);
  }

 private:
  struct Released {
    Released* next;
  };

  void Renew() {
    Slab* const fresh = NewSlab(next_size_);
    next_size_ = std::min(2 * next_size_, kLargestSlab);
    FinishSlab();
    slab_ = fresh;
    left_ = fresh->size - sizeof(Slab);
    ASAN_POISON_MEMORY_REGION(fresh + 1, left_);
  }

  void FinishSlab() {
    if (slab_ != nullptr) slab_->Leave(kSlabsUser - pieces_);
    slab_ = nullptr;
    left_ = 0;
    pieces_ = 0;
  }

  Slab* slab_ = nullptr;
  std::size_t left_ = 0;  // bytes of the slab
  std::size_t pieces_ = 0;
  std::size_t next_size_ = kFirstSlab;
  std::array<Released*, kLargestPiece / kGrain + 1> released_{};
};

constinit thread_local Filling filling;

std::size_t InGrains(std::size_t size) {
  return std::max(kGrain, (size + kGrain - 1) / kGrain * kGrain);
}

}  // namespace

BulkScope::BulkScope() { ++filling.scopes; }

BulkScope::~BulkScope() {
  if (--filling.scopes == 0) filling.End();
}

void* AllocateBulk(std::size_t size) {
  if (filling.scopes > 0 && size <= kLargestPiece) return filling.Allocate(InGrains(size));
  return new (operator new(sizeof(Distance) + size)) Distance(0) + 1;
}

void ReleaseBulk(void* memory, std::size_t size) noexcept {
  if (memory == nullptr) return;
  if (DistanceOf(memory) == 0) {
    operator delete(&DistanceOf(memory));
  } else if (filling.scopes > 0) {
    filling.Release(memory, InGrains(size));
  } else {
    Filling::LeaveSlab(memory, size);
  }
}

}  // namespace morvantile
