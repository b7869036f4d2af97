#include "app/app.h"

#include "dialogs/resizer_window.h"
#include "platform/ui/clipboard.h"

namespace morvantile {

void App::Event_Open() {
  Clipboard clipboard;
  if (clipboard.PictureAvailable()) {
    // The remembered settings are opened here.
    const Ref<Picture> picture = ResizerWindow::Instance()->GetClip();
    if (picture != nullptr) {
      clipboard.SetPicture(picture);
      // The settings are saved here.
    }
  }
  Quit(0);
}

}  // namespace morvantile
