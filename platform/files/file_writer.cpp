#include "platform/files/file_writer.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <utility>

namespace morvantile {
namespace {

// A thread is not worth its while for less; most files are smaller.
constexpr std::size_t kLarge = std::size_t{8} << 20U;

// Has the disk begin with a part of the file, for which it would have to be waited at the end.
void BeginOnDisk([[maybe_unused]] int file, [[maybe_unused]] std::size_t begin,
                 [[maybe_unused]] std::size_t end) {
#ifdef SYNC_FILE_RANGE_WRITE
  sync_file_range(file, static_cast<off_t>(begin), static_cast<off_t>(end - begin),
                  SYNC_FILE_RANGE_WRITE);
#endif
}

}  // namespace

void FileWriter::AppendPastPiece(std::string_view bytes) {
  WritePiece();
  if (bytes.size() <= kPieceSize) return Append(bytes);
  if (writing_.valid()) writing_.get();
  Write(bytes);
}

bool FileWriter::Finish() {
  if (writing_.valid()) writing_.get();
  Write({piece_.get(), std::exchange(used_, 0)});
  return !failed_;
}

void FileWriter::WritePiece() {
  if (writing_.valid()) writing_.get();
  if (written_ >= kLarge) return WriteInBackground();
  Write({piece_.get(), std::exchange(used_, 0)});
}

void FileWriter::WriteInBackground() {
  std::swap(piece_, behind_);
  const std::string_view bytes(behind_.get(), std::exchange(used_, 0));
  const auto write = [this, bytes] {
    Write(bytes);
    BeginOnDisk(file_, begun_, written_);
    begun_ = written_;
  };
  try {
    writing_ = std::async(std::launch::async, write);
  } catch (const std::system_error&) {  // no more threads
    write();
  }
}

void FileWriter::Write(std::string_view bytes) {
  while (!bytes.empty() && !failed_) {
    const ssize_t count = write(file_, bytes.data(), bytes.size());
    if (count > 0) {
      written_ += static_cast<std::size_t>(count);
      bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    if (count < 0 && errno != EINTR) failed_ = true;
  }
}

}  // namespace morvantile
