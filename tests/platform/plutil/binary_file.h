// Binary property lists built by hand.

#ifndef MORVANTILE_TESTS_PLATFORM_PLUTIL_BINARY_FILE_H
#define MORVANTILE_TESTS_PLATFORM_PLUTIL_BINARY_FILE_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace morvantile::plutil {

inline std::string BigEndian(std::uint64_t value, std::size_t width) {
  std::string bytes(width, '\0');
  for (std::size_t i = width; i-- > 0; value >>= 8U) bytes[i] = static_cast<char>(value);
  return bytes;
}

// Bytes from a text of hexadecimal digits and blanks.
inline std::string Hex(std::string_view digits) {
  std::string bytes;
  unsigned value = 0;
  std::size_t count = 0;
  for (const char digit : digits) {
    if (digit == ' ') continue;
    value = value * 16 + static_cast<unsigned>(digit <= '9' ? digit - '0' : digit - 'A' + 10);
    if (++count % 2 == 0) bytes += static_cast<char>(value);
  }
  return bytes;
}

struct Widths {
  std::size_t offset = 1;
  std::size_t reference = 1;
};

// A file of the objects `objects`, the first of them topmost.
inline std::string BinaryFile(const std::vector<std::string>& objects, Widths widths = {}) {
  std::string file = "bplist00";
  std::string offsets;
  for (const std::string& object : objects) {
    offsets += BigEndian(file.size(), widths.offset);
    file += object;
  }
  const std::size_t table = file.size();
  return file + offsets + std::string(6, '\0') + BigEndian(widths.offset, 1) +
         BigEndian(widths.reference, 1) + BigEndian(objects.size(), 8) + BigEndian(0, 8) +
         BigEndian(table, 8);
}

}  // namespace morvantile::plutil

#endif  // MORVANTILE_TESTS_PLATFORM_PLUTIL_BINARY_FILE_H
