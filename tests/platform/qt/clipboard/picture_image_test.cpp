#include "platform/qt/clipboard/picture_image.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QColorSpace>
#include <algorithm>
#include <array>

#include "platform/imaging/scaler.h"
#include "platform/qt/widgets/canvas_widget.h"

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

constexpr QRgb kRed = 0xFFFF0000;
constexpr QRgb kGreen = 0xFF00FF00;

// Its red is what others call green, and the other way round.
QColorSpace Swapped() {
  return {QPointF(0.3127, 0.3290), QPointF(0.30, 0.60), QPointF(0.64, 0.33), QPointF(0.15, 0.06),
          QColorSpace::TransferFunction::SRgb};
}

// A file of four by two pixels of one colour, with a profile and a density.
QByteArray PngFile(QImage::Format format, QRgb colour, const QByteArray& profile) {
  QImage image(4, 2, format);
  image.fill(QColor(colour));
  image.setColorSpace(QColorSpace::fromIccProfile(profile));
  image.setDotsPerMeterX(11811);
  image.setDotsPerMeterY(5906);
  QByteArray file;
  QBuffer buffer(&file);
  buffer.open(QIODevice::WriteOnly);
  image.save(&buffer, "PNG");
  return file;
}

TEST(PictureImage, ColoursAndDensityOfTheSourceReachEveryForm) {
  const QByteArray profile = Swapped().iccProfile();
  for (const QImage::Format format : {QImage::Format_RGB32, QImage::Format_ARGB32}) {
    const Ref<Picture> whole = DecodePicture(PngFile(format, kRed, profile));
    for (const Ref<Picture>& picture : {whole, Resample(whole, 4, 2), Resample(whole, 2, 1)}) {
      const QImage png = QImage::fromData(EncodePng(picture));
      EXPECT_EQ(png.pixel(0, 0), kRed);
      EXPECT_EQ(png.colorSpace().iccProfile(), profile);
      EXPECT_EQ(QSize(png.dotsPerMeterX(), png.dotsPerMeterY()), QSize(11811, 5906));
      const QImage bmp = QImage::fromData(EncodeBmp(picture));
      EXPECT_EQ(bmp.pixel(0, 0), kGreen);
      EXPECT_EQ(QSize(bmp.dotsPerMeterX(), bmp.dotsPerMeterY()), QSize(11811, 5906));
    }
  }
}

TEST(PictureImage, ThePreviewShowsWhatAProgramThatHonoursProfilesShows) {
  const Ref<Picture> picture =
      DecodePicture(PngFile(QImage::Format_RGB32, kRed, Swapped().iccProfile()));
  const Ref<Canvas> canvas = New<Canvas>();
  canvas->Width = canvas->Height = 8;
  canvas->Paint = [&](Canvas&, Graphics& graphics) { graphics.DrawPicture(picture, 1, 1); };
  QWidget window;
  CanvasWidget widget(*canvas, window);
  widget.resize(canvas->Width, canvas->Height);
  const QImage shown = widget.grab().toImage();
  EXPECT_EQ(shown.pixel(1, 1), kGreen);
  EXPECT_EQ(shown.pixel(4, 2), kGreen);
}

// A grey profile of linear light, made of one for RGB data: 64 of it is 137 in sRGB.
TEST(PictureImage, AGreyProfileIsConvertedBecauseItFitsNoRgbFile) {
  const QByteArray profile = QColorSpace(QColorSpace::SRgbLinear)
                                 .iccProfile()
                                 .replace(16, 4, "GRAY")
                                 .replace("rTRC", "kTRC");
  const QByteArray file = PngFile(QImage::Format_Grayscale8, qRgb(64, 64, 64), profile);
  const Ref<Picture> picture = DecodePicture(file);
  EXPECT_EQ(picture->metadata.profile, nullptr);
  EXPECT_EQ(QImage::fromData(EncodePng(picture)).pixel(0, 0), qRgb(137, 137, 137));
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
