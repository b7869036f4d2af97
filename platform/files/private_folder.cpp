#include "platform/files/private_folder.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <system_error>
#include <utility>

namespace morvantile {
namespace {

std::string FolderForTemporaries() {
  const char* named = std::getenv("TMPDIR");
  return named != nullptr && named[0] == '/' ? named : "/tmp";
}

bool IsOurs(const std::string& path) {
  struct stat status {};
  return lstat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode) &&
         status.st_uid == geteuid() && (status.st_mode & (S_IRWXG | S_IRWXO)) == 0;
}

}  // namespace

std::shared_ptr<PrivateFolder> PrivateFolder::Make() {
  std::string path = FolderForTemporaries() + "/morvantile-XXXXXX";
  if (mkdtemp(path.data()) == nullptr) return nullptr;
  return std::make_shared<PrivateFolder>(std::move(path));
}

PrivateFolder::PrivateFolder(std::string path) : path_(std::move(path)) {}

PrivateFolder::~PrivateFolder() {
  if (!IsOurs(path_)) return;
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

void PrivateFolder::RemoveIfEmpty() { rmdir(path_.c_str()); }

bool PrivateFolder::Ensure() { return mkdir(path_.c_str(), S_IRWXU) == 0 || IsOurs(path_); }

}  // namespace morvantile
