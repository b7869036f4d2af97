#include "platform/files/file_writer.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

namespace morvantile {

void FileWriter::Append(std::string_view bytes) {
  constexpr std::size_t kLarge = std::size_t{64} * 1024;
  if (collected_.size() + bytes.size() < kLarge) {
    collected_ += bytes;
    return;
  }
  Write(collected_);
  collected_.clear();
  Write(bytes);
}

bool FileWriter::Finish() {
  Write(collected_);
  collected_.clear();
  return !failed_;
}

// Starts write-back of a large file while it is being written, which shortens the final fsync.
void FileWriter::Write(std::string_view bytes) {
  constexpr std::size_t kWorthStarting = std::size_t{8} << 20;
  while (!bytes.empty() && !failed_) {
    const ssize_t count = write(file_, bytes.data(), bytes.size());
    if (count > 0) {
      written_ += static_cast<std::size_t>(count);
      bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    if (count < 0 && errno != EINTR) failed_ = true;
  }
  if (written_ - begun_ < kWorthStarting) return;
  sync_file_range(file_, static_cast<off_t>(begun_), static_cast<off_t>(written_ - begun_),
                  SYNC_FILE_RANGE_WRITE);
  begun_ = written_;
}

}  // namespace morvantile
