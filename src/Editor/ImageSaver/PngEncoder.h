#pragma once

#include <QByteArray>
#include <QImage>
#include <optional>

/// Lossless 8-bit PNG of \a image: RGB when every pixel is opaque, RGBA otherwise, tagged with the image's
/// colour space when it has one. Built for speed on photographs (one "up" filter, Huffman-only deflate);
/// empty for a null image.
std::optional<QByteArray> encodePng(const QImage& image);
