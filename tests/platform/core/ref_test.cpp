#include "platform/core/ref.h"

#include <gtest/gtest.h>

#include <memory>

namespace morvantile {
namespace {

struct Owner : Object {
  std::shared_ptr<int> content = std::make_shared<int>();
};

TEST(Ref, TheLastOwnerReleasesTheObjectAndBackReferencesReadAsNilAndThrow) {
  Ref<Owner> a = New<Owner>();
  Ref<Owner> b = a;
  const std::weak_ptr<int> content = a->content;
  const BackRef<Owner> first(a);
  const BackRef<Owner> second = first;  // NOLINT(performance-unnecessary-copy-initialization)
  a = nullptr;
  EXPECT_FALSE(content.expired());
  EXPECT_TRUE(first == b);
  b = nullptr;
  EXPECT_TRUE(content.expired());
  EXPECT_TRUE(first == nullptr);
  EXPECT_TRUE(second == nullptr);
  EXPECT_THROW(first.operator->(), NilObjectException);
}

}  // namespace
}  // namespace morvantile
