#pragma once

#include <QImage>

/// Drawing a picture turned by any angle or scaled (free turns, placed overlays) with the same pixels on
/// every processor: only integer arithmetic and IEEE additions, multiplications and divisions, which round
/// alike everywhere (with contraction off, as the component is built). Qt's painter and the C library's sine
/// differ between x86-64 and ARM in the last bits.
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

/// Where a canvas pixel's centre (X, Y) falls in a picture, in the picture's pixels (whose squares run from
/// (0, 0)): u = m11·X + m12·Y + dx, v = m21·X + m22·Y + dy.
struct PictureMap
{
    double m11 = 1;
    double m12 = 0;
    double m21 = 0;
    double m22 = 1;
    double dx = 0;
    double dy = 0;
};

/// Where  picture lands when its  pixels-sized rectangle is placed at  rect (in the canvas's points,
///  scale pixels each), then scaled by  magnification and turned by  radians about the rectangle's
/// centre.
PictureMap placedPicture(QSize pixels, const QRectF& rect, double radians, double magnification, qreal scale);

/// Draws  picture (premultiplied ARGB32) over  canvas (premultiplied ARGB32 or RGBA64) where  map
/// says: bilinear, edges antialiased, source over. False when the formats are other ones or the map cannot
/// be inverted.
bool drawOver(QImage& canvas, const QImage& picture, const PictureMap& map);

} // namespace ImageHelpers
