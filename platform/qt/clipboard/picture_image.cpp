#include "platform/qt/clipboard/picture_image.h"

#include <fcntl.h>
#include <unistd.h>

#include <QBuffer>
#include <QDataStream>
#include <QImageReader>
#include <QImageWriter>
#include <QtEndian>
#include <memory>
#include <utility>

namespace morvantile {
namespace {

constexpr int kMegabyte = 1 << 20;

// Decoders complain about broken files on standard error, whoever uses them; a broken picture is
// none, and nothing to talk about.
class QuietStandardError {
 public:
  QuietStandardError() : saved_(fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 3)) {
    const int nothing = open("/dev/null", O_WRONLY | O_CLOEXEC);
    if (nothing < 0) return;
    dup2(nothing, STDERR_FILENO);
    close(nothing);
  }
  ~QuietStandardError() {
    if (saved_ < 0) return;
    dup2(saved_, STDERR_FILENO);
    close(saved_);
  }
  QuietStandardError(const QuietStandardError&) = delete;
  QuietStandardError& operator=(const QuietStandardError&) = delete;

 private:
  int saved_;
};

bool IsOpaque(const QImage& image) {
  for (int y = 0; y < image.height(); ++y) {
    const auto* row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
    QRgb all = 0xFF000000U;
    for (int x = 0; x < image.width(); ++x) all &= row[x];
    if (all != 0xFF000000U) return false;
  }
  return true;
}

bool IsTooLarge(const QSize& size) {
  return std::int64_t{4} * size.width() * size.height() > Picture::kMaxBytes;
}

QByteArray Write(const QImage& image, const char* format) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  QImageWriter(&buffer, format).write(image);
  return bytes;
}

// The file header of 14 bytes and the version 4 header of 108.
void WriteBmpHeaders(QDataStream& out, int width, int height) {
  constexpr quint32 kHeaderBytes = 14;
  constexpr quint32 kInfoBytes = 108;
  constexpr quint32 kBitFields = 3;
  constexpr quint32 kSrgb = 0x73524742;
  const quint32 pixelBytes = quint32(width) * quint32(height) * 4;
  out << quint16(0x4D42) << quint32(kHeaderBytes + kInfoBytes + pixelBytes) << quint32(0)
      << quint32(kHeaderBytes + kInfoBytes);
  out << kInfoBytes << qint32(width) << qint32(height) << quint16(1) << quint16(32) << kBitFields
      << pixelBytes << qint32(2835) << qint32(2835) << quint32(0) << quint32(0);
  out << quint32(0x00FF0000) << quint32(0x0000FF00) << quint32(0x000000FF) << quint32(0xFF000000)
      << kSrgb;
  for (int unused = 0; unused < 12; ++unused) out << quint32(0);
}

}  // namespace

QImage ImageOver(const Ref<Picture>& picture) {
  auto* keeper = new Ref<Picture>(picture);
  return {picture->Row(0),
          picture->Width(),
          picture->Height(),
          picture->Stride(),
          picture->HasAlpha() ? QImage::Format_ARGB32 : QImage::Format_RGB32,
          [](void* kept) { delete static_cast<Ref<Picture>*>(kept); },
          keeper};
}

Ref<Picture> PictureOver(const QImage& image) {
  if (image.isNull()) return nullptr;
  const bool alpha = image.hasAlphaChannel();
  auto pixels = std::make_shared<const QImage>(
      image.convertToFormat(alpha ? QImage::Format_ARGB32 : QImage::Format_RGB32));
  if (pixels->isNull()) return nullptr;
  return Picture::Wrap(pixels->width(), pixels->height(), pixels->bytesPerLine(),
                       pixels->constBits(), alpha && !IsOpaque(*pixels), pixels);
}

bool IsCutOffPng(const QByteArray& encoded) {
  constexpr qsizetype kAroundData = 12;  // length, name and checksum
  if (!encoded.startsWith("\x89PNG\r\n\x1A\n")) return false;
  for (qsizetype at = 8; at + kAroundData <= encoded.size();) {
    const qsizetype length = qFromBigEndian<quint32>(encoded.constData() + at);
    if (length > encoded.size() - at - kAroundData) return true;
    at += length + kAroundData;
  }
  return false;
}

Ref<Picture> DecodePicture(QByteArray encoded) {
  if (IsCutOffPng(encoded)) return nullptr;
  const QuietStandardError quiet;
  QBuffer buffer(&encoded);
  buffer.open(QIODevice::ReadOnly);
  QImageReader::setAllocationLimit(static_cast<int>(Picture::kMaxBytes / kMegabyte));
  QImageReader reader(&buffer);
  reader.setDecideFormatFromContent(true);
  reader.setAutoTransform(true);
  if (IsTooLarge(reader.size())) return nullptr;
  QImage image;
  if (!reader.read(&image) || IsTooLarge(image.size())) return nullptr;
  return PictureOver(image);
}

QByteArray EncodePng(const Ref<Picture>& picture) { return Write(ImageOver(picture), "PNG"); }

QByteArray EncodeBmp(const Ref<Picture>& picture) {
  if (!picture->HasAlpha()) return Write(ImageOver(picture), "BMP");
  QByteArray bytes;
  QDataStream out(&bytes, QIODevice::WriteOnly);
  out.setByteOrder(QDataStream::LittleEndian);
  WriteBmpHeaders(out, picture->Width(), picture->Height());
  for (int y = picture->Height() - 1; y >= 0; --y) {
    out.writeRawData(reinterpret_cast<const char*>(picture->Row(y)), 4 * picture->Width());
  }
  return bytes;
}

}  // namespace morvantile
