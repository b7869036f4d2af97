// New content for a file, put in the file's place whole or not at all.

#ifndef MORVANTILE_PLATFORM_FILES_FILE_REPLACEMENT_H
#define MORVANTILE_PLATFORM_FILES_FILE_REPLACEMENT_H

#include <sys/types.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/files/file_writer.h"

namespace morvantile {

enum class Links {
  kFollow,   // A link at the target stays, and the file that it leads to is replaced or made.
  kReplace,  // A link at the target is replaced itself; nothing is written through it.
};

// The content is collected in a new file in the target's folder, which takes the target's name in
// Commit. Until then the target stays as it is, so a full disk, a crash or a kill at any moment
// leaves the old file or the new one, whole. The new file can't be predicted or planted: it has no
// name at all before Commit where the file system can do that, else an unpredictable one that did
// not exist before.
//
// A target that is new is readable and writable by its owner alone (0600).
class FileReplacement {
 public:
  enum class Durability {
    kSynced,     // The content is on the disk before the target's name leads to it.
    kTemporary,  // For files that need not outlive the machine's next crash.
  };

  // Begins the replacement of the file at the path `target`, or returns null and changes nothing:
  // when the target is a folder or anything else that is no regular file, when it may not be
  // written, when its folder is missing or takes no new file (then not even a writable target is
  // written in place, since a crash meanwhile would lose it), or when links lead in a circle.
  //
  // With Links::kFollow the permissions, access list and other extended attributes of an existing
  // target are kept, and its owner and group where the system allows that. Further hard links of
  // the target keep the old content.
  static std::unique_ptr<FileReplacement> Begin(const std::string& target, Links links,
                                                Durability durability);

  // Without a Commit before it: the target stays as it is, and nothing is left beside it.
  ~FileReplacement();
  FileReplacement(const FileReplacement&) = delete;
  FileReplacement& operator=(const FileReplacement&) = delete;

  // Adds to the content. A failure shows in Commit.
  void Append(std::string_view bytes) { writer_->Append(bytes); }

  // Sets the permission bits of the new file; bits other than read, write and execute are dropped.
  void SetPermissions(mode_t mode);

  // Puts the content in place. Returns false, with the target as it was, if anything went wrong
  // since Begin. Called once, as the last operation.
  bool Commit();

 private:
  FileReplacement(std::string target, Durability durability);

  bool CreateFile();
  bool CreateNamedFile();
  bool LinkUnderNewName();
  void KeepAttributes();

  std::string target_;
  std::string new_name_;  // Path of the new file, empty as long as it has no name.
  Durability durability_;
  int file_ = -1;
  bool failed_ = false;
  std::optional<FileWriter> writer_;
};

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_FILES_FILE_REPLACEMENT_H
