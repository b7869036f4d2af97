#include "platform/qt/widgets/window_widget.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QTimer>
#include <chrono>
#include <map>
#include <utility>

#include "platform/qt/widgets/control_widgets.h"
#include "platform/qt/widgets/placement.h"

namespace morvantile {
namespace {

constexpr std::chrono::milliseconds kBetweenLooksAtSwitch{50};

Qt::WindowFlags FlagsOf(const Window& window) {
  Qt::WindowFlags flags = Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint;
  if (window.CloseButton) flags |= Qt::WindowCloseButtonHint | Qt::WindowSystemMenuHint;
  if (window.MaximizeButton) flags |= Qt::WindowMaximizeButtonHint;
  if (window.MinimizeButton) flags |= Qt::WindowMinimizeButtonHint;
  return flags;
}

bool IsModifier(int key) {
  return (key >= Qt::Key_Shift && key <= Qt::Key_ScrollLock) || key == Qt::Key_AltGr ||
         key == Qt::Key_Super_L || key == Qt::Key_Super_R;
}

// The parts of a widget that can have the focus: itself, or else its children.
std::vector<QWidget*> FocusTargets(QWidget* widget) {
  if (widget->focusPolicy() != Qt::NoFocus) return {widget};
  std::vector<QWidget*> targets;
  for (QWidget* child : widget->findChildren<QWidget*>()) {
    if (child->focusPolicy() != Qt::NoFocus) targets.push_back(child);
  }
  return targets;
}

}  // namespace

WindowWidget::WindowWidget(const Ref<Window>& window, QWidget* parent)
    : QDialog(parent, FlagsOf(*window)),
      window_(window),
      scale_(DrawnScale(*window)),
      watch_([this] { TellIfDeactivated(); }) {
  setWindowModality(Qt::ApplicationModal);
  setWindowTitle(QString::fromStdString(window->Title()));
  setAccessibleName(QString::fromStdString(window->AccessibleName));
  ShowRectangle();
  MakeControls();
  window->AttachPeer(this);
}

WindowWidget::~WindowWidget() { window_->AttachPeer(nullptr); }

void WindowWidget::MakeControls() {
  std::multimap<int, QWidget*> by_tab_index;
  for (const Ref<Control>& control : window_->Controls()) {
    ShownControl shown = Show(*control, *this, scale_);
    if (shown.widget == nullptr) continue;
    for (QWidget* target : FocusTargets(shown.widget)) {
      by_tab_index.emplace(control->TabIndex, target);
    }
    if (control == window_->InitialFocus) shown.widget->setFocus();
    peers_.push_back(std::move(shown.peer));
  }
  QWidget* before = nullptr;
  for (const auto& [index, target] : by_tab_index) {
    if (before != nullptr) setTabOrder(before, target);
    before = target;
  }
}

void WindowWidget::ShowRectangle() {
  const QRect drawn = DrawnRectangle(*window_, scale_);
  if (window_->Resizeable) {
    setMinimumSize(window_->MinWidth, window_->MinHeight);
    setMaximumSize(window_->MaxWidth, window_->MaxHeight);
  } else {
    setFixedSize(drawn.size());
  }
  setGeometry(drawn);
}

void WindowWidget::WindowChanged() {
  setWindowTitle(QString::fromStdString(window_->Title()));
  ShowRectangle();
}

void WindowWidget::WindowClosed() { hide(); }

void WindowWidget::reject() {
  const Ref<PushButton> cancel = window_->FindCancelButton();
  if (cancel != nullptr) {
    cancel->UserPress();
  } else {
    window_->UserClose();
  }
}

bool WindowWidget::event(QEvent* event) {
  const bool handled = QDialog::event(event);
  if (event->type() == QEvent::WindowActivate) window_->UserActivated();
  if (event->type() == QEvent::WindowDeactivate) TellIfDeactivated();
  return handled;
}

void WindowWidget::TellIfDeactivated() {
  if (isActiveWindow() || !AnotherWindowIsActive(*this)) return;
  if (ASwitchMayBeUnderWay()) {
    QTimer::singleShot(kBetweenLooksAtSwitch, this, &WindowWidget::TellIfDeactivated);
  } else {
    window_->UserDeactivated();
  }
}

void WindowWidget::keyPressEvent(QKeyEvent* event) {
  if (!IsModifier(event->key())) window_->UserKeyDown(event->text().toStdString());
  if (!window_->Closed()) QDialog::keyPressEvent(event);
}

void WindowWidget::closeEvent(QCloseEvent* event) {
  event->ignore();
  window_->UserClose();
}

void WindowWidget::moveEvent(QMoveEvent* event) {
  QDialog::moveEvent(event);
  TellRectangle();
}

void WindowWidget::resizeEvent(QResizeEvent* event) {
  QDialog::resizeEvent(event);
  TellRectangle();
}

void WindowWidget::TellRectangle() {
  if (!isVisible() || scale_ != 1) return;
  const QRect place = geometry().translated(-OriginOfScreens());
  window_->UserMoved(place.x(), place.y(), place.width(), place.height());
}

}  // namespace morvantile
