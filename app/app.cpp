#include "app/app.h"

#include "app/prefs_module.h"
#include "dialogs/resizer_window.h"
#include "platform/ui/clipboard.h"

namespace morvantile {

void App::Event_Open() {
  Clipboard clipboard;
  if (clipboard.PictureAvailable()) {
    PrefsModule::OpenPrefs();
    const Ref<Picture> picture = ResizerWindow::Instance(PrefsModule::Prefs)->GetClip();
    if (picture != nullptr) {
      clipboard.SetPicture(picture);
      PrefsModule::Prefs->Save();
    }
  }
  Quit(0);
}

}  // namespace morvantile
