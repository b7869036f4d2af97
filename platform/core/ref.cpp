#include "platform/core/ref.h"

namespace morvantile {

Object::~Object() {
  if (anchor_ == nullptr) return;
  anchor_->target = nullptr;
  Release(anchor_);
}

Object::Anchor* Object::AnchorForBackRef() const {
  if (anchor_ == nullptr) anchor_ = new Anchor{this, 1};
  ++anchor_->count;
  return anchor_;
}

void Object::Release(Anchor* anchor) {
  if (--anchor->count == 0) delete anchor;
}

}  // namespace morvantile
