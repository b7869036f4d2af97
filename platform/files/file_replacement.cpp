#include "platform/files/file_replacement.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <random>
#include <system_error>
#include <utility>

#include "platform/core/owned_descriptor.h"
#include "platform/files/file_attributes.h"

namespace morvantile {
namespace {

constexpr mode_t kPrivate = S_IRUSR | S_IWUSR;
constexpr int kMostLinks = 40;
constexpr int kMostNames = 100;

std::optional<std::string> FollowLinks(std::string path) {
  for (int i = 0; i < kMostLinks; ++i) {
    std::error_code error;
    const std::filesystem::path link(path);
    if (!std::filesystem::is_symlink(std::filesystem::symlink_status(link, error))) return path;
    const std::filesystem::path leads_to = std::filesystem::read_symlink(link, error);
    if (error) return std::nullopt;
    path = (link.parent_path() / leads_to).string();
  }
  return std::nullopt;
}

bool MayBeReplaced(const std::string& path) {
  struct stat status {};
  if (lstat(path.c_str(), &status) != 0) return errno == ENOENT;
  if (S_ISLNK(status.st_mode)) return true;
  return S_ISREG(status.st_mode) && faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0;
}

std::string FolderOf(const std::string& path) {
  const std::string folder = std::filesystem::path(path).parent_path().string();
  return folder.empty() ? "." : folder;
}

std::string UnpredictableNameIn(const std::string& folder) {
  std::random_device random;
  const std::uint64_t number = (std::uint64_t{random()} << 32U) | random();
  return folder + "/.morvantile-" + std::to_string(number);
}

// Tries unpredictable names in the folder until `make` makes a file of one that did not exist.
// Returns that, or "" if it can't be made.
template <typename Make>
std::string NameTakenIn(const std::string& folder, const Make& make) {
  for (int i = 0; i < kMostNames; ++i) {
    std::string name = UnpredictableNameIn(folder);
    if (make(name.c_str())) return name;
    if (errno != EEXIST) break;
  }
  return "";
}

std::string PathOfOpenFile(int file) { return "/proc/self/fd/" + std::to_string(file); }

}  // namespace

FileReplacement::FileReplacement(std::string target, Durability durability)
    : target_(std::move(target)), durability_(durability) {}

std::unique_ptr<FileReplacement> FileReplacement::Begin(const std::string& target, Links links,
                                                        Durability durability) {
  std::optional<std::string> path = target;
  if (links == Links::kFollow) path = FollowLinks(target);
  if (!path || path->empty() || !MayBeReplaced(*path)) return nullptr;
  std::unique_ptr<FileReplacement> replacement(new FileReplacement(*std::move(path), durability));
  if (!replacement->CreateFile()) return nullptr;
  replacement->writer_.emplace(replacement->file_);
  if (links == Links::kFollow) replacement->KeepAttributes();
  return replacement;
}

FileReplacement::~FileReplacement() {
  writer_.reset();
  if (file_ >= 0) close(file_);
  if (!new_name_.empty()) unlink(new_name_.c_str());
}

bool FileReplacement::CreateFile() {
#ifdef O_TMPFILE
  file_ = open(FolderOf(target_).c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, kPrivate);
  if (file_ >= 0 && access(PathOfOpenFile(file_).c_str(), F_OK) == 0) return true;
  if (file_ >= 0) close(file_);
#endif
  return CreateNamedFile();
}

bool FileReplacement::CreateNamedFile() {
  new_name_ = NameTakenIn(FolderOf(target_), [&](const char* name) {
    file_ = open(name, O_CREAT | O_EXCL | O_NOFOLLOW | O_WRONLY | O_CLOEXEC, kPrivate);
    return file_ >= 0;
  });
  return !new_name_.empty();
}

void FileReplacement::KeepAttributes() {
  const OwnedDescriptor old(open(target_.c_str(), O_RDONLY | O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC));
  if (old.get() >= 0) CopyExtendedAttributes(old.get(), file_);
  struct stat status {};
  if (lstat(target_.c_str(), &status) != 0) return;
  const bool group_kept = KeepOwner(file_, status);
  SetPermissions(group_kept ? status.st_mode : WithoutGroup(status.st_mode));
}

void FileReplacement::SetPermissions(mode_t mode) {
  if (fchmod(file_, mode & (S_IRWXU | S_IRWXG | S_IRWXO)) != 0) failed_ = true;
}

bool FileReplacement::Commit() {
  if (!writer_->Finish() || failed_) return false;
  if (durability_ == Durability::kSynced && fsync(file_) != 0) return false;
  if (new_name_.empty() && !LinkUnderNewName()) return false;
  if (close(std::exchange(file_, -1)) != 0) return false;
  if (rename(new_name_.c_str(), target_.c_str()) != 0) return false;
  new_name_.clear();
  return true;
}

bool FileReplacement::LinkUnderNewName() {
  const std::string open_file = PathOfOpenFile(file_);
  new_name_ = NameTakenIn(FolderOf(target_), [&](const char* name) {
    return linkat(AT_FDCWD, open_file.c_str(), AT_FDCWD, name, AT_SYMLINK_FOLLOW) == 0;
  });
  return !new_name_.empty();
}

}  // namespace morvantile
