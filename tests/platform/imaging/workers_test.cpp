#include "platform/imaging/workers.h"

#include <gtest/gtest.h>

#include <atomic>

namespace morvantile {
namespace {

TEST(Workers, ACallDuringAnotherOrWithoutThreadsIsDoneAlone) {
  std::atomic<int> calls{0};
  const auto count = [&](int number) {
    EXPECT_EQ(number, 0);
    calls.fetch_add(1);
  };
  Workers workers(1);
  workers.Run(1, [&](int number) {
    if (number == 0) workers.Run(1, count);
  });
  Workers(0).Run(4, count);
  EXPECT_EQ(calls, 2);
}

}  // namespace
}  // namespace morvantile
