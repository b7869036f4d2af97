#include "platform/qt/clipboard/picture_image.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

namespace morvantile {
namespace {

constexpr std::array<std::uint8_t, 16> kPixels = {1, 2, 3, 255, 4,  5,  6,  128,
                                                  7, 8, 9, 0,   10, 11, 12, 1};

// Two by two pixels with every kind of alpha.
Ref<Picture> Translucent() {
  Ref<Picture> picture = Picture::Create(2, 2, true);
  std::copy_n(kPixels.begin(), 8, picture->MutableRow(0));
  std::copy_n(kPixels.begin() + 8, 8, picture->MutableRow(1));
  return picture;
}

bool SamePixels(const Picture& picture) {
  return std::equal(picture.Row(0), picture.Row(0) + 8, kPixels.begin()) &&
         std::equal(picture.Row(1), picture.Row(1) + 8, kPixels.begin() + 8);
}

TEST(PictureImage, EncodedPicturesComeBackWithEveryBitOfTheirAlpha) {
  for (const QByteArray& file : {EncodePng(Translucent()), EncodeBmp(Translucent())}) {
    const Ref<Picture> back = DecodePicture(file);
    ASSERT_NE(back, nullptr);
    EXPECT_TRUE(back->HasAlpha());
    EXPECT_TRUE(SamePixels(*back));
  }
}

TEST(PictureImage, APictureThatHidesNothingIsOpaque) {
  QImage image(3, 1, QImage::Format_ARGB32);
  image.fill(0xFF102030);
  EXPECT_FALSE(PictureOver(image)->HasAlpha());
  image.setPixel(2, 0, 0xFE102030);
  EXPECT_TRUE(PictureOver(image)->HasAlpha());
}

TEST(PictureImage, ABrokenPictureIsNone) {
  const QByteArray file = EncodePng(Translucent());
  for (qsizetype size = 0; size < file.size() - 12; ++size) {
    EXPECT_EQ(DecodePicture(file.left(size)), nullptr) << size << " bytes";
  }
  EXPECT_EQ(DecodePicture("GIF89a, but not really"), nullptr);
}

TEST(PictureImage, AHugeSizeInASmallFileIsRefusedBeforeItIsMade) {
  QByteArray file = EncodeBmp(Translucent());
  for (const int offset : {18, 22}) file.replace(offset, 4, QByteArray("\xFF\xFF\x00\x00", 4));
  EXPECT_EQ(DecodePicture(file), nullptr);
}

TEST(PictureImage, AChunkThatClaimsMoreThanTheFileHoldsIsRefusedBeforeRoomIsMade) {
  QByteArray file = EncodePng(Translucent());
  EXPECT_FALSE(IsCutOffPng(file));
  file.insert(33, QByteArray("\x7F\xFF\xFF\xFFzTXtx", 9));  // behind the header chunk
  EXPECT_TRUE(IsCutOffPng(file));
  EXPECT_EQ(DecodePicture(file), nullptr);
  EXPECT_FALSE(IsCutOffPng("BM is no PNG file, whatever stands in it"));
}

}  // namespace
}  // namespace morvantile
