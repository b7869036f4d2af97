#include "plist/list_from_one.h"

#include <memory>
#include <utility>

#include "platform/core/bulk_memory.h"
#include "plist/plistDict.h"

namespace morvantile {

template <typename T>
struct ListFromOne<T>::Elements : std::vector<T, BulkAllocator<T>> {};

template <typename T>
void ListFromOne<T>::push_back(T element) {
  Made().push_back(std::move(element));
}

template <typename T>
void ListFromOne<T>::pop_back() {
  elements_->pop_back();
}

template <typename T>
void ListFromOne<T>::erase(std::size_t place) {
  elements_->erase(elements_->begin() + static_cast<std::ptrdiff_t>(place));
}

template <typename T>
T* ListFromOne<T>::begin() {
  return Made().data();
}

template <typename T>
const T* ListFromOne<T>::begin() const {
  static const T placeholder{};
  return elements_ == nullptr ? &placeholder : elements_->data();
}

template <typename T>
std::size_t ListFromOne<T>::Size() const {
  return elements_->size();
}

template <typename T>
void ListFromOne<T>::Release() {
  std::destroy_at(elements_);
  ReleaseBulk(elements_, sizeof *elements_);
}

template <typename T>
typename ListFromOne<T>::Elements& ListFromOne<T>::Made() {
  if (elements_ == nullptr) {
    elements_ = std::construct_at(static_cast<Elements*>(AllocateBulk(sizeof(Elements))));
    elements_->reserve(2);
    elements_->resize(1);
  }
  return *elements_;
}

template class ListFromOne<std::string>;
template class ListFromOne<Ref<plistDict>>;

}  // namespace morvantile
