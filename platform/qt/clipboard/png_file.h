#ifndef MORVANTILE_PLATFORM_QT_CLIPBOARD_PNG_FILE_H
#define MORVANTILE_PLATFORM_QT_CLIPBOARD_PNG_FILE_H

#include <QByteArray>

#include "platform/imaging/picture.h"

namespace morvantile {

// The picture as a PNG file (ISO/IEC 15948), with its profile and its density as far as they are
// known. Grey and opaque pictures, and those of up to 256 colours, are stored as such: every bit of
// each pixel comes back all the same, the colours of transparent pixels included.
//
// Takes the picture over, and lets go of it as soon as the pixels are not needed any more. Throws
// std::bad_alloc if there isn't the memory: up to the size of the picture once more.
QByteArray EncodePng(Ref<Picture> picture);

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_QT_CLIPBOARD_PNG_FILE_H
