// The formats in which pictures travel over the clipboard.

#ifndef MORVANTILE_PLATFORM_QT_CLIPBOARD_CLIPBOARD_FORMATS_H
#define MORVANTILE_PLATFORM_QT_CLIPBOARD_CLIPBOARD_FORMATS_H

#include <QByteArray>
#include <QStringList>

#include "platform/imaging/picture.h"

namespace morvantile {

// Those of the offered formats in which there can be a picture: pixels, in the formats that lose
// nothing first, and then the names of copied files.
QStringList PictureFormats(const QStringList& offered);

// The picture in data of one of those formats; nil if there is none.
Ref<Picture> PictureFrom(const QString& format, const QByteArray& data);

// A picture in the formats that everybody reads, encoded when it is asked for.
class PictureOffer {
 public:
  explicit PictureOffer(const Ref<Picture>& picture) : picture_(picture) {}

  static QStringList Formats() { return {"image/png", "image/bmp"}; }
  // The picture in one of these formats; empty for any other. The PNG file is made once.
  QByteArray In(const QString& format) const;

 private:
  Ref<Picture> picture_;
  mutable QByteArray png_;
};

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_QT_CLIPBOARD_CLIPBOARD_FORMATS_H
