// What assistive technology is told of the widgets that the toolkit doesn't know.

#ifndef MORVANTILE_PLATFORM_QT_WIDGETS_ACCESSIBLE_H
#define MORVANTILE_PLATFORM_QT_WIDGETS_ACCESSIBLE_H

#include <QAccessible>

namespace morvantile {

// A second base class for a QWidget.
class AccessibleWidget {
 public:
  AccessibleWidget() = default;
  AccessibleWidget(const AccessibleWidget&) = delete;
  AccessibleWidget& operator=(const AccessibleWidget&) = delete;
  virtual ~AccessibleWidget() = default;

  [[nodiscard]] virtual QAccessible::Role Role() const = 0;
  // Whether there is something to press, and what does the same as a click on it.
  [[nodiscard]] virtual bool IsPressable() const { return false; }
  virtual void Press() {}
};

// Makes the toolkit ask the widgets themselves. Must be called once.
void InstallAccessibleWidgets();

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_QT_WIDGETS_ACCESSIBLE_H
