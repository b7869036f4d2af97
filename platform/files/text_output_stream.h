// Writing a text file line by line.

#ifndef MORVANTILE_PLATFORM_FILES_TEXT_OUTPUT_STREAM_H
#define MORVANTILE_PLATFORM_FILES_TEXT_OUTPUT_STREAM_H

#include <memory>
#include <string_view>

#include "platform/core/export.h"
#include "platform/core/ref.h"

namespace morvantile {

class FileReplacement;

// The new text of a file, from FolderItem::CreateTextFile. The bytes go out as they come in, taken
// as UTF-8. Close puts the text in the file's place whole; before it, and without it, the file is
// as it was, and a stream that is released without Close leaves nothing behind.
class MORVANTILE_API TextOutputStream : public Object {
 public:
  explicit TextOutputStream(std::unique_ptr<FileReplacement> file);

  // Adds `text`. A write that fails shows in Close; one after Close does nothing.
  void Write(std::string_view text);
  // Adds `text` and a line end, which is a line feed.
  void WriteLine(std::string_view text);
  // Ends the stream and returns whether the file now holds what was written; if not, because the
  // disk is full for one, it is as it was. A further call returns the same.
  [[nodiscard]] bool Close();

 protected:
  ~TextOutputStream() override;

 private:
  std::unique_ptr<FileReplacement> file_;
  bool succeeded_ = false;
};

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_FILES_TEXT_OUTPUT_STREAM_H
