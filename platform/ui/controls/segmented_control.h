#ifndef MORVANTILE_PLATFORM_UI_CONTROLS_SEGMENTED_CONTROL_H
#define MORVANTILE_PLATFORM_UI_CONTROLS_SEGMENTED_CONTROL_H

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/ui/controls/control.h"

namespace morvantile {

class SegmentedControl;

// One segment. It belongs to the control that made it and lives as long as that.
class SegmentedControlItem {
 public:
  std::string Title;
  int Width = 0;
  std::string HelpTag;
  std::string AccessibleName;

  [[nodiscard]] bool Selected() const { return selected_; }
  // Selecting a segment takes the selection from the others; no event is raised.
  void SetSelected(bool selected);

 private:
  friend class SegmentedControl;
  SegmentedControl* owner_ = nullptr;
  bool selected_ = false;
};

// Buttons side by side of which one is selected.
class SegmentedControl : public Control {
 public:
  enum Selection { kSelectOne = 0 };

  int SelectionType = kSelectOne;
  int MacControlStyle = 0;  // the look on that system; no other uses it

  // Adds a segment behind the others. The reference stays valid as long as the control.
  SegmentedControlItem& AddItem();
  int ItemCount() const { return static_cast<int>(items_.size()); }
  // The segment of that number, counted from 0. Throws OutOfBoundsException.
  SegmentedControlItem& Items(int index);
  // Makes the control as wide as its segments with a line of one pixel at each end.
  void SizeToFit();

  // Raised with the segment's number when the user presses one.
  std::function<void(SegmentedControl&, int index)> Action;

  // The user pressed a segment, with the mouse or a key.
  void UserPress(int index);

 private:
  friend class SegmentedControlItem;

  std::vector<std::unique_ptr<SegmentedControlItem>> items_;
};

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_UI_CONTROLS_SEGMENTED_CONTROL_H
