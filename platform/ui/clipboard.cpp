#include "platform/ui/clipboard.h"

#include "platform/ui/host.h"

// A Clipboard has no state, but its operations belong to objects all the same.
// NOLINTBEGIN(readability-make-member-function-const)

namespace morvantile {

bool Clipboard::PictureAvailable() const { return CurrentHost().ClipboardPicture() != nullptr; }

Ref<Picture> Clipboard::Picture() const { return CurrentHost().ClipboardPicture(); }

void Clipboard::SetPicture(const Ref<morvantile::Picture>& picture) {
  if (picture == nullptr) throw NilObjectException();
  CurrentHost().SetClipboardPicture(picture);
}

std::string Clipboard::Text() const { return CurrentHost().ClipboardText(); }

void Clipboard::SetText(const std::string& text) { CurrentHost().SetClipboardText(text); }

}  // namespace morvantile

// NOLINTEND(readability-make-member-function-const)
