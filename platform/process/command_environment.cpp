#include "platform/process/command_environment.h"

#include <unistd.h>

#include <cstdlib>
#include <string_view>

namespace morvantile {
namespace {

std::string SearchPath(const std::string& first_folder) {
  const char* users = std::getenv("PATH");
  const std::string rest = users != nullptr ? users : "/usr/local/bin:/usr/bin:/bin";
  return first_folder.empty() ? rest : first_folder + ":" + rest;
}

}  // namespace

CommandEnvironment::CommandEnvironment(const std::string& first_folder)
    : path_("PATH=" + SearchPath(first_folder)) {
  for (char** variable = environ; *variable != nullptr; ++variable) {
    if (!std::string_view(*variable).starts_with("PATH=")) pointers_.push_back(*variable);
  }
  pointers_.push_back(path_.data());
  pointers_.push_back(nullptr);
}

}  // namespace morvantile
