#ifndef MORVANTILE_PLATFORM_QT_CONTROL_PEER_H
#define MORVANTILE_PLATFORM_QT_CONTROL_PEER_H

#include <QString>
#include <QWidget>

#include "platform/qt/fonts.h"
#include "platform/ui/control.h"

namespace morvantile {

// What all peers of this host have in common.
class QtControlPeer : public ControlPeer {
 public:
  virtual QWidget* Widget() const = 0;
};

// The peer of a control of class C, shown by a widget of class W.
template <typename C, typename W>
class PeerOf : public QtControlPeer {
 public:
  PeerOf(C& control, W* widget) : control_(&control), widget_(widget) {
    control_->AttachPeer(this);
    widget_->setGeometry(control.Left, control.Top, control.Width, control.Height);
    widget_->setFont(FontFor(control));
    widget_->setToolTip(QString::fromStdString(control.HelpTag));
    widget_->setAccessibleName(QString::fromStdString(control.AccessibleName));
    widget_->setObjectName(QString::fromStdString(control.Name));
    widget_->setEnabled(control.Enabled);
    widget_->setVisible(control.Visible);
  }
  ~PeerOf() override { control_->AttachPeer(nullptr); }

  QWidget* Widget() const override { return widget_; }

 protected:
  C& control() const { return *control_; }
  W& widget() const { return *widget_; }

 private:
  Ref<C> control_;
  W* widget_;
};

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_QT_CONTROL_PEER_H
