#include "platform/imaging/workers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <set>

namespace morvantile {
namespace {

TEST(Workers, EachCallHasANumberOfItsOwn) {
  Workers workers(3);
  std::mutex mutex;
  std::set<int> numbers;
  std::atomic<int> arrived{0};
  workers.Run(2, [&](int number) {
    arrived.fetch_add(1);
    while (arrived < 3) std::this_thread::yield();
    const std::lock_guard lock(mutex);
    numbers.insert(number);
  });
  EXPECT_THAT(numbers, testing::ElementsAre(0, 1, 2));
}

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
