#include "platform/core/bulk_memory.h"

#include <gtest/gtest.h>

#include <cstring>
#include <set>
#include <thread>
#include <vector>

namespace morvantile {
namespace {

struct Piece {
  unsigned char* bytes;
  std::size_t size;
};

// A piece filled with its own number, to be seen again later.
Piece NewPiece(std::size_t number) {
  const std::size_t size = number % 3000;
  auto* const bytes = static_cast<unsigned char*>(AllocateBulk(size));
  std::memset(bytes, static_cast<unsigned char>(number), size);
  return {bytes, size};
}

bool IsIntact(const Piece& piece, std::size_t number) {
  for (std::size_t i = 0; i < piece.size; ++i) {
    if (piece.bytes[i] != static_cast<unsigned char>(number)) return false;
  }
  return true;
}

TEST(BulkMemory, PiecesOutliveTheirScopeAndGoInAnyOrderOnAnyThread) {
  constexpr std::size_t kCount = 5000;
  std::vector<Piece> pieces;
  {
    const BulkScope scope;
    for (std::size_t i = 0; i < kCount; ++i) pieces.push_back(NewPiece(i));
  }
  for (std::size_t i = 0; i < kCount; ++i) ASSERT_TRUE(IsIntact(pieces[i], i)) << i;
  const auto release_each_second = [&](std::size_t first) {
    for (std::size_t i = first; i < kCount; i += 2) ReleaseBulk(pieces[i].bytes, pieces[i].size);
  };
  std::thread other(release_each_second, 0);
  release_each_second(1);
  other.join();
}

TEST(BulkMemory, WhatIsReleasedInAScopeServesAgainInIt) {
  const BulkScope scope;
  void* const first = AllocateBulk(128);
  ReleaseBulk(first, 128);
  void* const smaller = AllocateBulk(64);
  void* const again = AllocateBulk(121);
  EXPECT_NE(smaller, first);
  EXPECT_EQ(again, first) << "the same size in grains";
  ReleaseBulk(smaller, 64);
  ReleaseBulk(again, 121);
}

TEST(BulkMemory, ScopesNestAndPiecesFromBeforeGoInThem) {
  void* const before = AllocateBulk(40);
  const BulkScope outer;
  void* const in_outer = AllocateBulk(40);
  {
    const BulkScope inner;
    ReleaseBulk(before, 40);
  }
  void* const after_inner = AllocateBulk(40);
  EXPECT_NE(after_inner, in_outer);
  ReleaseBulk(in_outer, 40);
  ReleaseBulk(after_inner, 40);
}

}  // namespace
}  // namespace morvantile
