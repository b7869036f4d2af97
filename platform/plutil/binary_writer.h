// Writing the binary form of a property list, which binary_reader.h describes.

#ifndef MORVANTILE_PLATFORM_PLUTIL_BINARY_WRITER_H
#define MORVANTILE_PLATFORM_PLUTIL_BINARY_WRITER_H

#include <optional>
#include <string>

#include "platform/plutil/document.h"
#include "platform/plutil/output.h"

namespace morvantile::plutil {

// Writes `document`. Equal scalars are written once, integers, offsets and references in the fewest
// bytes that hold them, and reals in 4 bytes if those hold their value. The same document always
// makes the same bytes. Returns nothing on success, else what is wrong: a text is not UTF-8.
std::optional<std::string> WriteBinary(const Document& document, Output& output);

}  // namespace morvantile::plutil

#endif  // MORVANTILE_PLATFORM_PLUTIL_BINARY_WRITER_H
