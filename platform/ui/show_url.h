// Web addresses.

#ifndef MORVANTILE_PLATFORM_UI_SHOW_URL_H
#define MORVANTILE_PLATFORM_UI_SHOW_URL_H

#include <string>

namespace morvantile {

// Opens the address in the user's browser and returns at once. An address that cannot be opened is
// ignored.
void ShowURL(const std::string& address);

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_UI_SHOW_URL_H
