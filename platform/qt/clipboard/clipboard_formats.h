// The formats in which pictures travel over the clipboard.

#ifndef MORVANTILE_PLATFORM_QT_CLIPBOARD_CLIPBOARD_FORMATS_H
#define MORVANTILE_PLATFORM_QT_CLIPBOARD_CLIPBOARD_FORMATS_H

#include <QByteArray>
#include <QStringList>
#include <future>

#include "platform/imaging/picture.h"

namespace morvantile {

// Those of the offered formats in which there can be a picture: pixels, in the formats that lose
// nothing first, and then the names of copied files.
QStringList PictureFormats(const QStringList& offered);

// The picture in data of one of those formats; nil if there is none.
Ref<Picture> PictureFrom(const QString& format, const QByteArray& data);

// A picture in the formats that everybody reads. It is encoded once, as a PNG file, and only that
// is kept: other forms are made from it when they are asked for.
class PictureOffer {
 public:
  explicit PictureOffer(const Ref<Picture>& picture) : picture_(picture) {}

  static QStringList Formats() { return {"image/png", "image/bmp"}; }

  // Begins to encode, in a thread of low priority. It takes the picture over: nobody may touch it
  // before In has returned or the offer has gone, which waits for the end of the thread.
  void Encode();
  // The picture in one of the formats; empty for any other, and if there isn't the memory. Waits
  // for the rest of the encoding, or for all of it.
  QByteArray In(const QString& format);

 private:
  Ref<Picture> picture_;
  std::shared_future<QByteArray> png_;
};

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_QT_CLIPBOARD_CLIPBOARD_FORMATS_H
