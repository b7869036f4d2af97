#include "platform/base/compact_text.h"

namespace morvantile {

void CompactText::StoreOutside(std::string_view text) {
  const std::size_t size = text.size();
  char* const block = new char[sizeof size + size];
  std::memcpy(block, &size, sizeof size);
  std::memcpy(block + sizeof size, text.data(), size);
  if (IsOutside()) ReleaseOutside();
  std::memcpy(bytes_.data(), &block, sizeof block);
  bytes_[kInside] = kOutsideMark;
}

void CompactText::ReleaseOutside() {
  char* block = nullptr;
  std::memcpy(&block, bytes_.data(), sizeof block);
  delete[] block;
}

std::string_view CompactText::ViewOutside() const {
  const char* block = nullptr;
  std::memcpy(&block, bytes_.data(), sizeof block);
  std::size_t size = 0;
  std::memcpy(&size, block, sizeof size);
  return {block + sizeof size, size};
}

}  // namespace morvantile
