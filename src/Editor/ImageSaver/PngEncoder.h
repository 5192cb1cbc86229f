#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QImage>
#include <optional>

/// Lossless PNG of \a image: grey for grey images, RGB when every pixel is opaque, RGBA otherwise; 16 bits a
/// sample for 16-bit images, 8 for the rest. Tagged with the image's colour space when it has one. Built for
/// speed on photographs (one "up" filter, Huffman-only deflate); empty for a null image.
std::optional<QByteArray> encodePng(const QImage& image);

/// encodePng() carrying \a iccProfile (iCCP) and the EXIF block \a exif (eXIf) instead of the image's colour
/// space; an empty one is left out.
std::optional<QByteArray> encodePng(const QImage& image, QByteArrayView iccProfile, QByteArrayView exif);
