#include "platform/imaging/picture.h"

#include <gtest/gtest.h>

#include <array>
#include <utility>

namespace morvantile {
namespace {

TEST(Picture, CreateTakesOverOnlyASpareThatIsLargeEnoughAndNobodyElses) {
  Ref<Picture> spare = Picture::Create(40, 30, false);
  const std::uint8_t* bytes = spare->Row(0);
  Ref<Picture> smaller = Picture::Create(7, 5, true, std::move(spare));
  EXPECT_EQ(smaller->Row(0), bytes);
  EXPECT_TRUE(smaller->Width() == 7 && smaller->HasAlpha());
  Ref<Picture> as_large = Picture::Create(40, 30, true, std::move(smaller));
  EXPECT_EQ(as_large->Row(0), bytes);
  EXPECT_NE(Picture::Create(40, 30, true, as_large)->Row(0), bytes) << "it has an owner";
  const Ref<Picture> larger = Picture::Create(400, 300, true, std::move(as_large));
  larger->MutableRow(299)[1599] = 7;
  Ref<Picture> of_somebody_else = Picture::Wrap(9, 9, 36, nullptr, false, nullptr);
  EXPECT_NE(Picture::Create(2, 2, false, std::move(of_somebody_else))->Row(0), nullptr);
  EXPECT_FALSE(Picture::Create(0, 1, false) || Picture::Create(16385, 16384, false));
}

TEST(Picture, WrapSharesThePixelsAndKeepsThemAlive) {
  auto pixels = std::make_shared<std::array<std::uint8_t, 24>>();
  (*pixels)[12] = 5;
  const std::weak_ptr<const void> alive = pixels;
  Ref<Picture> picture = Picture::Wrap(2, 2, 12, pixels->data(), false, pixels);
  pixels.reset();
  EXPECT_EQ(picture->Row(1)[0], 5);
  EXPECT_EQ(picture->MutableRow(0), nullptr);
  picture = nullptr;
  EXPECT_TRUE(alive.expired());
}

}  // namespace
}  // namespace morvantile
