#ifndef MORVANTILE_PLATFORM_QT_ATTACH_CONTROL_PEER_H
#define MORVANTILE_PLATFORM_QT_ATTACH_CONTROL_PEER_H

#include <QString>

#include "platform/ui/controls/control.h"

namespace morvantile {

// The peer of a control of class C that is shown by a widget of class W. It ties the two together
// for as long as it lives, and may not outlive the widget by more than its own destruction.
template <typename C, typename W>
class PeerOf : public ControlPeer {
 public:
  PeerOf(C& control, W* widget) : control_(&control), widget_(widget) { control.AttachPeer(this); }
  ~PeerOf() override { control_->AttachPeer(nullptr); }
  PeerOf(const PeerOf&) = delete;
  PeerOf& operator=(const PeerOf&) = delete;

  void DescriptionChanged() override {
    widget_->setAccessibleDescription(QString::fromStdString(control_->AccessibleDescription()));
  }

 protected:
  [[nodiscard]] C& control() const { return *control_; }
  [[nodiscard]] W& widget() const { return *widget_; }

 private:
  Ref<C> control_;
  W* widget_;
};

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_QT_ATTACH_CONTROL_PEER_H
