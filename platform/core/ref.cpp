#include "platform/core/ref.h"

#include "platform/core/bulk_memory.h"

namespace morvantile {

Object::~Object() {
  if (anchor_ == nullptr) return;
  anchor_->target = nullptr;
  Release(anchor_);
}

Object::Anchor* Object::AnchorForBackRef() const {
  if (anchor_ == nullptr) anchor_ = new (AllocateBulk(sizeof(Anchor))) Anchor{this, 1};
  ++anchor_->count;
  return anchor_;
}

void Object::Release(Anchor* anchor) {
  if (--anchor->count == 0) ReleaseBulk(anchor, sizeof(Anchor));
}

}  // namespace morvantile
