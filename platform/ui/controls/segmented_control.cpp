#include "platform/ui/controls/segmented_control.h"

#include "platform/core/exceptions.h"

namespace morvantile {

void SegmentedControlItem::SetSelected(bool selected) {
  if (selected) {
    for (const auto& item : owner_->items_) item->selected_ = false;
  }
  selected_ = selected;
  owner_->Changed();
}

SegmentedControlItem& SegmentedControl::AddItem() {
  items_.push_back(std::make_unique<SegmentedControlItem>());
  items_.back()->owner_ = this;
  return *items_.back();
}

SegmentedControlItem& SegmentedControl::Items(int index) {
  if (index < 0 || index >= ItemCount()) throw OutOfBoundsException();
  return *items_[static_cast<std::size_t>(index)];
}

void SegmentedControl::SizeToFit() {
  int width = 2;
  for (const auto& item : items_) width += item->Width;
  Width = width;
}

void SegmentedControl::UserPress(int index) {
  if (!Enabled) return;
  Items(index).SetSelected(true);
  Raise(Action, *this, index);
}

}  // namespace morvantile
