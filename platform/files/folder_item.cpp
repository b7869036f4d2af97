#include "platform/files/folder_item.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <filesystem>
#include <system_error>
#include <utility>
#include <vector>

#include "platform/core/owned_descriptor.h"
#include "platform/files/file_replacement.h"
#include "platform/files/private_folder.h"
#include "platform/text/text.h"

namespace morvantile {
namespace {

std::string AbsolutePathOf(std::string_view path) {
  if (path.empty() || path.find('\0') != std::string_view::npos) return "";
  std::string absolute(path);
  if (path.front() != '/') {
    std::error_code error;
    const std::filesystem::path current = std::filesystem::current_path(error);
    if (error) return "";
    absolute = (current / path).string();
  }
  while (absolute.size() > 1 && absolute.back() == '/') absolute.pop_back();
  return absolute;
}

bool CopyBytes(int from, FileReplacement& to) {
  constexpr std::size_t kPiece = std::size_t{256} * 1024;
  std::vector<char> piece(kPiece);
  for (;;) {
    const ssize_t size = read(from, piece.data(), kPiece);
    if (size == 0) return true;
    if (size > 0) to.Append({piece.data(), static_cast<std::size_t>(size)});
    if (size < 0 && errno != EINTR) return false;
  }
}

}  // namespace

FolderItem::FolderItem(std::string_view path) : path_(AbsolutePathOf(path)) {}

FolderItem::FolderItem(const FolderItem& other)
    : Object(),  // NOLINT(readability-redundant-member-init): the compiler asks for it
      path_(other.path_),
      private_folder_(other.private_folder_) {}

FolderItem::FolderItem(std::string path, std::shared_ptr<PrivateFolder> private_folder)
    : path_(std::move(path)), private_folder_(std::move(private_folder)) {}

bool FolderItem::Exists() const { return access(path_.c_str(), F_OK) == 0; }

std::string FolderItem::Name() const { return path_.substr(path_.rfind('/') + 1); }

Ref<FolderItem> FolderItem::Parent() const {
  if (path_.size() <= 1) return nullptr;
  const std::size_t slash = path_.rfind('/');
  const bool leaves = private_folder_ != nullptr && path_ == private_folder_->Path();
  return Ref<FolderItem>(
      new FolderItem(path_.substr(0, slash == 0 ? 1 : slash), leaves ? nullptr : private_folder_));
}

Ref<FolderItem> FolderItem::Child(std::string_view name) const {
  std::string path;
  if (!path_.empty()) path = path_ == "/" ? path_ : path_ + "/";
  if (!path.empty()) path = AbsolutePathOf(path.append(name));
  return Ref<FolderItem>(new FolderItem(std::move(path), private_folder_));
}

std::string FolderItem::AbsolutePath() const { return path_; }

std::string FolderItem::ShellPath() const { return "'" + ReplaceAll(path_, "'", "'\\''") + "'"; }

bool FolderItem::CopyFileTo(const Ref<FolderItem>& destination) const {
  return CopyTo(*destination, Links::kReplace);
}

bool FolderItem::CopyContentTo(const Ref<FolderItem>& destination) const {
  return CopyTo(*destination, Links::kFollow);
}

bool FolderItem::CopyTo(const FolderItem& target, Links links) const {
  const OwnedDescriptor source(open(path_.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  struct stat status {};
  if (fstat(source.get(), &status) != 0 || !S_ISREG(status.st_mode)) return false;
  const auto replacement = target.BeginReplacement(links);
  if (replacement == nullptr || !CopyBytes(source.get(), *replacement)) return false;
  if (links == Links::kReplace) replacement->SetPermissions(status.st_mode);
  return replacement->Commit();
}

bool FolderItem::Delete() const {
  const bool deleted = std::remove(path_.c_str()) == 0;
  if (private_folder_ != nullptr) private_folder_->RemoveIfEmpty();
  return deleted;
}

Ref<TextOutputStream> FolderItem::CreateTextFile() const {
  auto replacement = BeginReplacement(Links::kFollow);
  if (replacement == nullptr) return nullptr;
  return New<TextOutputStream>(std::move(replacement));
}

bool FolderItem::CreateAsFolder() const {
  for (std::size_t end = 1; end < path_.size(); ++end) {
    end = std::min(path_.find('/', end), path_.size());
    mkdir(path_.substr(0, end).c_str(), S_IRWXU);
  }
  struct stat status {};
  return stat(path_.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

std::unique_ptr<FileReplacement> FolderItem::BeginReplacement(Links links) const {
  if (private_folder_ != nullptr && !private_folder_->Ensure()) return nullptr;
  return FileReplacement::Begin(path_, links,
                                private_folder_ != nullptr ? FileReplacement::Durability::kTemporary
                                                           : FileReplacement::Durability::kSynced);
}

Ref<FolderItem> GetTemporaryFolderItem() {
  std::shared_ptr<PrivateFolder> folder = PrivateFolder::Make();
  if (folder == nullptr) return nullptr;
  std::string path = folder->Path() + "/temporary";
  return Ref<FolderItem>(new FolderItem(std::move(path), std::move(folder)));
}

}  // namespace morvantile
