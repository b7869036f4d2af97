// Pictures as the toolkit's images, and encoded.

#ifndef MORVANTILE_PLATFORM_QT_CLIPBOARD_PICTURE_IMAGE_H
#define MORVANTILE_PLATFORM_QT_CLIPBOARD_PICTURE_IMAGE_H

#include <QByteArray>
#include <QImage>

#include "platform/imaging/picture.h"

namespace morvantile {

// An image over the pixels of the picture, without a copy, with its profile and its density as far
// as they are known. It keeps the picture.
QImage ImageOver(const Ref<Picture>& picture);

// The image as a program that honours profiles shows it. One without a profile stays as it is, and
// so does one whose profile is made of tables only: the toolkit does not know how to convert it.
QImage InSrgb(QImage image);

// A picture over the pixels of the image, without a copy if the image has 32 bits a pixel; nil for
// a null image. A picture whose alpha is 255 everywhere is opaque. The profile is kept if it is one
// for RGB data; pixels with a grey one are converted to sRGB. The density isn't known.
Ref<Picture> PictureOver(const QImage& image);

// Whether it is a PNG file with a chunk that claims to be longer than the file is. Decoders make
// room for such a chunk before they find out: up to 2 GiB for a few bytes.
bool IsCutOffPng(const QByteArray& encoded);

// The picture in an encoded file of any format that the toolkit reads; nil if it is broken, cut
// short or larger than a Picture can be. It has the profile and the density of the file.
Ref<Picture> DecodePicture(QByteArray encoded);

// The picture as a BMP file in sRGB, 24 bits a pixel; with alpha 32 bits a pixel and a header of
// version 4, whose masks name the alpha channel (Microsoft, "BITMAPV4HEADER structure").
QByteArray EncodeBmp(const Ref<Picture>& picture);

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_QT_CLIPBOARD_PICTURE_IMAGE_H
