#include "platform/core/ref.h"

namespace morvantile {

Object::~Object() {
  if (anchor_ == nullptr) return;
  anchor_->target = nullptr;
  Anchor::Release(anchor_);
}

void Object::Anchor::Release(Anchor* anchor) {
  if (--anchor->count == 0) delete anchor;
}

}  // namespace morvantile
