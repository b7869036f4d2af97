// Writing the bytes of a file.

#ifndef MORVANTILE_PLATFORM_FILES_BINARY_STREAM_H
#define MORVANTILE_PLATFORM_FILES_BINARY_STREAM_H

#include <memory>
#include <string_view>

#include "platform/core/export.h"
#include "platform/core/ref.h"
#include "platform/files/folder_item.h"

namespace morvantile {

class FileReplacement;

// The new content of a file. As with TextOutputStream, Close puts it in the file's place whole.
class MORVANTILE_API BinaryStream : public Object {
 public:
  // Begins the content of `file`; or nil if the file can't be written, as with
  // FolderItem::CreateTextFile, or exists and `overwrite` is false. Throws NilObjectException for a
  // nil file.
  [[nodiscard]] static Ref<BinaryStream> Create(const Ref<FolderItem>& file, bool overwrite);

  // Adds `bytes`. A write that fails shows in Close; one after Close does nothing.
  void Write(std::string_view bytes);

  // Ends the stream and returns whether the file now holds what was written; if not, it is as it
  // was. A further call returns the same.
  [[nodiscard]] bool Close();

 protected:
  ~BinaryStream() override;

 private:
  explicit BinaryStream(std::unique_ptr<FileReplacement> file);

  std::unique_ptr<FileReplacement> file_;
  bool succeeded_ = false;
};

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_FILES_BINARY_STREAM_H
