#include "platform/qt/clipboard/picture_image.h"

#include <fcntl.h>
#include <unistd.h>

#include <QBuffer>
#include <QColorSpace>
#include <QDataStream>
#include <QImageReader>
#include <QImageWriter>
#include <QtEndian>
#include <memory>
#include <string>
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

// The profile of a picture's metadata; null if there is none or one for other than RGB data.
std::shared_ptr<const std::string> RgbProfile(const QColorSpace& space) {
  constexpr int kDataColourSpace = 16;  // its place in the header of an ICC profile
  const QByteArray profile = space.iccProfile();
  if (profile.mid(kDataColourSpace, 4) != "RGB ") return nullptr;
  return std::make_shared<const std::string>(profile.toStdString());
}

QByteArray OpaqueBmp(const QImage& image) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  QImageWriter(&buffer, "BMP").write(image);
  return bytes;
}

// The file header of 14 bytes and the version 4 header of 108.
void WriteBmpHeaders(QDataStream& out, const QImage& image) {
  constexpr quint32 kHeaderBytes = 14;
  constexpr quint32 kInfoBytes = 108;
  constexpr quint32 kBitFields = 3;
  constexpr quint32 kSrgb = 0x73524742;
  const quint32 pixel_bytes = quint32(image.width()) * quint32(image.height()) * 4;
  out << quint16(0x4D42) << quint32(kHeaderBytes + kInfoBytes + pixel_bytes) << quint32(0)
      << quint32(kHeaderBytes + kInfoBytes);
  out << kInfoBytes << qint32(image.width()) << qint32(image.height()) << quint16(1) << quint16(32)
      << kBitFields << pixel_bytes << qint32(image.dotsPerMeterX()) << qint32(image.dotsPerMeterY())
      << quint32(0) << quint32(0);
  out << quint32(0x00FF0000) << quint32(0x0000FF00) << quint32(0x000000FF) << quint32(0xFF000000)
      << kSrgb;
  for (int unused = 0; unused < 12; ++unused) out << quint32(0);
}

}  // namespace

QImage ImageOver(const Ref<Picture>& picture) {
  auto* keeper = new Ref<Picture>(picture);
  QImage image(
      picture->Row(0), picture->Width(), picture->Height(), picture->Stride(),
      picture->HasAlpha() ? QImage::Format_ARGB32 : QImage::Format_RGB32,
      [](void* kept) { delete static_cast<Ref<Picture>*>(kept); }, keeper);
  const PictureMetadata& metadata = picture->metadata;
  if (metadata.profile != nullptr) {
    image.setColorSpace(QColorSpace::fromIccProfile(QByteArray::fromStdString(*metadata.profile)));
  }
  image.setDotsPerMeterX(metadata.dots_per_metre_x);
  image.setDotsPerMeterY(metadata.dots_per_metre_y);
  return image;
}

QImage InSrgb(QImage image) {
  image.convertToColorSpace(QColorSpace::SRgb);
  return image;
}

Ref<Picture> PictureOver(const QImage& image) {
  if (image.isNull()) return nullptr;
  const bool alpha = image.hasAlphaChannel();
  std::shared_ptr<const std::string> profile = RgbProfile(image.colorSpace());
  QImage converted = image.convertToFormat(alpha ? QImage::Format_ARGB32 : QImage::Format_RGB32);
  if (profile == nullptr) converted = InSrgb(std::move(converted));
  if (converted.isNull()) return nullptr;
  const auto pixels = std::make_shared<const QImage>(std::move(converted));
  Ref<Picture> picture = Picture::Wrap(pixels->width(), pixels->height(), pixels->bytesPerLine(),
                                       pixels->constBits(), alpha && !IsOpaque(*pixels), pixels);
  picture->metadata.profile = std::move(profile);
  return picture;
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
  // A new image has the density of the screen. A decoder that knows a density fills an image that
  // fits, and leaves what the file doesn't say as it was.
  constexpr int kUnknown = 1;
  QImage image(reader.size(), reader.imageFormat());
  const bool fits = !image.isNull();
  image.setDotsPerMeterX(kUnknown);
  image.setDotsPerMeterY(kUnknown);
  if (!reader.read(&image) || IsTooLarge(image.size())) return nullptr;
  Ref<Picture> picture = PictureOver(image);
  if (picture == nullptr || !fits || image.dotsPerMeterX() == kUnknown) return picture;
  picture->metadata.dots_per_metre_x = image.dotsPerMeterX();
  picture->metadata.dots_per_metre_y = image.dotsPerMeterY();
  return picture;
}

QByteArray EncodeBmp(const Ref<Picture>& picture) {
  const QImage image = InSrgb(ImageOver(picture));
  if (!picture->HasAlpha()) return OpaqueBmp(image);
  QByteArray bytes;
  QDataStream out(&bytes, QIODevice::WriteOnly);
  out.setByteOrder(QDataStream::LittleEndian);
  WriteBmpHeaders(out, image);
  for (int y = image.height() - 1; y >= 0; --y) {
    out.writeRawData(reinterpret_cast<const char*>(image.constScanLine(y)), 4 * image.width());
  }
  return bytes;
}

}  // namespace morvantile
