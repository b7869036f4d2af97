#include "platform/qt/clipboard/png_rows.h"

#include <cstring>
#include <utility>

namespace morvantile {
namespace {

Colour ColourAt(const Picture& picture, int x, int y) {
  Colour colour = 0;
  std::memcpy(&colour, picture.Row(y) + std::ptrdiff_t{4} * x, sizeof colour);
  return picture.HasAlpha() ? colour : colour | 0xFF000000U;
}

bool IsGrey(Colour colour) {
  return (colour & 0xFFU) == (colour >> 8 & 0xFFU) && (colour & 0xFFU) == (colour >> 16 & 0xFFU);
}

void PackIndices(const Picture& picture, int y, const Layout& layout, std::uint8_t* out) {
  std::memset(out, 0, layout.RowBytes(picture.Width()));
  Colour before = ~ColourAt(picture, 0, y);
  int index = 0;
  for (int x = 0; x < picture.Width(); ++x) {
    const int bit = x % (8 / layout.bits) * layout.bits;
    const Colour colour = ColourAt(picture, x, y);
    if (colour != before) index = layout.palette.IndexOf(colour);
    before = colour;
    out[x / (8 / layout.bits)] |= static_cast<std::uint8_t>(index << (8 - layout.bits - bit));
  }
}

void PackRow(const Picture& picture, int y, const Layout& layout, std::uint8_t* out) {
  if (layout.type == ColourType::kPalette) return PackIndices(picture, y, layout, out);
  const std::uint8_t* pixel = picture.Row(y);
  for (int x = 0; x < picture.Width(); ++x, pixel += 4) {
    *out++ = pixel[2];
    if (layout.type == ColourType::kGrey) continue;
    *out++ = pixel[1];
    *out++ = pixel[0];
    if (layout.type == ColourType::kRgba) *out++ = pixel[3];
  }
}

}  // namespace

bool Palette::Add(Colour colour) {
  if (indices_.contains(colour)) return true;
  if (colours_.size() == kMost) return false;
  indices_[colour] = static_cast<int>(colours_.size());
  colours_.push_back(colour);
  return true;
}

Layout LayoutFor(const Picture& picture) {
  Palette palette;
  bool few = true;
  bool opaque = true;
  bool grey = picture.metadata.profile == nullptr;
  for (int y = 0; y < picture.Height() && (few || grey || (opaque && picture.HasAlpha())); ++y) {
    Colour before = ~ColourAt(picture, 0, y);
    for (int x = 0; x < picture.Width(); ++x) {
      const Colour colour = ColourAt(picture, x, y);
      if (colour == before) continue;
      before = colour;
      few = few && palette.Add(colour);
      opaque = opaque && colour >> 24 == 0xFFU;
      grey = grey && opaque && IsGrey(colour);
    }
  }
  const std::size_t colours = palette.Colours().size();
  if (few && colours <= 2) return {ColourType::kPalette, 1, 1, palette};
  if (few && colours <= 4) return {ColourType::kPalette, 2, 1, palette};
  if (few && colours <= 16) return {ColourType::kPalette, 4, 1, palette};
  if (grey) return {ColourType::kGrey, 8, 1, {}};
  if (few) return {ColourType::kPalette, 8, 1, palette};
  return opaque ? Layout{ColourType::kRgb, 8, 3, {}} : Layout{ColourType::kRgba, 8, 4, {}};
}

QByteArray PngRows(const Picture& picture, const Layout& layout, Filtering filtering, int band,
                   int distance) {
  const std::size_t bytes = layout.RowBytes(picture.Width());
  const auto pixel = static_cast<std::size_t>(layout.channels);
  // Each behind a pixel of zeros.
  std::vector<std::uint8_t> above(pixel + bytes);
  std::vector<std::uint8_t> row(pixel + bytes);
  QByteArray rows(static_cast<qsizetype>(bytes + 1) * picture.Height(), Qt::Uninitialized);
  auto* out = reinterpret_cast<std::uint8_t*>(rows.data());
  for (int y = 0; y < picture.Height(); ++y) {
    if (y % distance >= band) continue;
    *out++ = static_cast<std::uint8_t>(filtering);
    if (filtering == Filtering::kNone) {
      PackRow(picture, y, layout, out);
    } else {
      PackRow(picture, y, layout, row.data() + pixel);
      for (std::size_t i = 0; i < bytes; ++i) {
        out[i] = static_cast<std::uint8_t>(row[i + pixel] - (row[i] + above[i + pixel]) / 2);
      }
      std::swap(row, above);
    }
    out += bytes;
  }
  rows.truncate(reinterpret_cast<const char*>(out) - rows.constData());
  return rows;
}

}  // namespace morvantile
