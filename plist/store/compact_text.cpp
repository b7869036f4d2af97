#include "plist/store/compact_text.h"

#include "platform/core/bulk_memory.h"

namespace morvantile {

template <std::size_t kSize>
void CompactText<kSize>::StoreOutside(std::string_view text) {
  const std::size_t size = text.size();
  char* const block = static_cast<char*>(AllocateBulk(sizeof size + size));
  std::memcpy(block, &size, sizeof size);
  std::memcpy(block + sizeof size, text.data(), size);
  if (IsOutside()) ReleaseOutside();
  std::memcpy(bytes_.data(), &block, sizeof block);
  bytes_[kInside] = kOutsideMark;
}

template <std::size_t kSize>
void CompactText<kSize>::ReleaseOutside() {
  char* block = nullptr;
  std::memcpy(&block, bytes_.data(), sizeof block);
  ReleaseBulk(block, sizeof(std::size_t) + ViewOutside().size());
}

template <std::size_t kSize>
std::string_view CompactText<kSize>::ViewOutside() const {
  const char* block = nullptr;
  std::memcpy(&block, bytes_.data(), sizeof block);
  std::size_t size = 0;
  std::memcpy(&size, block, sizeof size);
  return {block + sizeof size, size};
}

template class CompactText<16>;
template class CompactText<24>;

}  // namespace morvantile
