// Reading a text file line by line.

#ifndef MORVANTILE_PLATFORM_FILES_TEXT_INPUT_STREAM_H
#define MORVANTILE_PLATFORM_FILES_TEXT_INPUT_STREAM_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/core/export.h"
#include "platform/core/ref.h"
#include "platform/files/folder_item.h"

namespace morvantile {

// The text of a file. Bytes come out as they are in the file, those that are not UTF-8 and NULs
// included. A line ends at LF, CRLF or CR, or at the end of the file. Time and memory are linear in
// the longest line; a file that shrinks or grows meanwhile is read as far as it goes.
class MORVANTILE_API TextInputStream : public Object {
 public:
  // Opens `file` at its start; or nil if it doesn't exist, may not be read, or is no regular file
  // (a folder, a pipe, a device). Links are followed. Throws NilObjectException for a nil file.
  [[nodiscard]] static Ref<TextInputStream> Open(const Ref<FolderItem>& file);

  ~TextInputStream() override;

  // True when no further line can be read, also after Close. (The C library has a macro EOF.)
  bool AtEOF() { return position_ == end_ && !Fill(); }

  // The next line without its line end; "" when there is none.
  std::string ReadLine();

  // Sets `line` to the next line without its line end and returns true, or returns false when there
  // is none. The bytes belong to the stream and stay valid until its next operation.
  bool ReadLine(std::string_view& line);

  // What has not been read yet, line ends as they are.
  std::string ReadAll();

  // Whether the file could not be read to its end; the lines until then have been returned.
  [[nodiscard]] bool ReadError() const { return failed_; }

  // Closes the file; the stream is then at its end. A further call does nothing.
  void Close();

 private:
  // The first of a kind of line end at or behind the position, or the end of the buffered bytes.
  struct Mark {
    char byte;
    std::size_t at = 0;
  };

  TextInputStream();

  std::size_t EndOfLine() const;
  std::size_t LengthOfLineEnd(std::size_t at) const;
  void MoveTo(std::size_t position);
  void Find(Mark& mark, std::size_t from);
  bool Fill();
  void MakeRoom();

  int file_ = -1;
  bool failed_ = false;
  std::vector<char> buffer_;
  std::size_t position_ = 0;
  std::size_t end_ = 0;
  Mark line_feed_{'\n'};
  Mark carriage_return_{'\r'};
};

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_FILES_TEXT_INPUT_STREAM_H
