#include "platform/core/ref.h"

#include <gtest/gtest.h>

namespace morvantile {
namespace {

class Probe : public Object {
 public:
  explicit Probe(int* alive) : alive_(alive) { ++*alive_; }
  ~Probe() override { --*alive_; }

 private:
  int* alive_;
};

TEST(Ref, TheLastOwnerReleasesTheObject) {
  int alive = 0;
  Ref<Probe> a = New<Probe>(&alive);
  Ref<Probe> b = a;
  a = nullptr;
  EXPECT_EQ(alive, 1);
  b = nullptr;
  EXPECT_EQ(alive, 0);
}

TEST(Ref, NilThrowsInsteadOfCrashing) {
  const Ref<Probe> nil;
  EXPECT_THROW(*nil, NilObjectException);
  const BackRef<Probe> gone;
  EXPECT_THROW(gone.operator->(), NilObjectException);
}

TEST(BackRef, ReadsAsNilOnceItsTargetIsGone) {
  int alive = 0;
  Ref<Probe> owner = New<Probe>(&alive);
  const BackRef<Probe> first(owner);
  const BackRef<Probe> second = first;  // NOLINT(performance-unnecessary-copy-initialization)
  EXPECT_TRUE(first == owner);
  owner = nullptr;
  EXPECT_EQ(alive, 0);
  EXPECT_TRUE(first == nullptr);
  EXPECT_TRUE(second == nullptr);
}

}  // namespace
}  // namespace morvantile
