#include "platform/process/command_environment.h"

#include <dlfcn.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string_view>
#include <system_error>

extern char** environ;  // NOLINT(readability-redundant-declaration): not declared everywhere

namespace morvantile {
namespace {

bool HoldsConverter(const std::string& folder) {
  return access((folder + "/plutil").c_str(), X_OK) == 0;
}

std::string FolderBesideProgram() {
  std::error_code error;
  const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
  return (program.parent_path().parent_path() / "libexec/morvantile").string();
}

// Beside this library, or beside the program where the library is a part of it.
std::string FolderBesideLibrary() {
  Dl_info place{};
  if (dladdr(reinterpret_cast<const void*>(&HoldsConverter), &place) == 0) return "";
  std::error_code error;
  const std::filesystem::path library = std::filesystem::canonical(place.dli_fname, error);
  return (library.parent_path() / MORVANTILE_LIBEXEC_FROM_LIBRARY).lexically_normal().string();
}

std::string FolderOfConverter() {
#ifndef __APPLE__
  for (const std::string& folder :
       {FolderBesideProgram(), FolderBesideLibrary(), std::string(MORVANTILE_LIBEXEC_DIR)}) {
    if (HoldsConverter(folder)) return folder;
  }
#endif
  return "";
}

std::string SearchPath() {
  const std::string folder = FolderOfConverter();
  const char* users = std::getenv("PATH");
  const std::string rest = users != nullptr ? users : "/usr/local/bin:/usr/bin:/bin";
  return folder.empty() ? rest : folder + ":" + rest;
}

}  // namespace

CommandEnvironment::CommandEnvironment() : path_("PATH=" + SearchPath()) {
  for (char** variable = environ; *variable != nullptr; ++variable) {
    if (!std::string_view(*variable).starts_with("PATH=")) pointers_.push_back(*variable);
  }
  pointers_.push_back(path_.data());
  pointers_.push_back(nullptr);
}

}  // namespace morvantile
