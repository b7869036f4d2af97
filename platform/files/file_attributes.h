// What a file carries besides its content, handed on to the file that replaces it.

#ifndef MORVANTILE_PLATFORM_FILES_FILE_ATTRIBUTES_H
#define MORVANTILE_PLATFORM_FILES_FILE_ATTRIBUTES_H

#include <sys/stat.h>

namespace morvantile {

// Sets the owner and group of the open file `file` to those of `old`, as far as allowed. Returns
// whether its group is now that of `old`.
bool KeepOwner(int file, const struct stat& old);

// `mode` with no more for the group than others have: the permissions for a file whose group had
// to change.
mode_t WithoutGroup(mode_t mode);

// Copies the extended attributes of the open file `from` to `to`, the access list among them.
// Those that the system refuses are left out.
void CopyExtendedAttributes(int from, int to);

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_FILES_FILE_ATTRIBUTES_H
