#include "platform/core/exceptions.h"
#include "platform/ui/host.h"
#include "platform/ui/localized.h"
#include "platform/ui/msg_box.h"
#include "platform/ui/screen.h"
#include "platform/ui/show_url.h"

namespace morvantile {

ScreenGeometry Screen(int index) {
  const std::vector<ScreenGeometry> screens = CurrentHost().Screens();
  if (index < 0 || static_cast<std::size_t>(index) >= screens.size()) throw OutOfBoundsException();
  return screens[static_cast<std::size_t>(index)];
}

void MsgBox(const std::string& text) { CurrentHost().ShowMessage(text); }

void ShowURL(const std::string& address) { CurrentHost().OpenAddress(address); }

std::string Localized(const std::string& text) { return CurrentHost().Translate(text); }

}  // namespace morvantile
