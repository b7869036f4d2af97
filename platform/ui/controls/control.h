// What all controls have in common.

#ifndef MORVANTILE_PLATFORM_UI_CONTROLS_CONTROL_H
#define MORVANTILE_PLATFORM_UI_CONTROLS_CONTROL_H

#include <cstdint>
#include <functional>
#include <string>

#include "platform/core/export.h"
#include "platform/core/ref.h"

namespace morvantile {

// A widget that shows a control on a real desktop. The host makes it, and attaches it for as long
// as the control is shown.
class MORVANTILE_API ControlPeer {
 public:
  ControlPeer() = default;
  ControlPeer(const ControlPeer&) = delete;
  ControlPeer& operator=(const ControlPeer&) = delete;
  virtual ~ControlPeer() = default;

  // Something that the control shows has changed.
  virtual void ControlChanged() = 0;
  // What is read out of the control has changed.
  virtual void DescriptionChanged() {}
};

// A control: a plain object with its own state and events. What the program sets goes to the peer,
// if there is one; what the user does comes back through the operations named User...
//
// Lengths are logical pixels, positions are relative to the window's content.
class MORVANTILE_API Control : public Object {
 public:
  enum Lock : std::uint8_t { kLockLeft = 1, kLockTop = 2, kLockRight = 4, kLockBottom = 8 };

  // The Index of a control that belongs to no control set.
  static constexpr std::int64_t kNoIndex = -2147483648;

  std::string Name;
  std::int64_t Index = kNoIndex;
  int Left = 0;
  int Top = 0;
  int Width = 0;
  int Height = 0;
  int Locked = kLockLeft | kLockTop;  // Lock values, added up
  int TabIndex = 0;
  int TabPanelIndex = 0;
  bool Visible = true;
  bool Enabled = true;
  std::string TextFont = "System";  // "System", "SmallSystem" or a family's name
  int TextSize = 0;                 // in points; 0 is the font's own size
  std::string HelpTag;
  std::string AccessibleName;  // read out for a control that has no text of its own

  // What is read out beside name and value, at once when it changes while the control has the
  // focus.
  const std::string& AccessibleDescription() const { return accessible_description_; }
  void SetAccessibleDescription(const std::string& description) {
    if (description == accessible_description_) return;
    accessible_description_ = description;
    if (peer_ != nullptr) peer_->DescriptionChanged();
  }

  // The control's own handling of its opening. The window calls it once, after all its controls
  // have been made and before its own Open event.
  virtual void Event_Open() {}

  void AttachPeer(ControlPeer* peer) { peer_ = peer; }

 protected:
  void Changed() {
    if (peer_ != nullptr) peer_->ControlChanged();
  }

  // Calls an event's handler, if there is one. The handler is copied first, so that it may be
  // replaced while it runs.
  template <typename Result, typename... Parameters, typename... Args>
  static Result Raise(const std::function<Result(Parameters...)>& event, Args&&... args) {
    if (!event) return Result();
    const std::function<Result(Parameters...)> handler = event;
    return handler(std::forward<Args>(args)...);
  }

 private:
  ControlPeer* peer_ = nullptr;
  std::string accessible_description_;
};

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_UI_CONTROLS_CONTROL_H
