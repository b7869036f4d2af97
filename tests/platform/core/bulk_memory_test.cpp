#include "platform/core/bulk_memory.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace morvantile {
namespace {

TEST(BulkMemory, PiecesOutliveTheirScopeAndGoInAnyOrderOnAnyThread) {
  constexpr std::size_t kCount = 5000;
  const auto size_of = [](std::size_t number) { return number % 3000; };
  std::vector<char*> pieces;
  {
    const BulkScope scope;
    for (std::size_t i = 0; i < kCount; ++i) {
      pieces.push_back(static_cast<char*>(AllocateBulk(size_of(i))));
      std::memset(pieces[i], static_cast<char>(i), size_of(i));
    }
  }
  const auto release_each_second = [&](std::size_t first) {
    for (std::size_t i = first; i < kCount; i += 2) {
      const std::string filled(size_of(i), static_cast<char>(i));
      EXPECT_EQ(std::string_view(pieces[i], size_of(i)), filled);
      ReleaseBulk(pieces[i], size_of(i));
    }
  };
  std::thread other(release_each_second, 0);
  release_each_second(1);
  other.join();
}

}  // namespace
}  // namespace morvantile
