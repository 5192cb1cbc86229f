#pragma once

#include <QByteArray>
#include <QByteArrayView>

/// \a jpeg as an encoder wrote it, with its metadata replaced: the EXIF block \a exif (one APP1 segment) and
/// the ICC profile \a iccProfile (APP2 segments, as many as it takes) right after the JFIF header, and
/// nothing the encoder carried over from the image (comments, a profile of its own). An empty block is left
/// out.
QByteArray withJpegMetadata(const QByteArray& jpeg, QByteArrayView exif, QByteArrayView iccProfile);
