// Texts in the user's language.

#ifndef MORVANTILE_PLATFORM_UI_LOCALIZED_H
#define MORVANTILE_PLATFORM_UI_LOCALIZED_H

#include <string>

namespace morvantile {

// The translation of an English text of the program, or the text itself if there is none.
std::string Localized(const std::string& text);

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_UI_LOCALIZED_H
