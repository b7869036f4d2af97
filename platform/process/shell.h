// Running a command line.

#ifndef MORVANTILE_PLATFORM_PROCESS_SHELL_H
#define MORVANTILE_PLATFORM_PROCESS_SHELL_H

#include <chrono>
#include <string>

#include "platform/core/ref.h"

namespace morvantile {

// Runs command lines in the system's shell, /bin/sh.
class Shell : public Object {
 public:
  // A command that takes longer than `limit` is killed, with what it has started. It finds programs
  // in `first_folder`, unless that is empty, before those of the user's PATH.
  explicit Shell(std::chrono::milliseconds limit = std::chrono::minutes(2),
                 const std::string& first_folder = "");

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
  std::string search_path_;  // begins a command: sets the PATH that it sees
  int error_code_ = -1;
  std::string result_;
};

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_PROCESS_SHELL_H
