#include "Resampling.h"

#include "ImageHelpers.h"

#include <QRgba64>
#include <algorithm>
#include <cmath>

namespace ImageHelpers {

CosSin cosSin(double radians)
{
    // Pi / 2 in two parts, the first of 33 bits, so that taking whole quarters off a large angle is exact.
    const double halfPiHigh = 1.57079632673412561417e+00;
    const double halfPiLow = 6.07710050650619224932e-11;
    const double quarters = std::nearbyint(radians / (M_PI / 2.0));
    const double r = (radians - quarters * halfPiHigh) - quarters * halfPiLow;
    const double r2 = r * r;
    // Taylor series to the 17th power: its first dropped term is below 1e-16 for |r| <= pi / 4.
    const double s =
        r * (1.0 +
             r2 * (-1.0 / 6.0 +
                   r2 * (1.0 / 120.0 +
                         r2 * (-1.0 / 5040.0 + r2 * (1.0 / 362880.0 +
                                                     r2 * (-1.0 / 39916800.0 +
                                                           r2 * (1.0 / 6227020800.0 +
                                                                 r2 * (-1.0 / 1307674368000.0 +
                                                                       r2 * (1.0 / 355687428096000.0)))))))));
    const double c =
        1.0 +
        r2 * (-1.0 / 2.0 +
              r2 * (1.0 / 24.0 +
                    r2 * (-1.0 / 720.0 +
                          r2 * (1.0 / 40320.0 +
                                r2 * (-1.0 / 3628800.0 +
                                      r2 * (1.0 / 479001600.0 +
                                            r2 * (-1.0 / 87178291200.0 + r2 * (1.0 / 20922789888000.0))))))));
    switch (int(std::fmod(std::fmod(quarters, 4.0) + 4.0, 4.0))) {
    case 1:
        return {-s, c};
    case 2:
        return {-c, -s};
    case 3:
        return {s, -c};
    default:
        return {c, s};
    }
}

namespace {

// One channel of four neighbours mixed by 8-bit weights, then scaled by the pixel's coverage (0 to 256).
template <typename Channel>
Channel mixed(Channel tl, Channel tr, Channel bl, Channel br, int fx, int fy, int cover)
{
    const qint64 top = qint64(tl) * (256 - fx) + qint64(tr) * fx;
    const qint64 bottom = qint64(bl) * (256 - fx) + qint64(br) * fx;
    const qint64 value = (top * (256 - fy) + bottom * fy + 32768) >> 16;
    return Channel((value * cover + 128) >> 8);
}

quint32 mixedPixel(quint32 tl, quint32 tr, quint32 bl, quint32 br, int fx, int fy, int cover)
{
    quint32 out = 0;
    for (int shift = 0; shift < 32; shift += 8) {
        out |= quint32(mixed<quint32>((tl >> shift) & 0xFF, (tr >> shift) & 0xFF, (bl >> shift) & 0xFF,
                                      (br >> shift) & 0xFF, fx, fy, cover))
               << shift;
    }
    return out;
}

QRgba64 mixedPixel(QRgba64 tl, QRgba64 tr, QRgba64 bl, QRgba64 br, int fx, int fy, int cover)
{
    return QRgba64::fromRgba64(mixed<quint16>(tl.red(), tr.red(), bl.red(), br.red(), fx, fy, cover),
                               mixed<quint16>(tl.green(), tr.green(), bl.green(), br.green(), fx, fy, cover),
                               mixed<quint16>(tl.blue(), tr.blue(), bl.blue(), br.blue(), fx, fy, cover),
                               mixed<quint16>(tl.alpha(), tr.alpha(), bl.alpha(), br.alpha(), fx, fy, cover));
}

// The cut, premultiplied in the drawing format: read where it lies when it is already so (RGB32's unused byte
// is read as opaque), else a copy premultiplied alike on every processor.
QImage premultipliedCut(const QImage& image, const QRect& pixels, bool deep)
{
    const QImage::Format format = image.format();
    if (format == (deep ? QImage::Format_RGBA64_Premultiplied : QImage::Format_ARGB32_Premultiplied) ||
        (!deep && format == QImage::Format_RGB32))
        return image;
    if (image.pixelFormat().premultiplied() == QPixelFormat::Premultiplied)
        return image.copy(pixels).convertToFormat(deep ? QImage::Format_RGBA64_Premultiplied
                                                       : QImage::Format_ARGB32_Premultiplied);
    return premultipliedAlike(
        image.copy(pixels).convertToFormat(deep ? QImage::Format_RGBA64 : QImage::Format_ARGB32));
}

quint32 withAlpha(quint32 pixel, quint32 opaque)
{
    return pixel | opaque;
}

QRgba64 withAlpha(QRgba64 pixel, quint32)
{
    return pixel;
}

// A w × h picture's pixels from origin in an image's rows; an RGB32 image's unused byte is read as opaque.
template <typename Pixel> struct Pixels
{
    const uchar* bits;
    qsizetype stride;
    int w;
    int h;
    quint32 opaque;

    Pixels(const QImage& image, QPoint origin, QSize size)
        : bits(image.constBits() + origin.y() * image.bytesPerLine() + origin.x() * qsizetype(sizeof(Pixel)))
        , stride(image.bytesPerLine())
        , w(size.width())
        , h(size.height())
        , opaque(image.format() == QImage::Format_RGB32 ? 0xFF000000u : 0)
    {}

    Pixel at(int x, int y) const
    {
        return withAlpha(reinterpret_cast<const Pixel*>(bits + y * stride)[x], opaque);
    }
};

// How much of a pixel the picture covers (0 to 256), from its centre's distances to the nearest edges
// across and down, in the pixel's own units: it falls off linearly across a pixel that straddles an edge.
int coverage(double across, double down)
{
    const double x = std::clamp(across + 0.5, 0.0, 1.0);
    const double y = std::clamp(down + 0.5, 0.0, 1.0);
    return int(x * y * 256.0 + 0.5);
}

// The picture at (u, v), in its pixels (unit squares from (0, 0)): bilinear, edges clamped, scaled by cover.
template <typename Pixel> Pixel sampled(const Pixels<Pixel>& pixels, double u, double v, int cover)
{
    const double left = std::floor(u - 0.5);
    const double top = std::floor(v - 0.5);
    const int fx = int((u - 0.5 - left) * 256.0);
    const int fy = int((v - 0.5 - top) * 256.0);
    const int x0 = std::clamp(int(left), 0, pixels.w - 1);
    const int x1 = std::clamp(int(left) + 1, 0, pixels.w - 1);
    const int y0 = std::clamp(int(top), 0, pixels.h - 1);
    const int y1 = std::clamp(int(top) + 1, 0, pixels.h - 1);
    return mixedPixel(pixels.at(x0, y0), pixels.at(x1, y0), pixels.at(x0, y1), pixels.at(x1, y1), fx, fy,
                      cover);
}

template <typename Pixel>
void draw(const Pixels<Pixel>& cut, const CosSin& turn, QPointF centre, QImage& canvas)
{
    const int w = cut.w;
    const int h = cut.h;
    for (int y = 0; y < canvas.height(); ++y) {
        auto* out = reinterpret_cast<Pixel*>(canvas.scanLine(y));
        const double py = y + 0.5 - centre.y();
        for (int x = 0; x < canvas.width(); ++x) {
            const double px = x + 0.5 - centre.x();
            // Where this pixel's centre lies in the cut.
            const double sx = w / 2.0 + px * turn.cos + py * turn.sin;
            const double sy = h / 2.0 - px * turn.sin + py * turn.cos;
            const int cover = coverage(std::min(sx, w - sx), std::min(sy, h - sy));
            out[x] = cover == 0 ? Pixel{} : sampled(cut, sx, sy, cover);
        }
    }
}

// dst under src, both premultiplied: src + dst·(1 − src alpha), rounded as Qt rounds it.
quint32 over(quint32 src, quint32 dst)
{
    const quint32 keep = 255 - (src >> 24);
    quint32 out = 0;
    for (int shift = 0; shift < 32; shift += 8) {
        const quint32 t = ((dst >> shift) & 0xFF) * keep;
        out |= (((src >> shift) & 0xFF) + ((t + 128 + ((t + 128) >> 8)) >> 8)) << shift;
    }
    return out;
}

QRgba64 over(quint32 src, QRgba64 dst)
{
    const QRgba64 wide = QRgba64::fromArgb32(src);
    const quint64 keep = 65535 - wide.alpha();
    const auto channel = [keep](quint16 s, quint16 d) {
        const quint64 t = quint64(d) * keep;
        return quint16(s + ((t + 32768 + ((t + 32768) >> 16)) >> 16));
    };
    return QRgba64::fromRgba64(channel(wide.red(), dst.red()), channel(wide.green(), dst.green()),
                               channel(wide.blue(), dst.blue()), channel(wide.alpha(), dst.alpha()));
}

template <typename Pixel>
void drawOver(QImage& canvas, const QImage& picture, const PictureMap& map, const QRect& area)
{
    const Pixels<quint32> pixels(picture, QPoint(0, 0), picture.size());
    const int w = pixels.w;
    const int h = pixels.h;
    // Picture pixels per canvas pixel across each pair of edges: coverage is measured in canvas pixels.
    const double acrossU = std::sqrt(map.m11 * map.m11 + map.m12 * map.m12);
    const double acrossV = std::sqrt(map.m21 * map.m21 + map.m22 * map.m22);
    for (int y = area.top(); y <= area.bottom(); ++y) {
        auto* out = reinterpret_cast<Pixel*>(canvas.scanLine(y));
        for (int x = area.left(); x <= area.right(); ++x) {
            const double u = map.m11 * (x + 0.5) + map.m12 * (y + 0.5) + map.dx;
            const double v = map.m21 * (x + 0.5) + map.m22 * (y + 0.5) + map.dy;
            const int cover = coverage(std::min(u, w - u) / acrossU, std::min(v, h - v) / acrossV);
            if (cover == 0)
                continue;
            const quint32 sample = sampled(pixels, u, v, cover);
            if (sample != 0)
                out[x] = over(sample, out[x]);
        }
    }
}

} // namespace

PictureMap placedPicture(QSize pixels, const QRectF& rect, double radians, double magnification, qreal scale)
{
    // Canvas pixel -> point -> undo the turn and the magnification about the centre -> picture pixel.
    const CosSin turn = cosSin(radians);
    const QPointF centre = rect.center();
    const double toU = pixels.width() / rect.width();
    const double toV = pixels.height() / rect.height();
    // (X / scale − centre) turned back and shrunk, plus centre − rect's corner, in picture pixels.
    const double a = turn.cos / magnification / scale;
    const double b = turn.sin / magnification / scale;
    const double cx = centre.x();
    const double cy = centre.y();
    PictureMap map;
    map.m11 = a * toU;
    map.m12 = b * toU;
    map.m21 = -b * toV;
    map.m22 = a * toV;
    map.dx = ((-cx * turn.cos - cy * turn.sin) / magnification + cx - rect.left()) * toU;
    map.dy = ((cx * turn.sin - cy * turn.cos) / magnification + cy - rect.top()) * toV;
    return map;
}

bool drawOver(QImage& canvas, const QImage& picture, const PictureMap& map)
{
    const bool deep = canvas.format() == QImage::Format_RGBA64_Premultiplied;
    if ((!deep && canvas.format() != QImage::Format_ARGB32_Premultiplied) ||
        picture.format() != QImage::Format_ARGB32_Premultiplied)
        return false;
    const double determinant = map.m11 * map.m22 - map.m12 * map.m21;
    if (picture.isNull() || !std::isfinite(determinant) || determinant == 0.0)
        return false;
    // Only the canvas pixels under the picture's corners are visited.
    double left = INFINITY;
    double top = INFINITY;
    double right = -INFINITY;
    double bottom = -INFINITY;
    for (const QPointF& corner : {QPointF(0, 0), QPointF(picture.width(), 0), QPointF(0, picture.height()),
                                  QPointF(picture.width(), picture.height())}) {
        const double u = corner.x() - map.dx;
        const double v = corner.y() - map.dy;
        const double x = (map.m22 * u - map.m12 * v) / determinant;
        const double y = (map.m11 * v - map.m21 * u) / determinant;
        left = std::min(left, x);
        right = std::max(right, x);
        top = std::min(top, y);
        bottom = std::max(bottom, y);
    }
    const QRect area =
        QRect(QPoint(int(std::max(-1.0, std::floor(left) - 1)), int(std::max(-1.0, std::floor(top) - 1))),
              QPoint(int(std::min(double(canvas.width()), std::ceil(right) + 1)),
                     int(std::min(double(canvas.height()), std::ceil(bottom) + 1))))
            .intersected(canvas.rect());
    if (area.isEmpty())
        return true;
    if (deep)
        drawOver<QRgba64>(canvas, picture, map, area);
    else
        drawOver<quint32>(canvas, picture, map, area);
    return true;
}

QImage drawnTurned(const QImage& image, const QRect& pixels, double radians, QSize canvas, QPointF centre)
{
    const bool deep = drawingFormat(image) == QImage::Format_RGBA64_Premultiplied;
    const QImage source = premultipliedCut(image, pixels, deep);
    QImage result =
        newImage(canvas, deep ? QImage::Format_RGBA64_Premultiplied : QImage::Format_ARGB32_Premultiplied);
    if (source.isNull() || result.isNull())
        return {};
    // A copy starts at the cut's corner; the image itself is read from the cut's place.
    const QPoint origin = source.constBits() == image.constBits() ? pixels.topLeft() : QPoint(0, 0);
    const CosSin turn = cosSin(radians);
    if (deep)
        draw(Pixels<QRgba64>(source, origin, pixels.size()), turn, centre, result);
    else
        draw(Pixels<quint32>(source, origin, pixels.size()), turn, centre, result);
    return result;
}

} // namespace ImageHelpers
