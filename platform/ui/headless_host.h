// A host without a desktop.

#ifndef MORVANTILE_PLATFORM_UI_HEADLESS_HOST_H
#define MORVANTILE_PLATFORM_UI_HEADLESS_HOST_H

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "platform/core/export.h"
#include "platform/ui/host.h"
#include "platform/ui/window.h"

namespace morvantile {

// Keeps the clipboard in memory, records what a user would have seen, and lets a script play the
// user. It serves tests, and programs that use the library without windows.
class MORVANTILE_API HeadlessHost : public Host {
 public:
  // What is on the clipboard: a picture, or a text.
  Ref<Picture> clipboard_picture;
  std::string clipboard_text;

  // The screens that there are.
  std::vector<ScreenGeometry> screens = {{1440, 900, 0, 23, 1440, 877}};

  // Plays the user: each window that is shown takes the next script, which runs with the window
  // active. A window that its script leaves open, or that finds none, is closed.
  std::deque<std::function<void(Window&)>> scripts;

  // What happened, in order.
  std::vector<std::string> messages;
  std::vector<std::string> addresses;
  int windows_shown = 0;

  Ref<Picture> ClipboardPicture() override { return clipboard_picture; }
  void SetClipboardPicture(const Ref<Picture>& picture) override;
  std::string ClipboardText() override { return clipboard_text; }
  void SetClipboardText(const std::string& text) override;
  std::vector<ScreenGeometry> Screens() override { return screens; }
  void ShowMessage(const std::string& text) override { messages.push_back(text); }
  void OpenAddress(const std::string& address) override { addresses.push_back(address); }
  std::string Translate(const std::string& text) override { return text; }
  void ShowModal(const Ref<Window>& window) override;
  int Run(Application& application) override;
  void Quit(int status) override { status_ = status; }

 private:
  int status_ = 0;
};

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_UI_HEADLESS_HOST_H
