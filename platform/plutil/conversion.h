// Between the two forms of a property list.

#ifndef MORVANTILE_PLATFORM_PLUTIL_CONVERSION_H
#define MORVANTILE_PLATFORM_PLUTIL_CONVERSION_H

#include <optional>
#include <string>

#include "platform/plutil/output.h"

namespace morvantile::plutil {

enum class Form { kXml, kBinary };

// Converts the property list in `content`, in either form, to `form` and passes the result to
// `sink`, piece by piece. `content` is used as working space. Returns nothing on success, else what
// is wrong, in a few words; what the sink got until then is of no use.
//
// Time is linear in the larger of the two sizes, and nesting is bounded by memory alone. Memory,
// the content included, stays below 8 times the larger size where the elements of an XML file take
// 16 characters or more on average, and below 16 times in any case. A binary file may refer to one
// object many times, so that a small file may hold a huge XML text; one of more than 64 MiB and
// 100 times the file's size is refused.
//
// What has no counterpart in the other form is refused and not lost: a null, a UID or an integer
// of more than 64 bits, a text with a NUL, text that is not sound UTF-16 or, on the way to the
// binary form, UTF-8, and a date outside the years 0 to 9999 on the way to XML. A set becomes an
// array, and a UID a dict with the one key "CF$UID", from which the way back makes a UID again.
// Where a date has a fraction of a second, its XML text has one too, which not every reader takes:
// else a document would lose it in being loaded and saved.
std::optional<std::string> Convert(std::string& content, Form form, Output::Sink sink);

}  // namespace morvantile::plutil

#endif  // MORVANTILE_PLATFORM_PLUTIL_CONVERSION_H
