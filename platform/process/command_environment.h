// The environment variables of a command.

#ifndef MORVANTILE_PLATFORM_PROCESS_COMMAND_ENVIRONMENT_H
#define MORVANTILE_PLATFORM_PROCESS_COMMAND_ENVIRONMENT_H

#include <string>
#include <vector>

namespace morvantile {

// This process's environment, with a folder first in PATH unless its name is empty.
class CommandEnvironment {
 public:
  explicit CommandEnvironment(const std::string& first_folder);
  CommandEnvironment(const CommandEnvironment&) = delete;
  CommandEnvironment& operator=(const CommandEnvironment&) = delete;

  // As execve and its like take it; valid as long as this object.
  char* const* Pointers() { return pointers_.data(); }

 private:
  std::string path_;
  std::vector<char*> pointers_;
};

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_PROCESS_COMMAND_ENVIRONMENT_H
