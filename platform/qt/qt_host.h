// The desktop, through Qt.

#ifndef MORVANTILE_PLATFORM_QT_QT_HOST_H
#define MORVANTILE_PLATFORM_QT_QT_HOST_H

#include <memory>
#include <string>
#include <vector>

#include "platform/qt/clipboard/stay_behind.h"
#include "platform/qt/single_instance.h"
#include "platform/ui/host.h"

namespace morvantile {

class GuardedApplication;
class SystemClipboard;

// The host on X11 and Wayland. One can exist per process.
class QtHost : public Host {
 public:
  // Connects to the desktop. `stay_behind` is the second half of the process that Run lets go of;
  // `instance` is told of the first window, which a further start of the program brings to the
  // front, and ended when Run is over for the user. Throws RuntimeException if there is no desktop.
  QtHost(int argc, char** argv, StayBehind& stay_behind, SingleInstance& instance);
  ~QtHost() override;

  Ref<Picture> ClipboardPicture() override;
  void SetClipboardPicture(const Ref<Picture>& picture) override;
  std::string ClipboardText() override;
  void SetClipboardText(const std::string& text) override;
  std::vector<ScreenGeometry> Screens() override;
  void ShowMessage(const std::string& text) override;
  void OpenAddress(const std::string& address) override;
  std::string Translate(const std::string& text) override;
  void ShowModal(const Ref<Window>& window) override;
  void Quit(int status) override;

  // As Host::Run. After Quit, if the program has put something on the clipboard, the run ends for
  // the user, and this process goes on to serve the clipboard: Run then returns only when another
  // program has taken it over.
  int Run(Application& application) override;

 private:
  void ShowToFurtherStarts();

  StayBehind& stay_behind_;
  SingleInstance& instance_;
  std::unique_ptr<GuardedApplication> application_;
  std::unique_ptr<SystemClipboard> clipboard_;
};

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_QT_QT_HOST_H
