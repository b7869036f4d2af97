// Functions over texts.
//
// A text is a std::string in UTF-8. Lengths and positions count characters, and the first has the
// position 1. A byte that is no part of valid UTF-8 is one character, and comes through unchanged.
// Comparison is without regard to letter case, as SameText of folding.h does it. No function looks
// at the locale.

#ifndef MORVANTILE_PLATFORM_TEXT_TEXT_H
#define MORVANTILE_PLATFORM_TEXT_TEXT_H

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/core/export.h"

namespace morvantile {

// The number of characters.
MORVANTILE_API std::int64_t Len(std::string_view text);

// The first `count` characters; all of a shorter text, and none if `count` is 0 or less.
MORVANTILE_API std::string Left(std::string_view text, std::int64_t count);

// The last `count` characters; all of a shorter text, and none if `count` is 0 or less.
MORVANTILE_API std::string Right(std::string_view text, std::int64_t count);

// The characters from position `start` on; one below 1 is taken as 1.
MORVANTILE_API std::string Mid(std::string_view text, std::int64_t start);

// The first `count` of them; fewer if the text ends before.
MORVANTILE_API std::string Mid(std::string_view text, std::int64_t start, std::int64_t count);

// The position of the first occurrence of `part`, or 0 if there is none. An empty `part` occurs at
// the beginning of every text, an empty one included.
MORVANTILE_API std::int64_t InStr(std::string_view text, std::string_view part);

// The same for the first occurrence that begins at position `start` or behind it; one below 1 is
// taken as 1.
MORVANTILE_API std::int64_t InStr(std::int64_t start, std::string_view text, std::string_view part);

// The number of pieces into which `separator` cuts the text: one more than its occurrences, so 1
// for an empty text. An empty `separator` cuts nothing.
MORVANTILE_API std::int64_t CountFields(std::string_view text, std::string_view separator);

// The piece of that number, from 1 on; "" if there is none.
MORVANTILE_API std::string NthField(std::string_view text, std::string_view separator,
                                    std::int64_t number);

// The text with every occurrence of `part` replaced; occurrences don't overlap, the first one
// counts. An empty `part` occurs nowhere.
MORVANTILE_API std::string ReplaceAll(std::string_view text, std::string_view part,
                                      std::string_view replacement);

// The character of that code point; "" for a number that is none.
MORVANTILE_API std::string Chr(std::int64_t code);

// The code point of the first character, for a byte that is no part of valid UTF-8 the byte; -1 for
// an empty text.
MORVANTILE_API std::int64_t Asc(std::string_view text);

// The number in decimal digits.
MORVANTILE_API std::string Str(std::int64_t value);
MORVANTILE_API std::string Str(int value);

// The shortest text that CDbl reads back as the same number: digits, with a point if there is a
// fraction, and with an exponent where that is shorter, but never for a whole number below 1e15.
// The others are "inf", "-inf" and "nan".
MORVANTILE_API std::string Str(double value);

// The number that the text begins with; 0 if it begins with none. Blanks, tabs and line ends in
// front are skipped, and anything may follow. A number is decimal, with a sign, a point and an
// exponent if need be, or hexadecimal behind "&h". The nearest double is taken, an infinity beyond
// their range. "inf", "infinity" and "nan" count as numbers if nothing but blanks follows.
MORVANTILE_API double CDbl(std::string_view text);

// The number that the text begins with, as CDbl reads it, without its fraction. All digits of a
// 64-bit integer count; a number beyond their range becomes the nearest of them.
MORVANTILE_API std::int64_t CInt64(std::string_view text);

// Whether the whole text, blanks around it apart, is a number in digits as CDbl reads it.
MORVANTILE_API bool ReadsAsNumber(std::string_view text);

// The number in upper-case hexadecimal; a negative one as its two's complement.
MORVANTILE_API std::string Hex(std::int64_t value);

// The number without its fraction, laid out by `mask`: "#" is its digits, "-" for a minus
// if it is below 0; other characters stand for themselves. A number beyond the range of doubles
// becomes the nearest 64-bit integer, and one that is not a number becomes 0.
MORVANTILE_API std::string Format(double value, std::string_view mask);

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_TEXT_TEXT_H
