#pragma once

#include "ByteSink.h"
#include "ImageBands.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QImage>
#include <optional>

/// Lossless PNG of \a bands, written to \a sink as the rows arrive: grey for grey pictures, RGB when every
/// pixel is opaque, RGBA otherwise; 16 bits a sample for 16-bit formats, 8 for the rest. Tagged with the
/// bands' colour space when they have one. Built for speed on photographs (the Paeth filter, Huffman-only
/// deflate). False when the bands or the sink failed. Bands with an alpha channel are read twice: whether
/// the picture is opaque decides the file's header.
bool writePng(ImageBands& bands, ByteSink& sink);

/// writePng() carrying \a iccProfile (iCCP) and the EXIF block \a exif (eXIf) instead of the colour space;
/// an empty one is left out.
bool writePng(ImageBands& bands, QByteArrayView iccProfile, QByteArrayView exif, ByteSink& sink);

/// The PNG of a whole image, in memory; empty for a null image.
std::optional<QByteArray> encodePng(const QImage& image);
