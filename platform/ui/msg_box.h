// Messages to the user.

#ifndef MORVANTILE_PLATFORM_UI_MSG_BOX_H
#define MORVANTILE_PLATFORM_UI_MSG_BOX_H

#include <string>

namespace morvantile {

// Shows `text`, modally: returns when the user has dismissed it.
void MsgBox(const std::string& text);

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_UI_MSG_BOX_H
