#include "platform/qt/clipboard/picture_image.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QColorSpace>
#include <algorithm>
#include <array>
#include <functional>
#include <memory>
#include <tuple>

#include "platform/imaging/scaler.h"
#include "platform/qt/clipboard/png_file.h"
#include "platform/qt/widgets/canvas_widget.h"

namespace morvantile {
namespace {

constexpr QRgb kRed = 0xFFFF0000;
constexpr QRgb kGreen = 0xFF00FF00;

QImage Filled(const std::function<QRgb(unsigned)>& pixel) {
  QImage image(41, 29, QImage::Format_ARGB32);
  for (int i = 0; i < image.width() * image.height(); ++i) {
    image.setPixel(i % image.width(), i / image.width(), pixel(static_cast<unsigned>(i)));
  }
  return image;
}

// In the smallest way that there is: bits of a sample and colour type are what the format calls
// them.
TEST(PictureImage, APictureComesBackFromEitherFormWithEveryBit) {
  constexpr QRgb kOpaque = 0xFF000000;
  const auto grey = [](unsigned i) { return i % 256 * 0x10101U; };
  const std::tuple<const char*, std::function<QRgb(unsigned)>, int, int> cases[] = {
      {"2 colours", [&](unsigned i) { return i % 2 == 0 ? kRed : kGreen; }, 1, 3},
      {"3 colours", [&](unsigned i) { return kOpaque | i % 3; }, 2, 3},
      {"16 colours", [&](unsigned i) { return kOpaque | i % 16; }, 4, 3},
      {"17 colours", [&](unsigned i) { return kOpaque | i % 17; }, 8, 3},
      {"256 colours, some translucent", [&](unsigned i) { return i % 256 * 0x1010305U; }, 8, 3},
      {"257 colours", [&](unsigned i) { return kOpaque | i % 257; }, 8, 2},
      {"greys", [&](unsigned i) { return kOpaque | grey(i); }, 8, 0},
      {"translucent greys", [&](unsigned i) { return grey(i) | i % 7 << 24; }, 8, 6},
      {"translucent", [&](unsigned i) { return i * 0x9E3779B1U; }, 8, 6},
  };
  for (const auto& [name, pixel, bits, type] : cases) {
    SCOPED_TRACE(name);
    const Ref<Picture> picture = PictureOver(Filled(pixel));
    EXPECT_EQ(picture->HasAlpha(), std::string_view(name).find("translucent") < 99);
    const QByteArray file = EncodePng(picture);
    EXPECT_EQ((std::array<int, 2>{file[24], file[25]}), (std::array<int, 2>{bits, type}));
    EXPECT_FALSE(file.contains("pHYs")) << "nothing is known of its density";
    for (const QByteArray& form : {file, EncodeBmp(picture)}) {
      const Ref<Picture> back = DecodePicture(form);
      EXPECT_EQ(ImageOver(back).convertToFormat(QImage::Format_ARGB32), Filled(pixel));
    }
  }
}

// Its red is what others call green, and the other way round.
QByteArray Swapped() {
  return QColorSpace(QPointF(0.3127, 0.3290), QPointF(0.30, 0.60), QPointF(0.64, 0.33),
                     QPointF(0.15, 0.06), QColorSpace::TransferFunction::SRgb)
      .iccProfile();
}

// A file of four by two pixels of one colour, with a profile and a density.
QByteArray File(const char* form, QImage::Format format, QRgb colour, const QByteArray& profile) {
  QImage image(4, 2, format);
  image.fill(QColor(colour));
  image.setColorSpace(QColorSpace::fromIccProfile(profile));
  image.setDotsPerMeterX(11811);
  image.setDotsPerMeterY(5906);
  QBuffer file;
  image.save(&file, form);
  return file.data();
}

TEST(PictureImage, ColoursAndDensityOfTheSourceReachEveryForm) {
  for (const QImage::Format format : {QImage::Format_RGB32, QImage::Format_ARGB32}) {
    const Ref<Picture> whole = DecodePicture(File("PNG", format, kRed, Swapped()));
    for (const Ref<Picture>& picture : {whole, Resample(whole, 4, 2), Resample(whole, 2, 1)}) {
      const QImage png = QImage::fromData(EncodePng(picture));
      EXPECT_EQ(png.pixel(0, 0), kRed);
      EXPECT_EQ(png.colorSpace().iccProfile(), Swapped());
      const QImage bmp = QImage::fromData(EncodeBmp(picture));
      EXPECT_EQ(bmp.pixel(0, 0), kGreen);
      for (const QImage& image : {png, bmp}) {
        EXPECT_EQ(QSize(image.dotsPerMeterX(), image.dotsPerMeterY()), QSize(11811, 5906));
      }
    }
  }
}

TEST(PictureImage, ThePreviewShowsWhatAProgramThatHonoursProfilesShows) {
  const Ref<Picture> picture = DecodePicture(File("PNG", QImage::Format_RGB32, kRed, Swapped()));
  const Ref<Canvas> canvas = New<Canvas>();
  canvas->Width = canvas->Height = 8;
  canvas->Paint = [&](Canvas&, Graphics& graphics) { graphics.DrawPicture(picture, 1, 1); };
  QWidget window;
  CanvasWidget widget(*canvas, window);
  widget.resize(8, 8);
  const QImage shown = widget.grab().toImage();
  EXPECT_EQ(shown.pixel(1, 1), kGreen);
  EXPECT_EQ(shown.pixel(4, 2), kGreen);
}

// Nobody knows how to convert it, but a program that honours profiles may.
TEST(PictureImage, AProfileThatTheToolkitDoesNotUnderstandIsKept) {
  const QByteArray profile = Swapped().replace("rXYZ", "A2B0");
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

TEST(PictureImage, ABrokenPictureIsNoneAndMakesNoRoomForWhatItClaims) {
  const Ref<Picture> picture = PictureOver(Filled([](unsigned i) { return i % 4 << 24 | i; }));
  const QByteArray png = EncodePng(picture);
  for (qsizetype size = 0; size < png.size() - 12; ++size) {
    EXPECT_EQ(DecodePicture(png.left(size)), nullptr) << size << " bytes";
  }
  EXPECT_EQ(DecodePicture("GIF89a, but not really"), nullptr);
  QByteArray bmp = EncodeBmp(picture);
  for (const int side : {18, 22}) bmp.replace(side, 4, QByteArray("\xFF\xFF\x00\x00", 4));
  EXPECT_EQ(DecodePicture(bmp), nullptr);
  EXPECT_FALSE(IsCutOffPng(png));
  const QByteArray chunk = QByteArray(png).insert(33, QByteArray("\x7F\xFF\xFF\xFFzTXtx", 9));
  EXPECT_TRUE(IsCutOffPng(chunk));
  EXPECT_EQ(DecodePicture(chunk), nullptr);
  EXPECT_FALSE(IsCutOffPng("BM is no PNG file, whatever it holds"));
}

}  // namespace
}  // namespace morvantile
