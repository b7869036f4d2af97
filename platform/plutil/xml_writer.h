// Writing a property list as XML.

#ifndef MORVANTILE_PLATFORM_PLUTIL_XML_WRITER_H
#define MORVANTILE_PLATFORM_PLUTIL_XML_WRITER_H

#include <cstdint>
#include <optional>
#include <string>

#include "platform/plutil/document.h"
#include "platform/plutil/output.h"

namespace morvantile::plutil {

// Writes `document` in lines that a reader can take one by one: one element a line, indented by a
// tab for each level up to 64 of them (more would make the size of the text the square of the
// depth), an empty container as <dict/> or <array/> and any other as two lines around its content,
// an empty string as <string></string>, data as lines of base64 between the lines <data> and
// </data>. The topmost dict is written as two lines even if it is empty. Line breaks in texts are
// written as references.
//
// Returns nothing on success, else what is wrong: the text would be of more than `most_bytes`, or
// Convert's comment tells of something that XML can't hold.
std::optional<std::string> WriteXml(const Document& document, std::uint64_t most_bytes,
                                    Output& output);

}  // namespace morvantile::plutil

#endif  // MORVANTILE_PLATFORM_PLUTIL_XML_WRITER_H
