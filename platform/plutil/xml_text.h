// The text between the tags of an XML file.

#ifndef MORVANTILE_PLATFORM_PLUTIL_XML_TEXT_H
#define MORVANTILE_PLATFORM_PLUTIL_XML_TEXT_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "platform/plutil/output.h"

namespace morvantile::plutil {

// Makes `content`, an XML file in UTF-8 or UTF-16, UTF-8. Returns nothing on success, else what is
// wrong: it is in UTF-32, not sound UTF-16, or holds a NUL. Bytes that are not UTF-8 are let pass.
std::optional<std::string> MakeUtf8(std::string& content);

// Makes each line end of the text of `size` bytes, a carriage return, a line feed or both, a line
// feed, in place, and returns the size of the result.
std::size_t NormalizeLineEnds(char* text, std::size_t size);

// Replaces the references to characters and the five entities of XML in the text of `size` bytes,
// in place, and returns the size of the result. An ampersand that begins no reference, as this
// project's own library writes it, stays. Returns nothing if a reference means no character of
// Unicode or NUL.
std::optional<std::size_t> DecodeEntities(char* text, std::size_t size);

// Adds `text` as the content of an element. "<", ">" and "&" are written as entities, and a
// carriage return as a reference, since a reader would make a line feed of it. Control characters
// go out as they are, which not every reader takes. Returns false for a text with a NUL.
bool AppendEscaped(std::string_view text, Output& output);

// The same for a key, where a line feed is written as a reference as well, so that the key stays on
// one line.
bool AppendEscapedKey(std::string_view key, Output& output);

}  // namespace morvantile::plutil

#endif  // MORVANTILE_PLATFORM_PLUTIL_XML_TEXT_H
