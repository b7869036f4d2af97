#include "platform/imaging/picture.h"

#include <gtest/gtest.h>

#include <array>

namespace morvantile {
namespace {

TEST(Picture, CreateGivesWritableRowsOfTheAskedSize) {
  const Ref<Picture> picture = Picture::Create(3, 2, true);
  ASSERT_TRUE(picture);
  EXPECT_EQ(picture->Width(), 3);
  EXPECT_EQ(picture->Height(), 2);
  EXPECT_GE(picture->Stride(), 12);
  EXPECT_TRUE(picture->HasAlpha());
  picture->MutableRow(1)[11] = 7;
  EXPECT_EQ(picture->Row(0) + picture->Stride(), picture->Row(1));
  EXPECT_EQ(picture->Row(1)[11], 7);
}

TEST(Picture, CreateGivesNilForSidesThatNoPictureCanHave) {
  EXPECT_FALSE(Picture::Create(0, 1, false));
  EXPECT_FALSE(Picture::Create(1, -1, false));
  EXPECT_FALSE(Picture::Create(Picture::kMaxBytes / 4 + 1, 1, false));
  EXPECT_FALSE(Picture::Create(16385, 16384, false));
  EXPECT_FALSE(Picture::Create(INT64_MAX, INT64_MAX, false));
}

TEST(Picture, WrapSharesThePixelsAndKeepsThemAlive) {
  auto pixels = std::make_shared<std::array<std::uint8_t, 24>>();
  (*pixels)[12] = 5;
  const std::weak_ptr<const void> alive = pixels;
  Ref<Picture> picture = Picture::Wrap(2, 2, 12, pixels->data(), false, pixels);
  pixels.reset();
  EXPECT_EQ(picture->Row(1)[0], 5);
  EXPECT_EQ(picture->MutableRow(0), nullptr);
  EXPECT_FALSE(alive.expired());
  picture = nullptr;
  EXPECT_TRUE(alive.expired());
}

}  // namespace
}  // namespace morvantile
