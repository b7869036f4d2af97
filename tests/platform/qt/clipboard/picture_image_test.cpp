#include "platform/qt/clipboard/picture_image.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QColorSpace>
#include <algorithm>
#include <array>
#include <functional>
#include <memory>
#include <string>

#include "platform/imaging/scaler.h"
#include "platform/qt/clipboard/png_file.h"
#include "platform/qt/widgets/canvas_widget.h"

namespace morvantile {
namespace {

constexpr std::array<std::uint8_t, 16> kPixels = {1, 2, 3, 255, 4,  5,  6,  128,
                                                  7, 8, 9, 0,   10, 11, 12, 1};

constexpr QRgb kRed = 0xFFFF0000;
constexpr QRgb kGreen = 0xFF00FF00;

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

TEST(PictureImage, ABmpFileComesBackWithEveryBitOfItsAlpha) {
  const Ref<Picture> back = DecodePicture(EncodeBmp(Translucent()));
  ASSERT_NE(back, nullptr);
  EXPECT_TRUE(back->HasAlpha());
  EXPECT_TRUE(SamePixels(*back));
}

// In the smallest way that there is: bits of a sample and colour type are what the format calls
// them.
TEST(PictureImage, APngFileComesBackWithEveryBit) {
  constexpr QRgb kOpaque = 0xFF000000;
  const auto grey = [](unsigned i) { return i % 256 * 0x10101U; };
  const struct {
    const char* name;
    std::function<QRgb(unsigned)> pixel;
    int bits, type;
  } cases[] = {
      {"one colour", [&](unsigned) { return kRed; }, 1, 3},
      {"2 colours", [&](unsigned i) { return i % 2 == 0 ? kRed : kGreen; }, 1, 3},
      {"3 colours", [&](unsigned i) { return kOpaque | i % 3; }, 2, 3},
      {"16 colours", [&](unsigned i) { return kOpaque | i % 16; }, 4, 3},
      {"17 colours", [&](unsigned i) { return kOpaque | i % 17; }, 8, 3},
      {"256 colours, some translucent", [&](unsigned i) { return i % 256 * 0x1010305U; }, 8, 3},
      {"257 colours", [&](unsigned i) { return kOpaque | i % 257; }, 8, 2},
      {"greys", [&](unsigned i) { return kOpaque | grey(i); }, 8, 0},
      {"translucent greys", [&](unsigned i) { return grey(i) | i % 7 << 24; }, 8, 6},
      {"a photo", [&](unsigned i) { return kOpaque | i * 0x9E3779B1U; }, 8, 2},
      {"translucent", [&](unsigned i) { return i * 0x9E3779B1U; }, 8, 6},
  };
  for (const auto& [name, pixel, bits, type] : cases) {
    SCOPED_TRACE(name);
    QImage image(41, 29, QImage::Format_ARGB32);
    for (int i = 0; i < image.width() * image.height(); ++i) {
      image.setPixel(i % image.width(), i / image.width(), pixel(static_cast<unsigned>(i)));
    }
    const QByteArray file = EncodePng(PictureOver(image));
    EXPECT_EQ((std::array<int, 2>{file[24], file[25]}), (std::array<int, 2>{bits, type}));
    EXPECT_EQ(QImage::fromData(file).convertToFormat(QImage::Format_ARGB32), image);
    EXPECT_FALSE(file.contains("pHYs")) << "nothing is known of its density";
  }
}

// Its red is what others call green, and the other way round.
QColorSpace Swapped() {
  return {QPointF(0.3127, 0.3290), QPointF(0.30, 0.60), QPointF(0.64, 0.33), QPointF(0.15, 0.06),
          QColorSpace::TransferFunction::SRgb};
}

// A file of four by two pixels of one colour, with a profile and a density.
QByteArray File(const char* form, QImage::Format format, QRgb colour, const QByteArray& profile) {
  QImage image(4, 2, format);
  image.fill(QColor(colour));
  image.setColorSpace(QColorSpace::fromIccProfile(profile));
  image.setDotsPerMeterX(11811);
  image.setDotsPerMeterY(5906);
  QByteArray file;
  QBuffer buffer(&file);
  buffer.open(QIODevice::WriteOnly);
  image.save(&buffer, form);
  return file;
}

TEST(PictureImage, ColoursAndDensityOfTheSourceReachEveryForm) {
  const QByteArray profile = Swapped().iccProfile();
  for (const QImage::Format format : {QImage::Format_RGB32, QImage::Format_ARGB32}) {
    const Ref<Picture> whole = DecodePicture(File("PNG", format, kRed, profile));
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
      DecodePicture(File("PNG", QImage::Format_RGB32, kRed, Swapped().iccProfile()));
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

// Nobody knows how to convert it, but a program that honours profiles may.
TEST(PictureImage, AProfileThatTheToolkitDoesNotUnderstandIsKept) {
  const QByteArray profile = Swapped().iccProfile().replace("rXYZ", "A2B0");
  const Ref<Picture> picture = DecodePicture(File("JPEG", QImage::Format_RGB32, kRed, profile));
  ASSERT_NE(picture->metadata.profile, nullptr);
  EXPECT_EQ(*picture->metadata.profile, profile.toStdString());
  EXPECT_TRUE(EncodePng(picture).contains("iCCP"));
}

// A grey profile of linear light, made of one for RGB data: 64 of it is 137 in sRGB.
TEST(PictureImage, AGreyProfileIsConvertedBecauseItFitsNoRgbFile) {
  const QByteArray profile = QColorSpace(QColorSpace::SRgbLinear)
                                 .iccProfile()
                                 .replace(16, 4, "GRAY")
                                 .replace("rTRC", "kTRC");
  const QByteArray file = File("PNG", QImage::Format_Grayscale8, qRgb(64, 64, 64), profile);
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
