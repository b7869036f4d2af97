// Texts between UTF-8 and UTF-16.

#ifndef MORVANTILE_PLATFORM_PLUTIL_UNICODE_H
#define MORVANTILE_PLATFORM_PLUTIL_UNICODE_H

#include <bit>
#include <optional>
#include <string>
#include <string_view>

namespace morvantile::plutil {

// Whether `text` is sound UTF-8: overlong forms, surrogates and numbers above 10FFFF are not.
bool IsUtf8(std::string_view text);

// The UTF-16 text `units`, two bytes each in the order `order`, as UTF-8; or nothing if it ends
// within a unit or half a surrogate pair is in it.
std::optional<std::string> Utf8FromUtf16(std::string_view units, std::endian order);

// The UTF-8 text `text` as UTF-16, the more significant byte first; or nothing if it is not sound
// UTF-8.
std::optional<std::string> Utf16FromUtf8(std::string_view text);

}  // namespace morvantile::plutil

#endif  // MORVANTILE_PLATFORM_PLUTIL_UNICODE_H
