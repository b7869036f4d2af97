// The folder behind a temporary item.

#ifndef MORVANTILE_PLATFORM_FILES_PRIVATE_FOLDER_H
#define MORVANTILE_PLATFORM_FILES_PRIVATE_FOLDER_H

#include <memory>
#include <string>

namespace morvantile {

// A folder of an unpredictable name that only the user can enter, shared by the items in it. When
// the last of them goes, so does the folder with all that is in it.
class PrivateFolder {
 public:
  // Makes a folder in $TMPDIR or /tmp, or returns null.
  static std::shared_ptr<PrivateFolder> Make();

  explicit PrivateFolder(std::string path);
  ~PrivateFolder();
  PrivateFolder(const PrivateFolder&) = delete;
  PrivateFolder& operator=(const PrivateFolder&) = delete;

  [[nodiscard]] const std::string& Path() const { return path_; }

  // Deletes the folder if nothing is in it.
  void RemoveIfEmpty();

  // Makes the folder again if it was removed. Returns false if it can't be made, or if somebody
  // else made something of its name meanwhile.
  bool Ensure();

 private:
  std::string path_;
};

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_FILES_PRIVATE_FOLDER_H
