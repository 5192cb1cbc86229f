#pragma once

#include <QByteArrayView>
#include <QImage>

/// A YCbCr, RGB or grey JPEG's pixels as Qt's reader decodes them (libjpeg with the same settings, so the
/// same values and density), but packed three bytes a pixel (Format_RGB888) or one (Format_Grayscale8): a
/// quarter less memory to fault in than Qt's Format_RGB32, and no conversion row by row. Null for anything
/// else (CMYK, damage beyond what the decoder skips), which Qt's reader then decodes. No colour space or
/// text.
QImage decodedJpeg(QByteArrayView bytes);
