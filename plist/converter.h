// The converter between the forms of a property list.

#ifndef MORVANTILE_PLIST_CONVERTER_H
#define MORVANTILE_PLIST_CONVERTER_H

#include <string>

#include "platform/files/folder_item.h"

namespace morvantile {

// Runs `plutil -convert` on a file, which it changes in place; `form` is "xml1" or "binary1".
// Returns whether it succeeded. The program is this project's own, whatever the user's PATH says.
// It is looked for in "libexec/morvantile" beside the folder of the running program, where it was
// installed with this library, and where the build was told to install it.
bool Convert(const std::string& form, const FolderItem& file);

}  // namespace morvantile

#endif  // MORVANTILE_PLIST_CONVERTER_H
