#include "platform/qt/clipboard/clipboard_formats.h"

#include "platform/qt/clipboard/copied_file.h"
#include "platform/qt/clipboard/picture_image.h"

namespace morvantile {

QStringList PictureFormats(const QStringList& offered) {
  QStringList formats;
  for (const char* lossless : {"image/png", "image/bmp", "image/tiff"}) {
    if (offered.contains(lossless)) formats << lossless;
  }
  for (const QString& format : offered) {
    if (format.startsWith("image/") && !formats.contains(format)) formats << format;
  }
  for (const QString& names : CopiedFileFormats()) {
    if (offered.contains(names)) formats << names;
  }
  return formats;
}

Ref<Picture> PictureFrom(const QString& format, const QByteArray& data) {
  return format.startsWith("image/") ? DecodePicture(data) : PictureInCopiedFile(data);
}

}  // namespace morvantile
