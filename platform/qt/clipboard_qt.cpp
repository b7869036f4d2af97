#include "platform/qt/clipboard_qt.h"

#include <QClipboard>
#include <QEventLoop>
#include <QGuiApplication>
#include <QMimeData>

#include "platform/qt/picture_image.h"

namespace morvantile {
namespace {

// Offers a picture in the formats that everybody reads, and encodes it only when it is asked for.
class PictureOffer : public QMimeData {
 public:
  explicit PictureOffer(const Ref<Picture>& picture) : picture_(picture) {}

  QStringList formats() const override { return {"image/png", "image/bmp"}; }
  bool hasFormat(const QString& format) const override { return formats().contains(format); }

 protected:
  QVariant retrieveData(const QString& format, QMetaType /*type*/) const override {
    if (format == "image/png") {
      if (png_.isNull()) png_ = EncodePng(picture_);
      return png_;
    }
    if (format == "image/bmp") return EncodeBmp(picture_);
    return {};
  }

 private:
  Ref<Picture> picture_;
  mutable QByteArray png_;
};

// The picture formats that are offered, those that lose nothing first.
QStringList PictureFormats(const QMimeData& offer) {
  QStringList formats;
  for (const char* lossless : {"image/png", "image/bmp", "image/tiff"}) {
    if (offer.hasFormat(lossless)) formats << lossless;
  }
  for (const QString& format : offer.formats()) {
    if (format.startsWith("image/") && !formats.contains(format)) formats << format;
  }
  return formats;
}

Ref<Picture> ReadOffer(const QMimeData* offer) {
  if (offer == nullptr) return nullptr;
  for (const QString& format : PictureFormats(*offer)) {
    if (Ref<Picture> picture = DecodePicture(offer->data(format))) return picture;
  }
  return nullptr;
}

}  // namespace

QtClipboard::QtClipboard() {
  QObject::connect(QGuiApplication::clipboard(), &QClipboard::dataChanged,
                   QGuiApplication::instance(), [this] { Forget(); });
}

Ref<Picture> QtClipboard::ReadPicture() {
  if (!known_) {
    picture_ = ReadOffer(QGuiApplication::clipboard()->mimeData());
    known_ = true;
  }
  return picture_;
}

void QtClipboard::WritePicture(const Ref<Picture>& picture) {
  QGuiApplication::clipboard()->setMimeData(new PictureOffer(picture));
}

std::string QtClipboard::ReadText() const {
  return QGuiApplication::clipboard()->text().toStdString();
}

void QtClipboard::WriteText(const std::string& text) {
  QGuiApplication::clipboard()->setText(QString::fromStdString(text));
}

bool QtClipboard::Owned() const { return QGuiApplication::clipboard()->ownsClipboard(); }

void QtClipboard::ServeUntilTakenOver() {
  if (!Owned()) return;
  QEventLoop loop;
  QObject::connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, &loop, [this, &loop] {
    if (!Owned()) loop.quit();
  });
  loop.exec();
}

void QtClipboard::Forget() {
  known_ = false;
  picture_ = nullptr;
}

}  // namespace morvantile
