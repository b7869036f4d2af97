// The two characters that the text form of a tree escapes.

#ifndef MORVANTILE_PLIST_XML_BRACKETS_H
#define MORVANTILE_PLIST_XML_BRACKETS_H

#include <string>
#include <string_view>

namespace morvantile {

// Whether a "<" or ">" is in the text.
bool HasBracket(std::string_view text);

// Adds `text` to `result`, with "<" as "&lt;" and ">" as "&gt;". Nothing else is escaped.
void AppendEncoded(std::string& result, std::string_view text);

// Adds `text` to `result`, with "&lt;" as "<" and "&gt;" as ">", in any letter case.
void AppendDecoded(std::string& result, std::string_view text);

}  // namespace morvantile

#endif  // MORVANTILE_PLIST_XML_BRACKETS_H
