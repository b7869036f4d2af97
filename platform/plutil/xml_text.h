// The text between the tags of an XML file.

#ifndef MORVANTILE_PLATFORM_PLUTIL_XML_TEXT_H
#define MORVANTILE_PLATFORM_PLUTIL_XML_TEXT_H

#include <cstddef>
#include <string_view>
#include <unordered_set>

#include "platform/plutil/output.h"

namespace morvantile::plutil {

// Whether XML counts the character as white space.
inline bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

// Makes each line end of the text of `size` bytes, a carriage return, a line feed or both, a line
// feed, in place, and returns the size of the result.
std::size_t NormalizeLineEnds(char* text, std::size_t size);

// The names of entities.
using EntityNames = std::unordered_set<std::string_view>;

struct Decoded {
  std::size_t size = 0;
  std::string_view problem;  // Empty on success.
};

// Replaces the references to characters and the five entities of XML in the text of `size` bytes,
// in place. An ampersand that begins no reference, as this project's own library writes it, stays.
// The problem is a reference to NUL or no character of Unicode, or to an entity in `defined`: what
// it means is not known here.
Decoded DecodeEntities(char* text, std::size_t size, const EntityNames& defined);

// Adds `text` as the content of an element. "<", ">" and "&" are written as entities, and line
// feeds and carriage returns as references, so that the text stays on one line, with the blanks at
// its line ends, for readers that go by lines. Control characters go out as they are, which not
// every reader takes. Returns false for a text with a NUL.
bool AppendEscaped(std::string_view text, Output& output);

// The same for a key, where a ">" stays as it is but in "]]>", since XML asks for no more and this
// project's own library doesn't decode keys.
bool AppendEscapedKey(std::string_view key, Output& output);

}  // namespace morvantile::plutil

#endif  // MORVANTILE_PLATFORM_PLUTIL_XML_TEXT_H
