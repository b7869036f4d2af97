#ifndef MORVANTILE_APP_APP_H
#define MORVANTILE_APP_APP_H

#include "platform/ui/application.h"

namespace morvantile {

// The program: one pass over the clipboard, made by its Open event.
class App : public Application {
 public:
  // Looks at the clipboard, shows the dialog if there is a picture, puts what the dialog returns
  // on the clipboard, and quits with status 0.
  void Event_Open() override;
  void Event_Close() override {}
};

}  // namespace morvantile

#endif  // MORVANTILE_APP_APP_H
