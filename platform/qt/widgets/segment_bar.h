#ifndef MORVANTILE_PLATFORM_QT_WIDGETS_SEGMENT_BAR_H
#define MORVANTILE_PLATFORM_QT_WIDGETS_SEGMENT_BAR_H

#include <QButtonGroup>
#include <QWidget>

#include "platform/qt/widgets/accessible.h"
#include "platform/ui/controls/segmented_control.h"

namespace morvantile {

// Buttons side by side, one of which is lit; the arrow keys move the light.
class SegmentBar : public QWidget, public AccessibleWidget {
 public:
  // For a window drawn at `scale`.
  SegmentBar(SegmentedControl& control, QWidget& parent, double scale);

  [[nodiscard]] QAccessible::Role Role() const override { return QAccessible::Grouping; }

  // Takes over selection and help tags of the control.
  void ShowState(SegmentedControl& control);

 private:
  QButtonGroup* buttons_;
};

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_QT_WIDGETS_SEGMENT_BAR_H
