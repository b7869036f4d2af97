#ifndef MORVANTILE_PLATFORM_QT_CLIPBOARD_PATIENCE_H
#define MORVANTILE_PLATFORM_QT_CLIPBOARD_PATIENCE_H

#include <chrono>
#include <thread>

namespace morvantile {

// How long a program that owns the clipboard may keep this one waiting without sending anything.
constexpr std::chrono::milliseconds kPatienceWithOwner{3000};

// Ends the process with status 1 and a line on standard error if the desktop isn't there within 30
// seconds, from here to EndPatienceWithDesktop: the toolkit waits for a hanging server, or for a
// thread that the system has refused, for ever.
void BeginPatienceWithDesktop();
void EndPatienceWithDesktop();

// The toolkit waits for the owner of an X11 clipboard for long and for each form anew, and can't be
// told not to. While an object of this class lives, the process ends with status 0, as it does
// without a picture, as soon as the connection has been silent for kPatienceWithOwner. Does nothing
// on other desktops.
class Patience {
 public:
  Patience();
  ~Patience() = default;
  Patience(const Patience&) = delete;
  Patience& operator=(const Patience&) = delete;

 private:
  std::jthread watch_;
};

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_QT_CLIPBOARD_PATIENCE_H
