#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "platform/files/folder_item.h"

namespace morvantile {
namespace {

std::string AbsolutePathInEnvironment(const char* name) {
  const char* value = std::getenv(name);
  return value != nullptr && value[0] == '/' ? value : "";
}

std::string HomeInUserList() {
  passwd entry{};
  passwd* found = nullptr;
  std::vector<char> texts(16384);
  getpwuid_r(getuid(), &entry, texts.data(), texts.size(), &found);
  return found != nullptr && found->pw_dir[0] == '/' ? found->pw_dir : "";
}

Ref<FolderItem> InHome(const char* path) {
  std::string home = AbsolutePathInEnvironment("HOME");
  if (home.empty()) home = HomeInUserList();
  return New<FolderItem>(home)->Child(path);
}

}  // namespace

Ref<FolderItem> SpecialFolder::ApplicationData() {
  const std::string named = AbsolutePathInEnvironment("XDG_CONFIG_HOME");
  return named.empty() ? InHome(".config") : New<FolderItem>(named);
}

}  // namespace morvantile
