// Files that a file manager has copied: their names are on the clipboard, not their content.

#ifndef MORVANTILE_PLATFORM_QT_CLIPBOARD_COPIED_FILE_H
#define MORVANTILE_PLATFORM_QT_CLIPBOARD_COPIED_FILE_H

#include <QByteArray>
#include <QStringList>

#include "platform/imaging/picture.h"

namespace morvantile {

// The formats of such names, the standard one first.
QStringList CopiedFileFormats();

// The picture in the one file that `names` holds, in one of those formats: a list of URIs (RFC
// 2483) or that with a line "copy" or "cut" at its top. Nil if there are several, for a file that
// is not a regular one of this machine, and for one that DecodePicture refuses. The file is only
// read. Ends the process as Patience does if the file system does not answer.
Ref<Picture> PictureInCopiedFile(const QByteArray& names);

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_QT_CLIPBOARD_COPIED_FILE_H
