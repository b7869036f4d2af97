// The text of a date in a tree.

#ifndef MORVANTILE_PLIST_DATE_TEXT_H
#define MORVANTILE_PLIST_DATE_TEXT_H

#include <string>

#include "platform/core/date.h"
#include "plist/plistDict.h"

namespace morvantile {

// The date as in "2009-03-07T08:05:09Z". The year isn't padded, and the "Z" is only a letter of the
// text: the fields are written as they are.
std::string DateText(const plistDict& node, const Date& date);

// Sets `date` from such a text, or from only the part before the "T"; false, with `date` as it was,
// if that holds no day.
bool ReadDateText(const std::string& text, Date& date);

}  // namespace morvantile

#endif  // MORVANTILE_PLIST_DATE_TEXT_H
