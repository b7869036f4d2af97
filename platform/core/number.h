// Conversions between numbers that cannot fail.

#ifndef MORVANTILE_PLATFORM_CORE_NUMBER_H
#define MORVANTILE_PLATFORM_CORE_NUMBER_H

#include <cstdint>

namespace morvantile {

// `value` without its fraction, towards zero. A value outside the range of the result becomes the
// nearest end of that range, and a NaN becomes 0.
std::int64_t Truncate(double value);

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_CORE_NUMBER_H
