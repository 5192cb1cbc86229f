#pragma once

#include <QImage>

/// Turning a picture by any angle, with the same pixels on every processor: only integer arithmetic and
/// IEEE additions, multiplications and divisions, which round alike everywhere (with contraction off, as the
/// component is built). Qt's painter and the C library's sine differ between x86-64 and ARM in the last bits.
namespace ImageHelpers {

struct CosSin
{
    double cos;
    double sin;
};

/// The cosine and sine of \a radians, within a unit in the last place; exact for whole quarter turns.
CosSin cosSin(double radians);

/// \a pixels of \a image, turned \a radians clockwise (on screen, y down) about their centre, drawn with
/// their centre at \a centre (in pixels) on a transparent \a canvas: sampled bilinearly, the turned edges
/// antialiased. Premultiplied: RGBA64 for 16-bit images, ARGB32 for any other. Null when the canvas cannot
/// be made; \a pixels must lie inside the image.
QImage drawnTurned(const QImage& image, const QRect& pixels, double radians, QSize canvas, QPointF centre);

} // namespace ImageHelpers
