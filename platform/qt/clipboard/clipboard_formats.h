// The formats in which pictures come over the clipboard.

#ifndef MORVANTILE_PLATFORM_QT_CLIPBOARD_CLIPBOARD_FORMATS_H
#define MORVANTILE_PLATFORM_QT_CLIPBOARD_CLIPBOARD_FORMATS_H

#include <QByteArray>
#include <QStringList>

#include "platform/imaging/picture.h"

namespace morvantile {

// The offered formats that may hold a picture, best first: lossless pixels, other pixels, names of
// copied files.
QStringList PictureFormats(const QStringList& offered);

// The picture in data of one of those formats; nil if there is none.
Ref<Picture> PictureFrom(const QString& format, const QByteArray& data);

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_QT_CLIPBOARD_CLIPBOARD_FORMATS_H
