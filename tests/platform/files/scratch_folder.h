// A folder for the files of one test.

#ifndef MORVANTILE_TESTS_PLATFORM_FILES_SCRATCH_FOLDER_H
#define MORVANTILE_TESTS_PLATFORM_FILES_SCRATCH_FOLDER_H

#include <stdlib.h>  // NOLINT(modernize-deprecated-headers): mkdtemp

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files/folder_item.h"

namespace morvantile {

// Made anew, open to every user, and deleted with all that is in it.
class ScratchFolder {
 public:
  ScratchFolder() {
    std::string path = (std::filesystem::temp_directory_path() / "scratch-XXXXXX").string();
    path_ = mkdtemp(path.data());
    std::filesystem::permissions(path_, std::filesystem::perms::all);
  }
  ~ScratchFolder() { std::filesystem::remove_all(path_); }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;

  [[nodiscard]] std::string Path(std::string_view name) const { return (path_ / name).string(); }
  [[nodiscard]] Ref<FolderItem> Item(std::string_view name) const {
    return New<FolderItem>(Path(name));
  }

  // NOLINTNEXTLINE(modernize-use-nodiscard): often only put
  Ref<FolderItem> Put(std::string_view name, std::string_view content) const {
    std::ofstream(Path(name), std::ios::binary) << content;
    return Item(name);
  }

  [[nodiscard]] std::string Content(std::string_view name) const {
    std::ifstream file(Path(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  }

  // The names of what is in the folder, sorted.
  [[nodiscard]] std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(path_)) {
      names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
  }

  [[nodiscard]] std::filesystem::perms Permissions(std::string_view name) const {
    return std::filesystem::status(Path(name)).permissions();
  }

 private:
  std::filesystem::path path_;
};

}  // namespace morvantile

#endif  // MORVANTILE_TESTS_PLATFORM_FILES_SCRATCH_FOLDER_H
