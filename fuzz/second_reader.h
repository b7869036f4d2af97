// A second implementation to hold the converter against: the C library libplist.

#ifndef MORVANTILE_FUZZ_SECOND_READER_H
#define MORVANTILE_FUZZ_SECOND_READER_H

#include <optional>
#include <string>

// What libplist sees in a property list of either form, as a text that is the same for the same
// document; nothing if it refuses the file, or is known to misread it.
std::optional<std::string> SecondReading(const std::string& file);

#endif  // MORVANTILE_FUZZ_SECOND_READER_H
