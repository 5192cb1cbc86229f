#pragma once

#include "ByteSink.h"
#include "ImageBands.h"

/// Baseline JPEG of \a bands at \a quality (0 to 100), written to \a sink as the rows arrive: grey for grey
/// pictures, YCbCr 4:2:0 otherwise, the density in the JFIF header. The EXIF block \a exif and the colour
/// profile \a iccProfile follow the header; an empty one is left out, as is an EXIF block or profile too
/// large for the file to carry. False when the bands or the sink failed.
bool writeJpeg(ImageBands& bands, int quality, QByteArrayView exif, QByteArrayView iccProfile,
               ByteSink& sink);
