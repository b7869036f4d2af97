// How pixels lie in memory while they go through the two passes.
//
//   source rows --Convert--> tile --Across--> band --Down--> result rows
//
// Some columns of the result are made at a time, in batches of source rows that go through the
// first pass in groups; so everything that a pass needs is in the processor's cache.
//
// Each channel has a plane of its own, blue first; opaque pictures have three, those with alpha
// four, their colours premultiplied. A plane holds pairs of 16-bit samples, as the multiplications
// take them.
//
//   tile: one group. For each pair of columns and each channel, the pairs of all rows; the two
//     samples are neighbours in a row.
//   band: one batch. For each pair of rows and each channel, the pairs of all columns; the two
//     samples are neighbours in a column.
//   sums: for each result row whose window goes on beyond the batch, and each channel, what the
//     columns have come to so far, in 32 bits.

#ifndef MORVANTILE_PLATFORM_IMAGING_BLOCKS_H
#define MORVANTILE_PLATFORM_IMAGING_BLOCKS_H

#include <cstddef>
#include <cstdint>

namespace morvantile {

inline constexpr std::ptrdiff_t kPixelBytes = 4;

inline constexpr int kGroupRows = 16;
inline constexpr int kGroupPairs = kGroupRows / 2;
inline constexpr int kBatchPairs = 2 * kGroupPairs;

// Pairs in a block, the 128 bits that vectors consist of: four rows of the tile, or four columns of
// the band.
inline constexpr int kBlock = 4;

// Pairs in a plane of the tile.
inline constexpr std::ptrdiff_t kTilePlane = kGroupRows;

// Between the passes, a full channel of an opaque picture is 255 << kOpaqueBits; one of a picture
// with alpha is kFullAlpha, and 16 bits hold that with what the filter may overshoot.
inline constexpr int kOpaqueBits = 6;
inline constexpr int kAlphaCut = 2;
inline constexpr int kFullAlpha = 255 * 255 >> kAlphaCut;

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_IMAGING_BLOCKS_H
