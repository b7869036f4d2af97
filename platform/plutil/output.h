// What a writer writes to.

#ifndef MORVANTILE_PLATFORM_PLUTIL_OUTPUT_H
#define MORVANTILE_PLATFORM_PLUTIL_OUTPUT_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <string_view>
#include <utility>
#include <vector>

namespace morvantile::plutil {

// Collects small pieces and hands them on as large ones.
class Output {
 public:
  using Sink = std::function<void(std::string_view)>;

  explicit Output(Sink sink) : sink_(std::move(sink)), buffer_(kBufferSize) {}

  void Append(std::string_view bytes) {
    size_ += bytes.size();
    if (bytes.size() > buffer_.size() - used_) {
      Flush();
      if (bytes.size() > buffer_.size()) return sink_(bytes);
    }
    if (!bytes.empty()) std::memcpy(buffer_.data() + used_, bytes.data(), bytes.size());
    used_ += bytes.size();
  }

  void Append(char byte) { Append({&byte, 1}); }

  // `value` as `width` bytes, 1 to 8, the most significant first.
  void AppendNumber(std::uint64_t value, unsigned width) {
    std::array<char, sizeof value> bytes;
    if (bytes.size() > buffer_.size() - used_) Flush();
    value <<= 8 * (sizeof value - width);
    for (std::size_t i = bytes.size(); i-- > 0; value >>= 8U) bytes[i] = static_cast<char>(value);
    std::memcpy(buffer_.data() + used_, bytes.data(), bytes.size());
    used_ += width;
    size_ += width;
  }

  // Hands on what is left. Called at the end.
  void Flush() { sink_({buffer_.data(), std::exchange(used_, 0)}); }

  // The number of bytes appended so far.
  [[nodiscard]] std::uint64_t Size() const { return size_; }

 private:
  static constexpr std::size_t kBufferSize = std::size_t{64} * 1024;

  Sink sink_;
  std::vector<char> buffer_;
  std::size_t used_ = 0;
  std::uint64_t size_ = 0;
};

}  // namespace morvantile::plutil

#endif  // MORVANTILE_PLATFORM_PLUTIL_OUTPUT_H
