// The clipboard through the toolkit.

#ifndef MORVANTILE_PLATFORM_QT_CLIPBOARD_QT_H
#define MORVANTILE_PLATFORM_QT_CLIPBOARD_QT_H

#include <string>

#include "platform/imaging/picture.h"

namespace morvantile {

// The clipboard as the toolkit gives it. A picture is read and decoded once, and kept until the
// clipboard changes.
class QtClipboard {
 public:
  QtClipboard();

  Ref<Picture> ReadPicture();
  void WritePicture(const Ref<Picture>& picture);
  std::string ReadText() const;
  void WriteText(const std::string& text);

  // Serves what was written to other programs until one of them takes the clipboard over; returns
  // at once if nothing was written, or if it has been taken over already.
  void ServeUntilTakenOver();
  bool Owned() const;
  // Lets go of the picture that was read.
  void Forget();

 private:
  bool known_ = false;
  Ref<Picture> picture_;
};

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_QT_CLIPBOARD_QT_H
