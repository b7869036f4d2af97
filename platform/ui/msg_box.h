// Messages to the user.

#ifndef MORVANTILE_PLATFORM_UI_MSG_BOX_H
#define MORVANTILE_PLATFORM_UI_MSG_BOX_H

#include <string>

#include "platform/core/export.h"

namespace morvantile {

// Shows `text`, modally: returns when the user has dismissed it.
MORVANTILE_API void MsgBox(const std::string& text);

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_UI_MSG_BOX_H
