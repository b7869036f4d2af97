// Many small parts written to one file.

#ifndef MORVANTILE_PLATFORM_FILES_FILE_WRITER_H
#define MORVANTILE_PLATFORM_FILES_FILE_WRITER_H

#include <cstddef>
#include <string>
#include <string_view>

namespace morvantile {

// Small parts are collected, large ones go straight to the file.
class FileWriter {
 public:
  // Writes at the current place of the open file `file` (a descriptor), which must stay open as
  // long as the writer lives.
  explicit FileWriter(int file) : file_(file) {}
  FileWriter(const FileWriter&) = delete;
  FileWriter& operator=(const FileWriter&) = delete;

  // Adds bytes at the end. A failure shows in Finish.
  void Append(std::string_view bytes);

  // Writes what is left. Returns false if anything of the whole content could not be written.
  bool Finish();

 private:
  void Write(std::string_view bytes);

  int file_;
  bool failed_ = false;
  std::size_t written_ = 0;  // bytes in the file
  std::size_t begun_ = 0;    // of these, for as many write-back has been started
  std::string collected_;
};

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_FILES_FILE_WRITER_H
