// The pixels of a picture as the rows of a PNG file.

#ifndef MORVANTILE_PLATFORM_QT_CLIPBOARD_PNG_ROWS_H
#define MORVANTILE_PLATFORM_QT_CLIPBOARD_PNG_ROWS_H

#include <QByteArray>
#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

#include "platform/imaging/picture.h"

namespace morvantile {

// A pixel: alpha, red, green and blue, from the highest byte down.
using Colour = std::uint32_t;

// The distinct colours of a picture, in the order in which they are found.
class Palette {
 public:
  static constexpr std::size_t kMost = 256;

  // False for a colour too many.
  bool Add(Colour colour);
  // The place of a colour that has been added.
  [[nodiscard]] int IndexOf(Colour colour) const { return indices_.at(colour); }
  [[nodiscard]] const std::vector<Colour>& Colours() const { return colours_; }

 private:
  std::vector<Colour> colours_;
  std::unordered_map<Colour, int> indices_;
};

// The format's numbers of the ways to store a pixel.
enum class ColourType : std::uint8_t { kGrey = 0, kRgb = 2, kPalette = 3, kRgba = 6 };

// How pixels are stored.
struct Layout {
  ColourType type;
  int bits;      // of a sample
  int channels;  // samples of a pixel
  Palette palette;

  [[nodiscard]] std::size_t RowBytes(int width) const {
    return (static_cast<std::size_t>(width) * static_cast<std::size_t>(bits * channels) + 7) / 8;
  }
};

// The smallest layout in which every bit of each pixel comes back. One for grey is none for a
// picture with a profile, because that is for RGB data.
Layout LayoutFor(const Picture& picture);

// The format's numbers of two of its filters: bytes are stored as they are, or as differences from
// the mean of the same bytes of the pixels to the left and above. Trying all five filters for each
// row takes twice the time, and saves up to a tenth of a photograph's file.
enum class Filtering : std::uint8_t { kNone = 0, kAverage = 3 };

// The filtered rows of the picture, each behind the number of its filter; indices have no filter.
// Of each `distance` rows the first `band` are taken.
QByteArray PngRows(const Picture& picture, const Layout& layout, Filtering filtering, int band = 1,
                   int distance = 1);

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_QT_CLIPBOARD_PNG_ROWS_H
