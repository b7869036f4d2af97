#include "platform/qt/clipboard/png_file.h"

#include <libdeflate.h>

#include <QDataStream>
#include <QIODevice>
#include <QtEndian>
#include <cstdint>
#include <memory>
#include <new>
#include <utility>

#include "platform/qt/clipboard/png_rows.h"

namespace morvantile {
namespace {

// Of the compressor. Beyond this level a screenshot takes twice as long and gets 3 % smaller.
constexpr int kLevel = 6;
constexpr int kQuickLevel = 1;

QByteArray Compressed(QByteArrayView bytes, int level) {
  const std::unique_ptr<libdeflate_compressor, decltype(&libdeflate_free_compressor)> compressor(
      libdeflate_alloc_compressor(level), libdeflate_free_compressor);
  if (compressor == nullptr) throw std::bad_alloc();
  const auto size = static_cast<std::size_t>(bytes.size());
  const std::size_t most = libdeflate_zlib_compress_bound(compressor.get(), size);
  QByteArray result(static_cast<qsizetype>(most), Qt::Uninitialized);
  result.truncate(static_cast<qsizetype>(
      libdeflate_zlib_compress(compressor.get(), bytes.data(), size, result.data(), most)));
  return result;
}

// What is drawn gets smaller without a filter, what is photographed with one. Some of the rows tell
// which it is.
Filtering FilteringFor(const Picture& picture, const Layout& layout) {
  constexpr int kBand = 16;
  constexpr int kDistance = 128;
  if (layout.type == ColourType::kPalette) return Filtering::kNone;
  const auto size = [&](Filtering filtering) {
    return Compressed(PngRows(picture, layout, filtering, kBand, kDistance), kQuickLevel).size();
  };
  return size(Filtering::kNone) < size(Filtering::kAverage) ? Filtering::kNone
                                                            : Filtering::kAverage;
}

void AppendNumber(QByteArray& file, std::uint32_t number) {
  const std::uint32_t bytes = qToBigEndian(number);
  file.append(reinterpret_cast<const char*>(&bytes), sizeof bytes);
}

void AppendChunk(QByteArray& file, QByteArrayView name, QByteArrayView content) {
  AppendNumber(file, static_cast<std::uint32_t>(content.size()));
  const qsizetype begin = file.size();
  file.append(name).append(content);
  const auto size = static_cast<std::size_t>(file.size() - begin);
  AppendNumber(file, libdeflate_crc32(0, file.constData() + begin, size));
}

void AppendHeader(QByteArray& file, const Picture& picture, const Layout& layout) {
  constexpr quint8 kOnlyMethod = 0;
  QByteArray header;
  QDataStream(&header, QIODevice::WriteOnly)
      << picture.Width() << picture.Height() << static_cast<quint8>(layout.bits)
      << static_cast<quint8>(layout.type) << kOnlyMethod << kOnlyMethod << kOnlyMethod;
  AppendChunk(file, "IHDR", header);
}

void AppendMetadata(QByteArray& file, const PictureMetadata& metadata) {
  if (metadata.profile != nullptr) {
    const QByteArray profile = Compressed(*metadata.profile, kLevel);
    AppendChunk(file, "iCCP", QByteArray("ICC profile\0\0", 13).append(profile));
  }
  if (metadata.dots_per_metre_x > 0 && metadata.dots_per_metre_y > 0) {
    constexpr quint8 kUnitIsMetre = 1;
    QByteArray density;
    QDataStream(&density, QIODevice::WriteOnly)
        << metadata.dots_per_metre_x << metadata.dots_per_metre_y << kUnitIsMetre;
    AppendChunk(file, "pHYs", density);
  }
}

void AppendPalette(QByteArray& file, const Palette& palette) {
  if (palette.Colours().empty()) return;
  QByteArray colours;
  QByteArray alphas;
  bool opaque = true;
  for (const Colour colour : palette.Colours()) {
    for (const int shift : {16, 8, 0}) colours.append(static_cast<char>(colour >> shift));
    alphas.append(static_cast<char>(colour >> 24));
    opaque = opaque && colour >> 24 == 0xFFU;
  }
  AppendChunk(file, "PLTE", colours);
  if (!opaque) AppendChunk(file, "tRNS", alphas);
}

}  // namespace

QByteArray EncodePng(Ref<Picture> picture) {
  const Layout layout = LayoutFor(*picture);
  QByteArray file = "\x89PNG\r\n\x1A\n";
  AppendHeader(file, *picture, layout);
  AppendMetadata(file, picture->metadata);
  AppendPalette(file, layout.palette);

  QByteArray rows = PngRows(*picture, layout, FilteringFor(*picture, layout));
  picture = nullptr;
  const QByteArray compressed = Compressed(rows, kLevel);
  rows.clear();
  AppendChunk(file, "IDAT", compressed);
  AppendChunk(file, "IEND", {});
  file.squeeze();
  return file;
}

}  // namespace morvantile
