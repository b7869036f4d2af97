#include "platform/core/background.h"
#include "platform/ui/clipboard.h"
#include "plist/plist.h"

namespace morvantile {

void plist::Dump() {
  Clipboard clipboard;
  clipboard.SetText("");
  std::string text;
  for (std::size_t i = 1; i < headers.size(); ++i) {
    text += headers[i] + "\r";
    RuntimeBackgroundTask();
  }
  clipboard.SetText(text);
  clipboard.Close();
  root->Dump(1);
  Clipboard end;
  end.SetText(end.Text() + "</dict>\r</plist>\r");
  end.Close();
}

}  // namespace morvantile
