// The texts of scalars in an XML property list.

#ifndef MORVANTILE_PLATFORM_PLUTIL_SCALAR_TEXT_H
#define MORVANTILE_PLATFORM_PLUTIL_SCALAR_TEXT_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "platform/plutil/document.h"

namespace morvantile::plutil {

// The readers take white space around the text and return nothing for a text that means no such
// scalar.

// A decimal number or, behind "0x", a hexadecimal one, with "-" or "+" before it or not.
std::optional<Object> IntegerFromText(std::string_view text);

// What the C locale's strtod takes: "1.5", "1e6", "inf", "nan" and the like.
std::optional<double> RealFromText(std::string_view text);

// "YYYY-MM-DDThh:mm:ssZ", in seconds since 2001-01-01T00:00:00Z. Years, months, days and so on may
// lack their leading zeros, and the seconds, the whole time and the "Z" may be missing. A fraction
// may follow the seconds, and an offset from UTC, "+hh:mm", "+hhmm" or "+hh", may replace the "Z".
std::optional<double> DateFromText(std::string_view text);

// Decodes the base64 text of `size` bytes in place, white space in it or not, and returns the
// number of bytes that it encodes.
std::optional<std::size_t> DecodeBase64(char* text, std::size_t size);

std::string TextOfInteger(const Object& integer);

// The shortest text that reads back as the same number, without an exponent where that is short.
std::string TextOfReal(double value);

// The date, with a fraction of the second if it has one, as many digits as DateFromText needs to
// read the same number; or nothing outside the years 0 to 9999.
std::optional<std::string> TextOfDate(double seconds);

// Adds the base64 text of `bytes`, without line ends.
void AppendBase64(std::string_view bytes, std::string& text);

}  // namespace morvantile::plutil

#endif  // MORVANTILE_PLATFORM_PLUTIL_SCALAR_TEXT_H
