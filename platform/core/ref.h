// Reference counting for the objects of the system.

#ifndef MORVANTILE_PLATFORM_CORE_REF_H
#define MORVANTILE_PLATFORM_CORE_REF_H

#include <concepts>
#include <cstddef>
#include <utility>

#include "platform/core/exceptions.h"
#include "platform/core/export.h"

namespace morvantile {

// Base of everything that a Ref or a BackRef can refer to. The count is not atomic: an object and
// all references to it belong to one thread at a time.
class MORVANTILE_API Object {
 public:
  Object() = default;
  Object(const Object&) = delete;
  Object& operator=(const Object&) = delete;

 protected:
  virtual ~Object();

 private:
  template <typename T>
  friend class Ref;
  template <typename T>
  friend class BackRef;

  // What back references share: it outlives the object as long as one of them does.
  struct Anchor {
    const Object* target;
    std::size_t count;
  };

  Anchor* AnchorForBackRef() const;
  static void Release(Anchor* anchor);

  void Retain() const { ++count_; }
  void Release() const {
    if (--count_ == 0) delete this;
  }

  mutable std::size_t count_ = 0;
  mutable Anchor* anchor_ = nullptr;
};

template <typename T>
class BackRef;

// An owning reference, or nil. Dereferencing nil throws NilObjectException.
template <typename T>
class MORVANTILE_API Ref {
 public:
  Ref() = default;
  Ref(std::nullptr_t) {}
  explicit Ref(T* object) : object_(object) { Retain(); }
  Ref(const Ref& other) : object_(other.object_) { Retain(); }
  Ref(Ref&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  template <typename U>
  requires std::convertible_to<U*, T*> Ref(const Ref<U>& other)
      : Ref(static_cast<T*>(other.get())) {}
  // Nil once the target is gone.
  template <typename U>
  requires std::convertible_to<U*, T*> Ref(const BackRef<U>& other)
      : Ref(static_cast<T*>(other.get())) {}
  ~Ref() {
    if (object_ != nullptr) static_cast<const Object*>(object_)->Release();
  }

  // Lets go of the object held, and holds the other's.
  Ref& operator=(Ref other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }

  // The object; throws NilObjectException for nil.
  T* operator->() const { return Checked(); }
  T& operator*() const { return *Checked(); }
  // The object, or a null pointer for nil; valid as long as a Ref holds it.
  [[nodiscard]] T* get() const { return object_; }
  explicit operator bool() const { return object_ != nullptr; }
  // Whether no other Ref holds the object; false for nil.
  [[nodiscard]] bool IsOnlyOwner() const {
    return object_ != nullptr && static_cast<const Object*>(object_)->count_ == 1;
  }

  // Whether both hold the same object, or both none.
  friend bool operator==(const Ref& a, const Ref& b) { return a.object_ == b.object_; }
  friend bool operator==(const Ref& a, std::nullptr_t) { return a.object_ == nullptr; }

 private:
  void Retain() {
    if (object_ != nullptr) static_cast<const Object*>(object_)->Retain();
  }
  [[nodiscard]] T* Checked() const {
    if (object_ == nullptr) throw NilObjectException();
    return object_;
  }

  T* object_ = nullptr;
};

// Makes an object and the first reference to it.
template <typename T, typename... Args>
[[nodiscard]] Ref<T> New(Args&&... args) {
  return Ref<T>(new T(std::forward<Args>(args)...));
}

// A reference that owns nothing and reads as nil once its target is gone. Assigned to a Ref, it
// becomes one that owns.
template <typename T>
class MORVANTILE_API BackRef {
 public:
  BackRef() = default;
  BackRef(std::nullptr_t) {}
  BackRef(T* target)
      : anchor_(target == nullptr ? nullptr
                                  : static_cast<const Object*>(target)->AnchorForBackRef()) {}
  BackRef(const Ref<T>& target) : BackRef(target.get()) {}
  BackRef(const BackRef& other) : anchor_(other.anchor_) {
    if (anchor_ != nullptr) ++anchor_->count;
  }
  BackRef(BackRef&& other) noexcept : anchor_(std::exchange(other.anchor_, nullptr)) {}
  ~BackRef() {
    if (anchor_ != nullptr) Object::Release(anchor_);
  }

  // Refers to what the other refers to.
  BackRef& operator=(BackRef other) noexcept {
    std::swap(anchor_, other.anchor_);
    return *this;
  }

  // The target, or a null pointer once it is gone.
  [[nodiscard]] T* get() const {
    if (anchor_ == nullptr) return nullptr;
    return const_cast<T*>(static_cast<const T*>(anchor_->target));
  }
  // Throws NilObjectException once the target is gone.
  T* operator->() const {
    T* target = get();
    if (target == nullptr) throw NilObjectException();
    return target;
  }
  // Whether the target is still there.
  explicit operator bool() const { return get() != nullptr; }

  // Whether both refer to the same object, or both to none.
  friend bool operator==(const BackRef& a, const T* b) { return a.get() == b; }
  friend bool operator==(const BackRef& a, const Ref<T>& b) { return a.get() == b.get(); }
  friend bool operator==(const BackRef& a, std::nullptr_t) { return a.get() == nullptr; }

 private:
  Object::Anchor* anchor_ = nullptr;
};

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_CORE_REF_H
