// The binary form of a property list, "bplist00".
//
// The format is that of Apple's CoreFoundation, described in the comment at the top of its
// published source file CFBinaryPList.c. All numbers have their most significant byte first.
//
//   header        "bplist00"
//   objects       each a marker byte and its content
//   offset table  the offset of each object from the file's start, all of one width
//   trailer       32 bytes: 6 unused, the width of an offset, the width of a reference, and in 8
//                 bytes each the number of objects, the number of the topmost one and the offset of
//                 the offset table
//
//   marker        object
//   00            null
//   08, 09        false, true
//   10 to 14      integer of 1, 2, 4, 8 or 16 bytes; those of 8 and 16 have a sign
//   22, 23        real of 4 or 8 bytes, in the form of IEEE 754
//   33            date: seconds since 2001-01-01T00:00:00Z as a real of 8 bytes
//   4n            data of n bytes
//   5n, 6n        text of n ASCII characters, or of n units of UTF-16; some programs write UTF-8
//                 of n bytes as 5n
//   8n            UID of n + 1 bytes
//   An, Bn, Cn    array, ordered set, set of n references to objects
//   Dn            dict of n references to keys and then n references to values
//
// An n of 15 means that the size follows, as an integer object. A reference is the
// number of an object, which is its place in the offset table.

#ifndef MORVANTILE_PLATFORM_PLUTIL_BINARY_READER_H
#define MORVANTILE_PLATFORM_PLUTIL_BINARY_READER_H

#include <optional>
#include <string>
#include <string_view>

#include "platform/plutil/document.h"

namespace morvantile::plutil {

// Whether `content` claims to be in the binary form, in any version of it.
bool LooksBinary(std::string_view content);

// Reads `content`, of less than 4 GiB, into the empty `document`, whose bytes and texts then lie in
// `content`. Returns nothing on success, else what is wrong. NULs and white space behind the
// trailer are passed over. Objects that the topmost one doesn't lead to are not looked at; objects
// that share bytes of the file are refused, as are containers that contain themselves, so that time
// and memory are bounded by the file's size.
std::optional<std::string> ReadBinary(std::string_view content, Document& document);

}  // namespace morvantile::plutil

#endif  // MORVANTILE_PLATFORM_PLUTIL_BINARY_READER_H
