#include "platform/files/text_input_stream.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

#include "platform/core/huge_pages.h"

namespace morvantile {
namespace {

constexpr std::size_t kFirstCapacity = std::size_t{256} * 1024;

}  // namespace

Ref<TextInputStream> TextInputStream::Open(const Ref<FolderItem>& file) {
  Ref<TextInputStream> stream(new TextInputStream());
  stream->file_ = open(file->AbsolutePath().c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  struct stat status {};
  const bool is_regular = fstat(stream->file_, &status) == 0 && S_ISREG(status.st_mode);
  return is_regular ? stream : nullptr;
}

TextInputStream::TextInputStream() : buffer_(kFirstCapacity) {}

TextInputStream::~TextInputStream() { Close(); }

std::string TextInputStream::ReadLine() {
  std::string_view line;
  return ReadLine(line) ? std::string(line) : std::string();
}

bool TextInputStream::ReadLine(std::string_view& line) {
  if (line_feed_.at < carriage_return_.at) {
    // The whole line is there, and a line feed ends it, as with almost all lines.
    line = {buffer_.data() + position_, line_feed_.at - position_};
    position_ = line_feed_.at + 1;
    Find(line_feed_, position_);
    return true;
  }
  if (AtEOF()) return false;
  while (EndOfLine() == end_ && Fill()) {
  }
  // A CR that ends the buffer may have its LF behind it; Fill moves the line to the front.
  if (EndOfLine() + 1 == end_ && buffer_[EndOfLine()] == '\r') Fill();
  const std::size_t line_end = EndOfLine();
  line = {buffer_.data() + position_, line_end - position_};
  MoveTo(std::min(line_end + LengthOfLineEnd(line_end), end_));
  return true;
}

std::size_t TextInputStream::EndOfLine() const {
  return std::min(line_feed_.at, carriage_return_.at);
}

std::size_t TextInputStream::LengthOfLineEnd(std::size_t at) const {
  const bool is_crlf = at + 1 < end_ && buffer_[at] == '\r' && buffer_[at + 1] == '\n';
  return is_crlf ? 2 : 1;
}

void TextInputStream::MoveTo(std::size_t position) {
  position_ = position;
  for (Mark* mark : {&line_feed_, &carriage_return_}) {
    if (mark->at < position_) Find(*mark, position_);
  }
}

void TextInputStream::Find(Mark& mark, std::size_t from) {
  const void* found = std::memchr(buffer_.data() + from, mark.byte, end_ - from);
  mark.at = found == nullptr
                ? end_
                : static_cast<std::size_t>(static_cast<const char*>(found) - buffer_.data());
}

bool TextInputStream::Fill() {
  if (file_ < 0 || failed_) return false;
  MakeRoom();
  ssize_t size = 0;
  do {
    size = read(file_, buffer_.data() + end_, buffer_.size() - end_);
  } while (size < 0 && errno == EINTR);
  failed_ = size < 0;
  if (size <= 0) return false;
  const std::size_t old_end = std::exchange(end_, end_ + static_cast<std::size_t>(size));
  for (Mark* mark : {&line_feed_, &carriage_return_}) {
    if (mark->at == old_end) Find(*mark, old_end);
  }
  return true;
}

void TextInputStream::MakeRoom() {
  const std::size_t unread = end_ - position_;
  std::memmove(buffer_.data(), buffer_.data() + position_, unread);
  if (unread > buffer_.size() / 2) buffer_.resize(2 * buffer_.size());
  line_feed_.at -= position_;
  carriage_return_.at -= position_;
  position_ = 0;
  end_ = unread;
}

std::string TextInputStream::ReadAll() {
  std::string rest;
  struct stat status {};
  if (file_ >= 0 && fstat(file_, &status) == 0) {
    ReserveHugePages(rest, static_cast<std::size_t>(status.st_size));
  }
  while (!AtEOF()) {
    rest.append(buffer_.data() + position_, end_ - position_);
    MoveTo(end_);
  }
  return rest;
}

void TextInputStream::Close() {
  if (file_ >= 0) close(std::exchange(file_, -1));
  MoveTo(end_);
}

}  // namespace morvantile
