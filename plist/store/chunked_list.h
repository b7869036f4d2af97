// A list that grows without moving what it holds.

#ifndef MORVANTILE_PLIST_STORE_CHUNKED_LIST_H
#define MORVANTILE_PLIST_STORE_CHUNKED_LIST_H

#include <algorithm>
#include <cstddef>
#include <memory>
#include <vector>

#include "plist/store/bulk_memory.h"

namespace morvantile {

// A std::vector as long as it is short. A long one goes on in chunks of a fixed size, so that
// growing takes no copy and no memory beyond a chunk: with millions of elements, touching new
// memory is what costs.
template <typename T>
class ChunkedList {
 public:
  std::size_t size() const { return size_; }
  bool empty() const { return size_ == 0; }

  // The element at a position below size().
  T& operator[](std::size_t at) {
    return at < kChunk ? first_[at] : (*rest_)[at / kChunk - 1][at % kChunk];
  }
  const T& operator[](std::size_t at) const {
    return at < kChunk ? first_[at] : (*rest_)[at / kChunk - 1][at % kChunk];
  }
  T& back() { return (*this)[size_ - 1]; }

  // Adds an element. Those in front of it may move while there are few.
  T& emplace_back() {
    ++size_;
    return size_ <= kChunk ? AddToFirst() : AddToRest();
  }

  // Takes the last element out; there must be one.
  void pop_back() {
    --size_;
    if (size_ < kChunk) {
      first_.pop_back();
    } else {
      rest_->back().pop_back();
      if (rest_->back().empty()) rest_->pop_back();
    }
  }

 private:
  static constexpr std::size_t kChunk = 1024;

  T& AddToFirst() {
    constexpr std::size_t kSmallest = 2;
    constexpr std::size_t kSmall = 8;
    if (first_.size() == first_.capacity()) {
      first_.reserve(first_.empty() ? kSmallest : std::max(kSmall, first_.size() * 3 / 2));
    }
    return first_.emplace_back();
  }

  T& AddToRest() {
    if (rest_ == nullptr) rest_ = std::make_unique<std::vector<Chunk>>();
    if (rest_->empty() || rest_->back().size() == kChunk) {
      rest_->emplace_back();
      rest_->back().reserve(kChunk);
    }
    return rest_->back().emplace_back();
  }

  using Chunk = std::vector<T, BulkAllocator<T>>;

  Chunk first_;
  std::unique_ptr<std::vector<Chunk>> rest_;  // full but for the last, and none empty
  std::size_t size_ = 0;
};

}  // namespace morvantile

#endif  // MORVANTILE_PLIST_STORE_CHUNKED_LIST_H
