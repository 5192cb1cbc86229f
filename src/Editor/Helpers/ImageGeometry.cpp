#include "ImageGeometry.h"

#include "ImageHelpers.h"
#include "Resampling.h"

#include <QTransform>
#include <cmath>
#include <cstring>

namespace ImageHelpers {
namespace {

// Whether radians is a whole number of quarter turns, and which: 0 to 3 clockwise.
std::optional<int> quarterTurns(double radians)
{
    const double quarters = radians / (M_PI / 2.0);
    const double whole = std::round(quarters);
    if (std::abs(quarters - whole) > 1e-9)
        return std::nullopt;
    return int(std::fmod(std::fmod(whole, 4.0) + 4.0, 4.0));
}

QImage turnedExactly(const QImage& image, int quarters)
{
    switch (quarters) {
    case 1:
        return image.transformed(QTransform().rotate(90));
    case 2:
        return image.mirrored(true, true);
    case 3:
        return image.transformed(QTransform().rotate(270));
    default:
        return image;
    }
}

struct Canvas
{
    QSizeF points;
    QSize pixels;
};

// What rotate() draws an image of size points on: the floor of the turned bounding box, in points.
Canvas canvasFor(QSizeF size, qreal scale, double radians)
{
    const CosSin turn = cosSin(radians);
    const double cos = std::abs(turn.cos);
    const double sin = std::abs(turn.sin);
    const QSizeF points(std::floor(size.width() * cos + size.height() * sin),
                        std::floor(size.width() * sin + size.height() * cos));
    return {points, QSize(int(std::ceil(points.width() * scale)), int(std::ceil(points.height() * scale)))};
}

// The part of the image under pixels that, turned by turns quarters, becomes part r of the turned cut.
QRect behindTurn(const QRect& pixels, int turns, const QRect& r)
{
    const int w = pixels.width();
    const int h = pixels.height();
    QRect inCut = r;
    switch (turns) {
    case 1:
        inCut = QRect(r.y(), h - r.x() - r.width(), r.height(), r.width());
        break;
    case 2:
        inCut = QRect(w - r.x() - r.width(), h - r.y() - r.height(), r.width(), r.height());
        break;
    case 3:
        inCut = QRect(w - r.y() - r.height(), r.x(), r.height(), r.width());
        break;
    default:
        break;
    }
    return inCut.translated(pixels.topLeft());
}

// Output pixel (u, v) of result is the N-byte pixel at rowStart + u·step + v·rowStep (steps in bytes).
template <int N>
void copyPixels(const uchar* rowStart, qsizetype step, qsizetype rowStep, bool sideways, QImage& result)
{
    const int outW = result.width();
    const int outH = result.height();
    uchar* target = result.bits();
    const qsizetype targetStride = result.bytesPerLine();
    if (!sideways) {
        for (int v = 0; v < outH; ++v, rowStart += rowStep) {
            uchar* out = target + qsizetype(v) * targetStride;
            if (step == N) {
                std::memcpy(out, rowStart, size_t(outW) * N);
            } else {
                for (int u = 0; u < outW; ++u)
                    std::memcpy(out + qsizetype(u) * N, rowStart - qsizetype(u) * N, N);
            }
        }
        return;
    }
    // Sideways, each output row walks down a source column: work in tiles so the columns stay in cache.
    constexpr int kTile = 64;
    for (int tileV = 0; tileV < outH; tileV += kTile) {
        const int endV = std::min(outH, tileV + kTile);
        for (int tileU = 0; tileU < outW; tileU += kTile) {
            const int endU = std::min(outW, tileU + kTile);
            for (int v = tileV; v < endV; ++v) {
                uchar* out = target + qsizetype(v) * targetStride;
                const uchar* in = rowStart + qsizetype(v) * rowStep + qsizetype(tileU) * step;
                for (int u = tileU; u < endU; ++u, in += step)
                    std::memcpy(out + qsizetype(u) * N, in, N);
            }
        }
    }
}

} // namespace

bool walksWholePixels(const QImage& image)
{
    switch (image.depth()) {
    case 8:
    case 16:
    case 24:
    case 32:
    case 64:
    case 128:
        return true;
    default:
        return false;
    }
}

PixelWalk pixelWalk(const QRect& pixels, int quarterTurns, bool mirrorLeftRight, bool mirrorTopBottom)
{
    const int turns = ((quarterTurns % 4) + 4) % 4;
    const int w = pixels.width();
    const int h = pixels.height();
    PixelWalk walk;
    walk.size = turns % 2 == 1 ? QSize(h, w) : QSize(w, h);
    // Where the turned image's (u, v) comes from in the cut, before the mirrors.
    switch (turns) {
    case 0:
        walk.origin = {0, 0}, walk.du = {1, 0}, walk.dv = {0, 1};
        break;
    case 1:
        walk.origin = {0, h - 1}, walk.du = {0, -1}, walk.dv = {1, 0};
        break;
    case 2:
        walk.origin = {w - 1, h - 1}, walk.du = {-1, 0}, walk.dv = {0, -1};
        break;
    default:
        walk.origin = {w - 1, 0}, walk.du = {0, 1}, walk.dv = {-1, 0};
        break;
    }
    if (mirrorLeftRight) {
        walk.origin += walk.du * (walk.size.width() - 1);
        walk.du = -walk.du;
    }
    if (mirrorTopBottom) {
        walk.origin += walk.dv * (walk.size.height() - 1);
        walk.dv = -walk.dv;
    }
    walk.origin += pixels.topLeft();
    return walk;
}

PixelWalk composed(const PixelWalk& inner, const PixelWalk& outer)
{
    const auto through = [&inner](QPoint step) { return inner.du * step.x() + inner.dv * step.y(); };
    return {inner.origin + through(outer.origin), through(outer.du), through(outer.dv), outer.size};
}

void cutWalked(const QImage& image, const PixelWalk& walk, int top, QImage& band)
{
    const qsizetype bytes = image.depth() / 8;
    const qsizetype stride = image.bytesPerLine();
    const qsizetype step = walk.du.x() * bytes + walk.du.y() * stride;
    const qsizetype rowStep = walk.dv.x() * bytes + walk.dv.y() * stride;
    const QPoint first = walk.origin + walk.dv * top;
    const uchar* rowStart = image.constBits() + first.x() * bytes + first.y() * stride;
    const bool sideways = walk.du.y() != 0;
    switch (bytes) {
    case 1:
        copyPixels<1>(rowStart, step, rowStep, sideways, band);
        break;
    case 2:
        copyPixels<2>(rowStart, step, rowStep, sideways, band);
        break;
    case 3:
        copyPixels<3>(rowStart, step, rowStep, sideways, band);
        break;
    case 4:
        copyPixels<4>(rowStart, step, rowStep, sideways, band);
        break;
    case 8:
        copyPixels<8>(rowStart, step, rowStep, sideways, band);
        break;
    default:
        copyPixels<16>(rowStart, step, rowStep, sideways, band);
        break;
    }
}

std::optional<QImage> rotate(const QImage& image, double radians)
{
    if (image.isNull())
        return std::nullopt;
    return cutRotatedAndMirrored(image, image.rect(), radians, false, false);
}

std::optional<QImage> horizontallyFlipped(const QImage& image)
{
    if (image.isNull())
        return std::nullopt;
    QImage flipped = image.mirrored(true, false);
    keepMetadata(flipped, image);
    return flipped;
}

std::optional<QImage> verticallyFlipped(const QImage& image)
{
    if (image.isNull())
        return std::nullopt;
    QImage flipped = image.mirrored(false, true);
    keepMetadata(flipped, image);
    return flipped;
}

std::optional<QImage> cutTurnedAndMirrored(const QImage& image, const QRect& pixels, int quarterTurns,
                                           bool mirrorLeftRight, bool mirrorTopBottom)
{
    if (pixels.isEmpty() || !image.rect().contains(pixels))
        return std::nullopt;
    const int turns = ((quarterTurns % 4) + 4) % 4;
    if (turns == 0 && !mirrorLeftRight && !mirrorTopBottom && pixels == image.rect())
        return image;
    if (!walksWholePixels(image)) {
        // Pixels smaller than a byte: Qt's own steps.
        QImage result = turnedExactly(image.copy(pixels), turns).mirrored(mirrorLeftRight, mirrorTopBottom);
        if (result.isNull())
            return std::nullopt;
        keepMetadata(result, image);
        return result;
    }
    // Destination pixel (u, v) reads source pixel origin + u·du + v·dv: the cut, the turn and the mirrors
    // composed into one affine walk over whole pixels.
    const PixelWalk walk = pixelWalk(pixels, turns, mirrorLeftRight, mirrorTopBottom);
    QImage result = newImage(walk.size, image.format());
    if (result.isNull())
        return std::nullopt;
    keepMetadata(result, image);
    if (image.colorCount() > 0)
        result.setColorTable(image.colorTable());
    cutWalked(image, walk, 0, result);
    return result;
}

std::optional<QImage> cutRotatedAndMirrored(const QImage& image, const QRect& pixels, double radians,
                                            bool mirrorLeftRight, bool mirrorTopBottom)
{
    if (pixels.isEmpty() || !image.rect().contains(pixels) || !std::isfinite(radians))
        return std::nullopt;
    const qreal scale = image.devicePixelRatio();
    const QSizeF size(pixels.width() / scale, pixels.height() / scale);
    const Canvas canvas = canvasFor(size, scale, radians);
    if (canvas.pixels.isEmpty())
        return std::nullopt;

    if (const auto quarters = quarterTurns(radians)) {
        const QSize turned = *quarters % 2 == 1 ? pixels.size().transposed() : pixels.size();
        // A fractional point size floors the canvas below the turned cut: its centre, on whole pixels, so
        // that no pixel is resampled.
        if (canvas.pixels.width() <= turned.width() && canvas.pixels.height() <= turned.height()) {
            const QRect centre(QPoint((turned.width() - canvas.pixels.width()) / 2,
                                      (turned.height() - canvas.pixels.height()) / 2),
                               canvas.pixels);
            return cutTurnedAndMirrored(image, behindTurn(pixels, *quarters, centre), *quarters,
                                        mirrorLeftRight, mirrorTopBottom);
        }
        // A scale that does not divide whole points can round the canvas past the cut: padded, as a bitmap
        // cut past its edge is.
        const QImage turnedCut = turnedExactly(image.copy(pixels), *quarters);
        const QPoint offset((turnedCut.width() - canvas.pixels.width()) / 2,
                            (turnedCut.height() - canvas.pixels.height()) / 2);
        QImage result =
            turnedCut.copy(QRect(offset, canvas.pixels)).mirrored(mirrorLeftRight, mirrorTopBottom);
        if (result.isNull())
            return std::nullopt;
        keepMetadata(result, image);
        return result;
    }

    const qreal centreX = canvas.points.width() * scale / 2.0;
    const qreal centreY = canvas.points.height() * scale / 2.0;
    QImage result = drawnTurned(image, pixels, radians, canvas.pixels, QPointF(centreX, centreY));
    if (result.isNull())
        return std::nullopt;
    keepMetadata(result, image);
    result.mirror(mirrorLeftRight, mirrorTopBottom);
    return result;
}

QImage copy(const QImage& image)
{
    return redrawnAtScreenScale(image).value_or(image);
}

} // namespace ImageHelpers
