#ifndef MORVANTILE_PLATFORM_CORE_OWNED_DESCRIPTOR_H
#define MORVANTILE_PLATFORM_CORE_OWNED_DESCRIPTOR_H

#include <unistd.h>

#include <utility>

namespace morvantile {

// A file descriptor that is closed with the object; a negative one is none.
class OwnedDescriptor {
 public:
  explicit OwnedDescriptor(int descriptor = -1) : descriptor_(descriptor) {}
  OwnedDescriptor(OwnedDescriptor&& other) noexcept
      : descriptor_(std::exchange(other.descriptor_, -1)) {}
  OwnedDescriptor& operator=(OwnedDescriptor&& other) noexcept {
    std::swap(descriptor_, other.descriptor_);
    return *this;
  }
  ~OwnedDescriptor() { Close(); }

  [[nodiscard]] int get() const { return descriptor_; }
  void Close() {
    if (descriptor_ >= 0) close(std::exchange(descriptor_, -1));
  }

 private:
  int descriptor_;
};

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_CORE_OWNED_DESCRIPTOR_H
