// Many small parts written to one file.

#ifndef MORVANTILE_PLATFORM_FILES_FILE_WRITER_H
#define MORVANTILE_PLATFORM_FILES_FILE_WRITER_H

#include <cstddef>
#include <cstring>
#include <future>
#include <memory>
#include <string_view>

namespace morvantile {

// Parts are collected into pieces of two megabytes. What comes after the first few pieces of a
// large content is written by another thread, a piece at a time, while the next piece is collected.
class FileWriter {
 public:
  // Writes at the place where the open file `file` (a descriptor) stands. It must stay open as long
  // as the writer lives.
  explicit FileWriter(int file) : file_(file) {}

  // Waits for what is being written; what is still collected is dropped.
  ~FileWriter() = default;
  FileWriter(const FileWriter&) = delete;
  FileWriter& operator=(const FileWriter&) = delete;

  // Adds bytes at the end. A failure shows in Finish.
  void Append(std::string_view bytes) {
    if (bytes.size() > kPieceSize - used_) return AppendPastPiece(bytes);
    if (bytes.empty()) return;
    if (!piece_) piece_ = NewPiece();
    std::memcpy(piece_.get() + used_, bytes.data(), bytes.size());
    used_ += bytes.size();
  }

  // Writes what is left. Returns false if anything of the whole content could not be written.
  bool Finish();

 private:
  static constexpr std::size_t kPieceSize = std::size_t{1} << 21U;
  static std::unique_ptr<char[]> NewPiece() {
    return std::make_unique_for_overwrite<char[]>(kPieceSize);
  }

  void AppendPastPiece(std::string_view bytes);
  void WritePiece();
  void WriteInBackground();
  void Write(std::string_view bytes);

  int file_;
  // Those of the thread while it is at work.
  bool failed_ = false;
  std::size_t written_ = 0;  // So many bytes; the disk was told of the first `begun_`.
  std::size_t begun_ = 0;

  std::unique_ptr<char[]> piece_;
  std::size_t used_ = 0;
  std::unique_ptr<char[]> behind_;  // The piece that is being written.
  std::future<void> writing_;
};

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_FILES_FILE_WRITER_H
