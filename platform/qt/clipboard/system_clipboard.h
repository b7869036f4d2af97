#ifndef MORVANTILE_PLATFORM_QT_CLIPBOARD_SYSTEM_CLIPBOARD_H
#define MORVANTILE_PLATFORM_QT_CLIPBOARD_SYSTEM_CLIPBOARD_H

#include <optional>
#include <string>

#include "platform/imaging/picture.h"

namespace morvantile {

// The clipboard of one kind of desktop.
class SystemClipboard {
 public:
  SystemClipboard() = default;
  SystemClipboard(const SystemClipboard&) = delete;
  SystemClipboard& operator=(const SystemClipboard&) = delete;
  virtual ~SystemClipboard() = default;

  // The picture on the clipboard, or nil. It is read and decoded once, and kept until the clipboard
  // changes.
  Ref<Picture> ReadPicture() {
    HearOfChanges();
    if (!read_) read_ = ReadOffered();
    return *read_;
  }
  // Lets go of what was read.
  void Forget() { read_.reset(); }
  virtual void WritePicture(const Ref<Picture>& picture) = 0;
  virtual std::string ReadText() = 0;
  virtual void WriteText(const std::string& text) = 0;

  // Whether what was written last is still what is on the clipboard.
  virtual bool Owned() = 0;
  // Serves what was written to other programs until one of them takes the clipboard over, or the
  // desktop ends; returns at once if it isn't owned.
  virtual void ServeUntilTakenOver() = 0;

 private:
  // Forgets what was read if the clipboard has changed since, where that isn't heard of in time.
  virtual void HearOfChanges() {}
  virtual Ref<Picture> ReadOffered() = 0;

  std::optional<Ref<Picture>> read_;
};

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_QT_CLIPBOARD_SYSTEM_CLIPBOARD_H
