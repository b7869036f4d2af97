#include "platform/ui/headless_host.h"

#include <utility>

#include "platform/ui/application.h"

namespace morvantile {

void HeadlessHost::SetClipboardPicture(const Ref<Picture>& picture) {
  clipboard_picture = picture;
  clipboard_text.clear();
}

void HeadlessHost::SetClipboardText(const std::string& text) {
  clipboard_picture = nullptr;
  clipboard_text = text;
}

void HeadlessHost::ShowModal(const Ref<Window>& window) {
  ++windows_shown;
  window->UserActivated();
  if (!scripts.empty()) {
    const std::function<void(Window&)> script = std::move(scripts.front());
    scripts.pop_front();
    script(*window);
  }
  window->Close();
}

int HeadlessHost::Run(Application& application) {
  application.Event_Open();
  application.Event_Close();
  return status_;
}

}  // namespace morvantile
