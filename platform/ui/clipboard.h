// The system clipboard.

#ifndef MORVANTILE_PLATFORM_UI_CLIPBOARD_H
#define MORVANTILE_PLATFORM_UI_CLIPBOARD_H

#include <string>

#include "platform/core/export.h"
#include "platform/imaging/picture.h"

namespace morvantile {

// Access to the system clipboard. An object holds nothing: every call goes to the clipboard as it
// is at that moment.
class MORVANTILE_API Clipboard {
 public:
  // Whether Picture() would give one: something is there that can really be read as a picture.
  [[nodiscard]] bool PictureAvailable() const;
  // The picture on the clipboard; nil if there is none, or one that is broken or larger than a
  // Picture can be.
  [[nodiscard]] Ref<morvantile::Picture> Picture() const;
  // Replaces the clipboard's content. Every other representation that was there goes. Throws
  // NilObjectException for nil.
  void SetPicture(const Ref<morvantile::Picture>& picture);

  // The text on the clipboard, UTF-8; empty if there is none.
  [[nodiscard]] std::string Text() const;
  // Replaces the clipboard's content.
  void SetText(const std::string& text);

  // Ends the use of this object.
  void Close() {}
};

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_UI_CLIPBOARD_H
