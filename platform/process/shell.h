// Running a command line.

#ifndef MORVANTILE_PLATFORM_PROCESS_SHELL_H
#define MORVANTILE_PLATFORM_PROCESS_SHELL_H

#include <chrono>
#include <string>

#include "platform/core/ref.h"

namespace morvantile {

// Runs command lines in the system's shell, /bin/sh. In them `plutil` is this project's converter,
// whatever the user's PATH says: its folder comes first in the command's PATH. That is the first of
// these which holds it: "libexec/morvantile" beside the folder of the running program, the one that
// was installed with this library, and the one that was set when the project was built. On macOS it
// is the system's own.
class Shell : public Object {
 public:
  // A command that takes longer than `limit` is killed, with what it has started.
  explicit Shell(std::chrono::milliseconds limit = std::chrono::minutes(2));

  // Runs `command` and returns when it has ended. The command reads nothing, runs in the current
  // folder and in a process group of its own, and starts without blocked or ignored signals. What
  // it leaves running in the background is not waited for.
  void Execute(const std::string& command);

  // The status of the last command: 0 for success, 128 and the signal's number if a signal ended
  // it, 126 or 127 if it could not be run, -1 if it was killed at the limit or nothing has run.
  int ErrorCode() const { return error_code_; }

  // What the last command wrote to its standard output and error, its first 64 KiB.
  const std::string& Result() const { return result_; }

 private:
  std::chrono::milliseconds limit_;
  int error_code_ = -1;
  std::string result_;
};

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_PROCESS_SHELL_H
