// Any bytes as a picture on the clipboard, in every format that the toolkit decodes. What it
// decodes comes through the formats that the program offers.

#include <QBuffer>
#include <QGuiApplication>
#include <QImageReader>
#include <cstddef>
#include <cstdint>

#include "fuzz/require.h"
#include "platform/qt/clipboard/picture_image.h"
#include "platform/qt/clipboard/png_file.h"

namespace morvantile {
namespace {

// Larger ones are decoded all the same, but not within the time that a fuzzer allows for one input.
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
  if (one.HasAlpha() != other.HasAlpha()) return false;
  for (int y = 0; y < one.Height(); ++y) {
    for (int i = 0; i < 4 * one.Width(); ++i) {
      const bool counts = one.HasAlpha() || i % 4 != 3;
      if (counts && one.Row(y)[i] != other.Row(y)[i]) return false;
    }
  }
  return true;
}

void DecodeAndOffer(QByteArray file) {
  if (!IsSmall(file)) return;
  const Ref<Picture> picture = DecodePicture(file);
  if (!picture || std::int64_t{1} * picture->Width() * picture->Height() > kMostPixels) return;
  for (const QByteArray& offered : {EncodePng(picture), EncodeBmp(picture)}) {
    const Ref<Picture> back = DecodePicture(offered);
    Require(back != nullptr, "an offered picture is one");
    if (offered.startsWith("BM") && picture->metadata.profile != nullptr) continue;  // converted
    Require(SamePixels(*back, *picture), "an offered picture is the same picture");
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
