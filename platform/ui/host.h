// The one seam between the system and a desktop.

#ifndef MORVANTILE_PLATFORM_UI_HOST_H
#define MORVANTILE_PLATFORM_UI_HOST_H

#include <string>
#include <vector>

#include "platform/core/export.h"
#include "platform/core/ref.h"
#include "platform/imaging/picture.h"
#include "platform/ui/screen.h"

namespace morvantile {

class Application;
class Window;

// What a desktop does for the program. The classes of this folder are the way to reach it; nobody
// else calls a Host. All calls come from the main thread.
class MORVANTILE_API Host {
 public:
  Host() = default;
  Host(const Host&) = delete;
  Host& operator=(const Host&) = delete;
  virtual ~Host() = default;

  // The picture on the clipboard, or nil if there is none that can be read in full.
  virtual Ref<Picture> ClipboardPicture() = 0;
  // Replaces what is on the clipboard. It stays there after the end of the program, until somebody
  // else replaces it, as far as the desktop allows.
  virtual void SetClipboardPicture(const Ref<Picture>& picture) = 0;
  virtual std::string ClipboardText() = 0;
  virtual void SetClipboardText(const std::string& text) = 0;

  // The screens of the desktop, the primary one first; never empty.
  virtual std::vector<ScreenGeometry> Screens() = 0;
  // Shows a message and returns when the user has dismissed it.
  virtual void ShowMessage(const std::string& text) = 0;
  // Opens an address in the user's browser, without waiting for it.
  virtual void OpenAddress(const std::string& address) = 0;
  // The text in the user's language, or the same text if there is no translation.
  virtual std::string Translate(const std::string& text) = 0;

  // Shows the window and dispatches events until it has closed.
  virtual void ShowModal(const Ref<Window>& window) = 0;
  // Raises Event_Open on the application and dispatches events until Quit, then raises Event_Close;
  // returns the status that Quit was given. An exception out of a handler comes through.
  virtual int Run(Application& application) = 0;
  // Makes Run return `status` once the handlers that run at present have returned.
  virtual void Quit(int status) = 0;
};

// The host in use; a headless one until InstallHost has been called.
MORVANTILE_API Host& CurrentHost();

// Makes `host` the one in use until the next call; a null pointer means the headless one that
// is there from the start. The caller keeps the ownership.
MORVANTILE_API void InstallHost(Host* host);

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_UI_HOST_H
