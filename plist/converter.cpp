#include "plist/converter.h"

#include <dlfcn.h>
#include <unistd.h>

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <system_error>

#include "platform/process/shell.h"

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
  for (const std::string& folder : {FolderBesideProgram(), FolderBesideLibrary()}) {
    if (HoldsConverter(folder)) return folder;
  }
  return MORVANTILE_LIBEXEC_DIR;
}

// How long the converter may take for a file: many times what it needs.
std::chrono::seconds PatienceFor(const FolderItem& file) {
  constexpr std::uintmax_t kBytesInASecond = 1'000'000;
  constexpr std::chrono::seconds kAlways{8};
  std::error_code error;
  const std::uintmax_t size = std::filesystem::file_size(file.AbsolutePath(), error);
  return error ? kAlways : kAlways + std::chrono::seconds(size / kBytesInASecond);
}

}  // namespace

bool Convert(const std::string& form, const FolderItem& file) {
  Shell shell(PatienceFor(file), FolderOfConverter());
  shell.Execute("plutil -convert " + form + " " + file.ShellPath());
  return shell.ErrorCode() == 0;
}

}  // namespace morvantile
