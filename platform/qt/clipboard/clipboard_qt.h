#ifndef MORVANTILE_PLATFORM_QT_CLIPBOARD_CLIPBOARD_QT_H
#define MORVANTILE_PLATFORM_QT_CLIPBOARD_CLIPBOARD_QT_H

#include <memory>
#include <string>

#include "platform/qt/clipboard/picture_offer.h"
#include "platform/qt/clipboard/system_clipboard.h"

namespace morvantile {

// The clipboard of the toolkit: that of X11, and of Wayland for a window with the focus.
class QtClipboard : public SystemClipboard {
 public:
  QtClipboard();

  void WritePicture(const Ref<Picture>& picture) override;
  std::string ReadText() override;
  void WriteText(const std::string& text) override;
  bool Owned() override;
  void ServeUntilTakenOver() override;

 private:
  Ref<Picture> ReadOffered() override;

  std::shared_ptr<PictureOffer> offer_;
};

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_QT_CLIPBOARD_CLIPBOARD_QT_H
