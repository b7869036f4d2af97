// A list whose first element stands at 1.

#ifndef MORVANTILE_PLIST_STORE_LIST_FROM_ONE_H
#define MORVANTILE_PLIST_STORE_LIST_FROM_ONE_H

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

#include "platform/core/bulk_memory.h"

namespace morvantile {

// A std::vector behind a placeholder, which is a default element and always there, at 0; size()
// counts it. A list of the placeholder alone holds no memory, so that it costs next to nothing in
// the many nodes of a tree that have no children.
//
// References and iterators hold until an element is added or taken out, or until the first use of
// the list that is not const.
template <typename T>
class ListFromOne {
  using Vector = std::vector<T, BulkAllocator<T>>;

 public:
  using value_type = T;
  using iterator = typename Vector::iterator;
  using const_iterator = typename Vector::const_iterator;

  // The elements and the placeholder.
  std::size_t size() const { return elements_.empty() ? 1 : elements_.size(); }

  // The element at a place below size(); the placeholder at 0.
  T& operator[](std::size_t place) { return Elements()[place]; }
  const T& operator[](std::size_t place) const { return Elements()[place]; }
  T& back() { return Elements().back(); }
  const T& back() const { return Elements().back(); }

  // Adds an element at the end.
  void push_back(T element) { emplace_back(std::move(element)); }
  template <typename... Args>
  T& emplace_back(Args&&... args) {
    if (elements_.empty()) elements_.reserve(2);
    return Elements().emplace_back(std::forward<Args>(args)...);
  }

  // Takes the last element out; there must be one besides the placeholder.
  void pop_back() { elements_.pop_back(); }
  // Takes an element out; it must not be the placeholder.
  void erase(std::size_t place) {
    elements_.erase(elements_.begin() + static_cast<std::ptrdiff_t>(place));
  }

  iterator begin() { return Elements().begin(); }
  iterator end() { return Elements().end(); }
  const_iterator begin() const { return Elements().begin(); }
  const_iterator end() const { return Elements().end(); }

  friend bool operator==(const ListFromOne& a, const std::vector<T>& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end());
  }

 private:
  Vector& Elements() {
    if (elements_.empty()) elements_.resize(1);
    return elements_;
  }
  const Vector& Elements() const {
    static const Vector placeholder(1);
    return elements_.empty() ? placeholder : elements_;
  }

  Vector elements_;
};

}  // namespace morvantile

#endif  // MORVANTILE_PLIST_STORE_LIST_FROM_ONE_H
