// Reading an XML property list.

#ifndef MORVANTILE_PLATFORM_PLUTIL_XML_READER_H
#define MORVANTILE_PLATFORM_PLUTIL_XML_READER_H

#include <optional>
#include <string>

#include "platform/plutil/document.h"

namespace morvantile::plutil {

// Reads `content`, of less than 4 GiB, into the empty `document`, whose bytes and texts then lie in
// `content`, which is changed for it. Returns nothing on success, else what is wrong.
//
// Any well-formed XML in an encoding that MakeUtf8 knows is read whose topmost element is <plist>
// with one element in it, or that element itself. The elements are those of Apple's DTD
// "PropertyList-1.0", with or without regard to letter case, and <double>, which means the same as
// <real>; others are refused, and so is a text that uses an entity of the document's own type.
// Attributes and what else the type declares are not looked at. More than the rules of XML allow,
// an ampersand may stand for itself, and texts may hold control characters and bytes that are not
// UTF-8. A dict with the one key "CF$UID" and a number that is not negative is a UID.
std::optional<std::string> ReadXml(std::string& content, Document& document);

}  // namespace morvantile::plutil

#endif  // MORVANTILE_PLATFORM_PLUTIL_XML_READER_H
