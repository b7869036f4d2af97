#ifndef MORVANTILE_PLATFORM_QT_CLIPBOARD_PICTURE_OFFER_H
#define MORVANTILE_PLATFORM_QT_CLIPBOARD_PICTURE_OFFER_H

#include <QByteArray>
#include <QStringList>
#include <future>

#include "platform/imaging/picture.h"

namespace morvantile {

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

#endif  // MORVANTILE_PLATFORM_QT_CLIPBOARD_PICTURE_OFFER_H
