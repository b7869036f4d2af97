#include "platform/qt/clipboard/png_file.h"

#include <libdeflate.h>

#include <QtEndian>
#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <new>
#include <string_view>
#include <utility>

#include "platform/qt/clipboard/png_rows.h"

namespace morvantile {
namespace {

// Of the compressor. Beyond this level a screenshot takes twice as long and gets 3 % smaller.
constexpr int kLevel = 6;
constexpr int kQuickLevel = 1;

Bytes Compressed(const void* bytes, std::size_t size, int level) {
  const std::unique_ptr<libdeflate_compressor, decltype(&libdeflate_free_compressor)> compressor(
      libdeflate_alloc_compressor(level), libdeflate_free_compressor);
  if (compressor == nullptr) throw std::bad_alloc();
  const std::size_t most = libdeflate_zlib_compress_bound(compressor.get(), size);
  Bytes result(most);
  result.size = libdeflate_zlib_compress(compressor.get(), bytes, size, result.data.get(), most);
  return result;
}

// What is drawn gets smaller without a filter, what is photographed with one. Some of the rows tell
// which it is.
Filtering FilteringFor(const Picture& picture, const Layout& layout) {
  constexpr int kBand = 16;
  constexpr int kDistance = 128;
  if (layout.type == ColourType::kPalette) return Filtering::kNone;
  const auto size = [&](Filtering filtering) {
    const Bytes some = PngRows(picture, layout, filtering, kBand, kDistance);
    return Compressed(some.data.get(), some.size, kQuickLevel).size;
  };
  return size(Filtering::kNone) < size(Filtering::kAverage) ? Filtering::kNone
                                                            : Filtering::kAverage;
}

// Appends to a PNG file.
class PngWriter {
 public:
  PngWriter() : file_("\x89PNG\r\n\x1A\n") {}

  void Byte(std::uint32_t byte) { file_.append(static_cast<char>(byte)); }
  void Number(std::uint32_t number) {
    std::array<char, 4> bytes{};
    qToBigEndian(number, bytes.data());
    file_.append(bytes.data(), bytes.size());
  }
  void Text(std::string_view text) {
    file_.append(text.data(), static_cast<qsizetype>(text.size()));
  }
  void Data(const Bytes& bytes) {
    file_.append(reinterpret_cast<const char*>(bytes.data.get()),
                 static_cast<qsizetype>(bytes.size));
  }

  // A chunk of what `content` appends.
  template <typename Content>
  void Chunk(std::string_view name, const Content& content) {
    const qsizetype begin = file_.size();
    Number(0);
    Text(name);
    content();
    const auto named = static_cast<std::size_t>(file_.size() - begin - 4);
    qToBigEndian(static_cast<std::uint32_t>(named - name.size()), file_.data() + begin);
    Number(libdeflate_crc32(0, file_.constData() + begin + 4, named));
  }

  QByteArray Take() {
    file_.squeeze();
    return std::move(file_);
  }

 private:
  QByteArray file_;
};

void WriteHeader(PngWriter& file, const Picture& picture, const Layout& layout) {
  file.Chunk("IHDR", [&] {
    file.Number(static_cast<std::uint32_t>(picture.Width()));
    file.Number(static_cast<std::uint32_t>(picture.Height()));
    file.Byte(static_cast<std::uint32_t>(layout.bits));
    file.Byte(static_cast<std::uint32_t>(layout.type));
    for (int default_method = 0; default_method < 3; ++default_method) file.Byte(0);
  });
}

void WriteMetadata(PngWriter& file, const PictureMetadata& metadata) {
  using namespace std::string_view_literals;
  if (metadata.profile != nullptr) {
    file.Chunk("iCCP", [&] {
      file.Text("ICC profile\0\0"sv);
      file.Data(Compressed(metadata.profile->data(), metadata.profile->size(), kLevel));
    });
  }
  if (metadata.dots_per_metre_x > 0 && metadata.dots_per_metre_y > 0) {
    constexpr std::uint32_t kUnitIsMetre = 1;
    file.Chunk("pHYs", [&] {
      file.Number(static_cast<std::uint32_t>(metadata.dots_per_metre_x));
      file.Number(static_cast<std::uint32_t>(metadata.dots_per_metre_y));
      file.Byte(kUnitIsMetre);
    });
  }
}

void WritePalette(PngWriter& file, const Palette& palette) {
  if (palette.Colours().empty()) return;
  file.Chunk("PLTE", [&] {
    for (const Colour colour : palette.Colours()) {
      for (const int shift : {16, 8, 0}) file.Byte(colour >> shift & 0xFFU);
    }
  });
  const auto is_opaque = [](Colour colour) { return colour >> 24 == 0xFFU; };
  if (std::all_of(palette.Colours().begin(), palette.Colours().end(), is_opaque)) return;
  file.Chunk("tRNS", [&] {
    for (const Colour colour : palette.Colours()) file.Byte(colour >> 24);
  });
}

}  // namespace

QByteArray EncodePng(Ref<Picture> picture) {
  const Layout layout = LayoutFor(*picture);
  PngWriter file;
  WriteHeader(file, *picture, layout);
  WriteMetadata(file, picture->metadata);
  WritePalette(file, layout.palette);

  Bytes rows = PngRows(*picture, layout, FilteringFor(*picture, layout));
  picture = nullptr;
  const Bytes compressed = Compressed(rows.data.get(), rows.size, kLevel);
  rows.data = nullptr;
  file.Chunk("IDAT", [&] { file.Data(compressed); });
  file.Chunk("IEND", [] {});
  return file.Take();
}

}  // namespace morvantile
