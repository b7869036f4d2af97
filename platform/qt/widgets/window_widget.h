#ifndef MORVANTILE_PLATFORM_QT_WIDGETS_WINDOW_WIDGET_H
#define MORVANTILE_PLATFORM_QT_WIDGETS_WINDOW_WIDGET_H

#include <QDialog>
#include <memory>
#include <vector>

#include "platform/qt/active_window.h"
#include "platform/ui/window.h"

namespace morvantile {

// Shows a window and its controls, and tells the window what the user does. It is hidden when the
// window has closed, which ends exec().
class WindowWidget : public QDialog, private WindowPeer {
 public:
  WindowWidget(const Ref<Window>& window, QWidget* parent);
  ~WindowWidget() override;
  WindowWidget(const WindowWidget&) = delete;
  WindowWidget& operator=(const WindowWidget&) = delete;

  void reject() override;

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void WindowChanged() override;
  void WindowClosed() override;
  void ShowRectangle();
  void MakeControls();
  void TellRectangle();
  void TellIfDeactivated();

  Ref<Window> window_;
  const double scale_;
  ActiveWindowWatch watch_;
  std::vector<std::unique_ptr<ControlPeer>> peers_;
};

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_QT_WIDGETS_WINDOW_WIDGET_H
