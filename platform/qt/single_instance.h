#ifndef MORVANTILE_PLATFORM_QT_SINGLE_INSTANCE_H
#define MORVANTILE_PLATFORM_QT_SINGLE_INSTANCE_H

#include <chrono>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "platform/core/owned_descriptor.h"

namespace morvantile {

// Limits a user to one run at a time on a display: a further start asks the first run to show its
// dialog, and ends.
//
// The runs meet at a socket in Linux's abstract namespace, which leaves no file behind and is gone
// with the process. Its name is made of user and display; both sides refuse a peer of another user.
// While the first run starts, a thread answers for it. Later the run answers by itself, so that one
// that hangs is found out.
class SingleInstance {
 public:
  // Becomes the one run of this user on this display, or asks the run that there is. A run that
  // does not answer within a second is left alone: this one then goes its own way, and answers
  // nobody; so does one without a display.
  SingleInstance();
  ~SingleInstance() { End(); }
  SingleInstance(const SingleInstance&) = delete;
  SingleInstance& operator=(const SingleInstance&) = delete;

  // Whether another run has answered. This one has nothing to do then.
  [[nodiscard]] bool AnotherRunAnswered() const { return answered_; }

  // From now on `notify` is called for each further start, on a thread of its own, and the start
  // waits for AnswerAll. Before, starts are answered at once.
  void OnFurtherStart(std::function<void()> notify);

  // Calls `show` with the token of each further start that waits, and answers it. The token is the
  // activation token or start-up ID that the desktop gave to the launch, or empty.
  void AnswerAll(const std::function<void(const std::string& token)>& show);

  // Closes the socket. Starts that still wait, or come later, begin a run of their own.
  void End();

 private:
  struct FurtherStart {
    OwnedDescriptor connection;
    std::string token;
  };
  enum class Reply { kShown, kEnded, kNone };

  bool Listen();
  static Reply Ask(std::chrono::steady_clock::time_point deadline);
  void Serve();
  void Admit(OwnedDescriptor connection);

  bool answered_ = false;
  OwnedDescriptor listener_;
  std::jthread server_;
  std::mutex mutex_;  // guards what follows
  std::function<void()> notify_;
  std::vector<FurtherStart> waiting_;
};

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_QT_SINGLE_INSTANCE_H
