// The encoding of an XML file.

#ifndef MORVANTILE_PLATFORM_PLUTIL_ENCODING_H
#define MORVANTILE_PLATFORM_PLUTIL_ENCODING_H

#include <optional>
#include <string>

namespace morvantile::plutil {

// Makes `content`, an XML file, UTF-8. It is UTF-16 if its first bytes say so, whatever it
// declares, else UTF-8, or the ISO-8859-1 or windows-1252 that it declares. NULs at its end are
// dropped. Returns nothing on success, else what is wrong: it is in UTF-32, declares another
// encoding and holds more than ASCII, is not sound UTF-16, or holds a NUL. Bytes that are not UTF-8
// stay.
std::optional<std::string> MakeUtf8(std::string& content);

}  // namespace morvantile::plutil

#endif  // MORVANTILE_PLATFORM_PLUTIL_ENCODING_H
