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

TEST(Ref, TheLastOwnerReleasesTheObjectAndBackReferencesReadAsNilAndThrow) {
  int alive = 0;
  Ref<Probe> a = New<Probe>(&alive);
  Ref<Probe> b = a;
  const BackRef<Probe> first(a);
  const BackRef<Probe> second = first;  // NOLINT(performance-unnecessary-copy-initialization)
  a = nullptr;
  EXPECT_EQ(alive, 1);
  EXPECT_TRUE(first == b);
  b = nullptr;
  EXPECT_EQ(alive, 0);
  EXPECT_TRUE(first == nullptr);
  EXPECT_TRUE(second == nullptr);
  EXPECT_THROW(first.operator->(), NilObjectException);
}

}  // namespace
}  // namespace morvantile
