// The application object.

#ifndef MORVANTILE_PLATFORM_UI_APPLICATION_H
#define MORVANTILE_PLATFORM_UI_APPLICATION_H

#include <string>

#include "platform/core/ref.h"

namespace morvantile {

// Base of a program's application class. The host raises Event_Open once after start-up and
// Event_Close once after Quit.
class Application : public Object {
 public:
  // The program's version, such as "1.0.0".
  static std::string Version();

  virtual void Event_Open() {}
  virtual void Event_Close() {}
};

// Ends the application with that exit status, as soon as the handler that runs at present has
// returned.
void Quit(int status);

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_UI_APPLICATION_H
