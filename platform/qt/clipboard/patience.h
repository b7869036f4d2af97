#ifndef MORVANTILE_PLATFORM_QT_CLIPBOARD_PATIENCE_H
#define MORVANTILE_PLATFORM_QT_CLIPBOARD_PATIENCE_H

#include <QIODevice>
#include <atomic>
#include <chrono>
#include <cstdint>
#include <functional>
#include <thread>

namespace morvantile {

// How long the owner of the clipboard, or a file system, may keep this program waiting without
// sending anything.
constexpr std::chrono::milliseconds kPatienceWithOwner{3000};

// Ends the process with status 1 and a line on standard error if the desktop isn't there within 30
// seconds, from here to EndPatienceWithDesktop: the toolkit waits for a hanging server, or for a
// thread that the system has refused, for ever.
void BeginPatienceWithDesktop();
void EndPatienceWithDesktop();

// For calls that wait without end and can't be told not to. While an object of this class lives,
// the process ends with status 0, as it does without a picture, as soon as nothing has come for
// kPatienceWithOwner.
class Patience {
 public:
  // With the owner of an X11 clipboard, for whom the toolkit waits for long and for each form anew.
  // Does nothing on other desktops.
  Patience();
  // With whatever sends bytes; `received` returns how many came, and is called by another thread.
  explicit Patience(std::function<std::uint64_t()> received);
  ~Patience() = default;
  Patience(const Patience&) = delete;
  Patience& operator=(const Patience&) = delete;

 private:
  std::jthread watch_;
};

// Reads files and pipes, with Patience from its beginning to its end.
class PatientReader {
 public:
  // All that is there or comes before the other end closes; nothing if it is more than a picture's
  // largest size.
  QByteArray ReadAll(QIODevice& from);

 private:
  std::atomic<std::uint64_t> received_ = 0;
  Patience patience_{[this] { return received_.load(); }};
};

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_QT_CLIPBOARD_PATIENCE_H
