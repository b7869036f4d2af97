#include "platform/files/file_attributes.h"

#include <sys/xattr.h>
#include <unistd.h>

#include <cstddef>
#include <string>

namespace morvantile {

bool KeepOwner(int file, const struct stat& old) {
  struct stat now {};
  if (fstat(file, &now) != 0) return false;
  if (now.st_uid == old.st_uid && now.st_gid == old.st_gid) return true;
  if (fchown(file, old.st_uid, old.st_gid) == 0) return true;
  return now.st_gid == old.st_gid || fchown(file, static_cast<uid_t>(-1), old.st_gid) == 0;
}

mode_t WithoutGroup(mode_t mode) {
  const mode_t as_others = (mode & S_IRWXO) << 3U;
  return mode & (~static_cast<mode_t>(S_IRWXG) | as_others);
}

namespace {

void CopyExtendedAttribute(int from, int to, const char* name) {
  const ssize_t size = fgetxattr(from, name, nullptr, 0);
  if (size < 0) return;
  std::string value(static_cast<std::size_t>(size), '\0');
  if (fgetxattr(from, name, value.data(), value.size()) != size) return;
  fsetxattr(to, name, value.data(), value.size(), 0);
}

}  // namespace

void CopyExtendedAttributes(int from, int to) {
  const ssize_t size = flistxattr(from, nullptr, 0);
  if (size <= 0) return;
  std::string names(static_cast<std::size_t>(size), '\0');
  const ssize_t filled = flistxattr(from, names.data(), names.size());
  if (filled <= 0) return;
  names.resize(static_cast<std::size_t>(filled));
  for (std::size_t at = 0; at < names.size();
       at += std::char_traits<char>::length(&names[at]) + 1) {
    CopyExtendedAttribute(from, to, &names[at]);
  }
}

}  // namespace morvantile
