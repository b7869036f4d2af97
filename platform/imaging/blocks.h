// How pixels lie in memory while they go through the two passes.
//
//   source rows --Convert--> tile --Across--> band --Down--> result rows
//
// Some columns of the result are made at a time, in batches of source rows that go through the
// first pass in groups; so everything that a pass needs is in the processor's cache.
//
// Pixels are kept as blocks: eight 16-bit numbers, the four channels of two neighbours in turn,
// blue of the one, blue of the other, green and so on, as the multiplications take them. Colours
// are premultiplied.
//
//   tile: one group. For each pair of columns, the blocks of all rows, first those of the even
//   rows,
//     then those of the odd ones; neighbours are pixels of a row.
//   band: one batch. For each pair of rows, the blocks of all columns; neighbours are pixels of a
//     column.
//   sums: for each result row whose window goes on beyond the batch, what it has come to so far,
//     four 32-bit numbers for each column.

#ifndef MORVANTILE_PLATFORM_IMAGING_BLOCKS_H
#define MORVANTILE_PLATFORM_IMAGING_BLOCKS_H

#include <cstddef>
#include <cstdint>

namespace morvantile {

inline constexpr std::ptrdiff_t kPixelBytes = 4;

// Numbers in a block.
inline constexpr std::ptrdiff_t kBlock = 8;

inline constexpr int kGroupRows = 16;
inline constexpr int kGroupPairs = kGroupRows / 2;
inline constexpr int kBatchPairs = 2 * kGroupPairs;

// Numbers in the tile from a pair of columns to the next, and from the even rows to the odd ones.
inline constexpr std::ptrdiff_t kTilePair = kGroupRows * kBlock;
inline constexpr std::ptrdiff_t kTileHalf = kTilePair / 2;

// Between the passes, a full channel of an opaque picture is 255 << kOpaqueBits; one of a picture
// with alpha is kFullAlpha, and 16 bits hold that with what the filter may overshoot.
inline constexpr int kOpaqueBits = 6;
inline constexpr int kAlphaCut = 2;
inline constexpr int kFullAlpha = 255 * 255 >> kAlphaCut;

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_IMAGING_BLOCKS_H
