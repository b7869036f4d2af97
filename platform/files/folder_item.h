// Files and folders by name.

#ifndef MORVANTILE_PLATFORM_FILES_FOLDER_ITEM_H
#define MORVANTILE_PLATFORM_FILES_FOLDER_ITEM_H

#include <memory>
#include <string>
#include <string_view>

#include "platform/core/export.h"
#include "platform/core/ref.h"
#include "platform/files/text_output_stream.h"

namespace morvantile {

class FileReplacement;
class PrivateFolder;
enum class Links;

// The name of a file or folder, whether or not there is one. An item holds nothing open, and what
// it says is true at the moment of the call.
//
// Names are bytes; any but NUL and "/" may be in them. An item made from an empty path or from
// one that holds a NUL names nothing: it doesn't exist and every operation on it fails.
class MORVANTILE_API FolderItem : public Object {
 public:
  // The item at `path`. A relative path is taken from the current folder at this moment.
  explicit FolderItem(std::string_view path);
  // Another item of the same name.
  FolderItem(const FolderItem& other);

  // Whether a file or folder is there. Follows links: a link to nothing doesn't exist.
  [[nodiscard]] bool Exists() const;

  // The last part of the path; "" for the topmost folder.
  [[nodiscard]] std::string Name() const;

  // The folder that the item is in; nil for the topmost folder and for an item that names nothing.
  [[nodiscard]] Ref<FolderItem> Parent() const;

  // The item `name` in this folder, whether or not either exists. A `name` with "/" in it leads on
  // to the folders below.
  [[nodiscard]] Ref<FolderItem> Child(std::string_view name) const;

  // The path from the topmost folder, without a "/" at its end; "" for an item that names nothing.
  [[nodiscard]] std::string AbsolutePath() const;

  // The absolute path as one word of a POSIX shell's command line, quoted: every byte of it,
  // blanks, quotes, line breaks and "$(...)" included, comes through, and no name is taken for an
  // option.
  [[nodiscard]] std::string ShellPath() const;

  // Makes `destination` a copy of this file, with its permission bits, and returns whether that
  // succeeded; if not, the destination is as it was. The copy is put in place whole, in one step. A
  // link at the destination is replaced and never written through; a link
  // at this item is followed. Only regular files are copied. Throws NilObjectException for nil.
  [[nodiscard]] bool CopyFileTo(const Ref<FolderItem>& destination) const;

  // Makes the content of `destination` that of this file, as CreateTextFile and a write would do
  // it: a link there is followed, and a file keeps its permissions, its owner and its group. Else
  // as CopyFileTo.
  [[nodiscard]] bool CopyContentTo(const Ref<FolderItem>& destination) const;

  // Deletes the file, the link (and not what it leads to) or the empty folder. Returns whether
  // something was deleted.
  bool Delete() const;

  // Opens the file for writing from its start, made if it doesn't exist (0600); or nil if it can't
  // be written: when it is a folder or anything else that is no regular file, when the user may not
  // write it, when its folder is missing or takes no new file, or when links lead in a circle. What
  // it held stays until the stream's Close: see TextOutputStream. A link stays a link. An existing
  // file keeps its permissions, access list and other extended attributes, and its owner and group
  // where the system allows that; further hard links of it keep the old content.
  [[nodiscard]] Ref<TextOutputStream> CreateTextFile() const;

  // Makes the folder and those above it that are missing, for the user alone (0700). Returns
  // whether there is a folder of that name now.
  bool CreateAsFolder() const;

 private:
  friend Ref<FolderItem> GetTemporaryFolderItem();
  friend class BinaryStream;

  FolderItem(std::string path, std::shared_ptr<PrivateFolder> private_folder);

  bool CopyTo(const FolderItem& target, Links links) const;
  std::unique_ptr<FileReplacement> BeginReplacement(Links links) const;

  std::string path_;
  std::shared_ptr<PrivateFolder> private_folder_;
};

// Folders that the system has a place for.
struct MORVANTILE_API SpecialFolder {
  // Where programs keep the user's settings, whether or not it exists: $XDG_CONFIG_HOME if that is
  // an absolute path, else ".config" in the user's home folder. The home folder is $HOME if that is
  // an absolute path, else the one in the system's list of users; for a user without one the item
  // names nothing.
  [[nodiscard]] static Ref<FolderItem> ApplicationData();
};

// A name for a temporary file, which doesn't exist yet and which nobody else can predict or use: it
// is in a new folder in $TMPDIR (if that is an absolute path, else /tmp) that is the user's
// alone (0700). Nil if no such folder can be made.
//
// The folder goes when the file is deleted and no other is left in it, and comes back when a file
// is made there again. As soon as no item refers to the file, the folder or anything in it, both
// go with all that is in them.
MORVANTILE_API Ref<FolderItem> GetTemporaryFolderItem();

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_FILES_FOLDER_ITEM_H
