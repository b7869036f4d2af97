// A list whose first element is at 1.

#ifndef MORVANTILE_PLIST_LIST_FROM_ONE_H
#define MORVANTILE_PLIST_LIST_FROM_ONE_H

#include <algorithm>
#include <cstddef>
#include <vector>

#include "platform/core/export.h"

namespace morvantile {

// The children of a node, or their names, from 1 on. At 0 is a placeholder, a default element that
// is always there; size() counts it.
//
// References and iterators hold until an element is added or taken out, or until the first use of
// the list that is not const.
template <typename T>
class MORVANTILE_API ListFromOne {
 public:
  using value_type = T;
  using iterator = T*;
  using const_iterator = const T*;

  ListFromOne() = default;
  ListFromOne(const ListFromOne&) = delete;
  ListFromOne& operator=(const ListFromOne&) = delete;
  ~ListFromOne() {
    if (elements_ != nullptr) Release();
  }

  // The number of elements and the placeholder.
  [[nodiscard]] std::size_t size() const { return elements_ == nullptr ? 1 : Size(); }

  // The element at a place below size(); the placeholder at 0.
  T& operator[](std::size_t place) { return begin()[place]; }
  const T& operator[](std::size_t place) const { return begin()[place]; }
  T& back() { return end()[-1]; }
  [[nodiscard]] const T& back() const { return end()[-1]; }

  // Adds an element at the end.
  void push_back(T element);
  // Takes the last element out; there must be one besides the placeholder.
  void pop_back();
  // Takes an element out; it must not be the placeholder.
  void erase(std::size_t place);

  iterator begin();
  iterator end() { return begin() + size(); }
  [[nodiscard]] const_iterator begin() const;
  [[nodiscard]] const_iterator end() const { return begin() + size(); }

  // Whether all elements are the same, the placeholder included.
  friend bool operator==(const ListFromOne& a, const std::vector<T>& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end());
  }

 private:
  struct Elements;

  [[nodiscard]] std::size_t Size() const;
  void Release();
  Elements& Made();

  Elements* elements_ = nullptr;  // none as long as there is the placeholder alone
};

}  // namespace morvantile

#endif  // MORVANTILE_PLIST_LIST_FROM_ONE_H
