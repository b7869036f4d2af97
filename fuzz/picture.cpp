// Any bytes as a picture on the clipboard, in every format that the toolkit decodes. What it
// decodes comes through the formats that the program offers.

#include <QBuffer>
#include <QGuiApplication>
#include <QImageReader>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "fuzz/require.h"
#include "platform/qt/picture_image.h"

namespace morvantile {
namespace {

// Larger ones are decoded all the same, but not within the time that a fuzzer gives to one input.
constexpr std::int64_t kMostPixels = std::int64_t{1} << 20;

bool IsSmall(QByteArray& file) {
  if (IsCutOffPng(file)) return true;
  QBuffer buffer(&file);
  buffer.open(QIODevice::ReadOnly);
  QImageReader reader(&buffer);
  reader.setDecideFormatFromContent(true);
  const QSize size = reader.size();
  return std::int64_t{1} * size.width() * size.height() <= kMostPixels;
}

bool SamePixels(const Picture& one, const Picture& other) {
  if (one.Width() != other.Width() || one.Height() != other.Height()) return false;
  const auto length = static_cast<std::size_t>(one.Width()) * 4;
  for (int y = 0; y < one.Height(); ++y) {
    if (std::memcmp(one.Row(y), other.Row(y), length) != 0) return false;
  }
  return one.HasAlpha() == other.HasAlpha();
}

void DecodeAndOffer(QByteArray file) {
  if (!IsSmall(file)) return;
  const Ref<Picture> picture = DecodePicture(file);
  if (!picture || std::int64_t{1} * picture->Width() * picture->Height() > kMostPixels) return;
  for (const QByteArray& offered : {EncodePng(picture), EncodeBmp(picture)}) {
    const Ref<Picture> back = DecodePicture(offered);
    Require(back && SamePixels(*back, *picture), "an offered picture is the same picture");
  }
}

}  // namespace
}  // namespace morvantile

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
  qputenv("QT_QPA_PLATFORM", "minimal");
  qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
  static QGuiApplication application(*argc, *argv);
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  morvantile::DecodeAndOffer({reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)});
  return 0;
}
