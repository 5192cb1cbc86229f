#include "ImageGeometry.h"

#include "ImageHelpers.h"

#include <QPainter>
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

} // namespace

std::optional<QImage> rotate(const QImage& image, double radians)
{
    if (image.isNull() || !std::isfinite(radians))
        return std::nullopt;
    const qreal scale = image.devicePixelRatio();
    const QSizeF size = image.deviceIndependentSize();
    const QRectF bounds = QTransform().rotateRadians(radians).mapRect(QRectF(QPointF(0, 0), size));
    const QSizeF canvasPoints(std::floor(bounds.width()), std::floor(bounds.height()));
    const QSize canvasPixels(int(std::ceil(canvasPoints.width() * scale)),
                             int(std::ceil(canvasPoints.height() * scale)));
    if (canvasPixels.isEmpty())
        return std::nullopt;

    if (const auto quarters = quarterTurns(radians)) {
        QImage turned = turnedExactly(image, *quarters);
        if (turned.isNull())
            return std::nullopt;
        // A fractional point size floors the canvas below the turned bitmap: cut it centred, on whole pixels,
        // so that no pixel is resampled.
        if (turned.size() != canvasPixels) {
            const QPoint offset((turned.width() - canvasPixels.width()) / 2,
                                (turned.height() - canvasPixels.height()) / 2);
            turned = turned.copy(QRect(offset, canvasPixels));
        }
        keepMetadata(turned, image);
        return turned;
    }

    QImage canvas(canvasPixels, QImage::Format_ARGB32_Premultiplied);
    if (canvas.isNull())
        return std::nullopt;
    keepMetadata(canvas, image);
    canvas.fill(Qt::transparent);
    QPainter painter(&canvas);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.translate(canvasPoints.width() / 2, canvasPoints.height() / 2);
    painter.rotate(qRadiansToDegrees(radians));
    painter.drawImage(QRectF(QPointF(-size.width() / 2, -size.height() / 2), size), image);
    painter.end();
    return canvas;
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
    const QImage::Format format = image.format();
    if (pixels.isEmpty() || !image.rect().contains(pixels) ||
        (format != QImage::Format_RGB32 && format != QImage::Format_ARGB32 &&
         format != QImage::Format_ARGB32_Premultiplied))
        return std::nullopt;
    const int turns = ((quarterTurns % 4) + 4) % 4;
    const int w = pixels.width();
    const int h = pixels.height();
    const bool sideways = turns % 2 == 1;
    QImage result = newImage(sideways ? QSize(h, w) : QSize(w, h), format);
    if (result.isNull())
        return std::nullopt;
    keepMetadata(result, image);

    // Destination pixel (u, v) reads source pixel origin + u·du + v·dv: the cut, the turn and the mirrors
    // composed into one affine walk over whole pixels.
    const int outW = result.width();
    const int outH = result.height();
    // Where the turned image's (u, v) comes from in the cut, before the mirrors.
    QPoint origin;
    QPoint du;
    QPoint dv;
    switch (turns) {
    case 0:
        origin = {0, 0}, du = {1, 0}, dv = {0, 1};
        break;
    case 1:
        origin = {0, h - 1}, du = {0, -1}, dv = {1, 0};
        break;
    case 2:
        origin = {w - 1, h - 1}, du = {-1, 0}, dv = {0, -1};
        break;
    default:
        origin = {w - 1, 0}, du = {0, 1}, dv = {-1, 0};
        break;
    }
    if (mirrorLeftRight) {
        origin += du * (outW - 1);
        du = -du;
    }
    if (mirrorTopBottom) {
        origin += dv * (outH - 1);
        dv = -dv;
    }
    origin += pixels.topLeft();

    const auto* source = reinterpret_cast<const quint32*>(image.constBits());
    const qsizetype sourceStride = image.bytesPerLine() / 4;
    const qsizetype step = qsizetype(du.x()) + qsizetype(du.y()) * sourceStride;
    const qsizetype rowStep = qsizetype(dv.x()) + qsizetype(dv.y()) * sourceStride;
    const quint32* rowStart = source + origin.x() + qsizetype(origin.y()) * sourceStride;
    auto* target = reinterpret_cast<quint32*>(result.bits());
    const qsizetype targetStride = result.bytesPerLine() / 4;
    if (!sideways) {
        for (int v = 0; v < outH; ++v, rowStart += rowStep) {
            quint32* out = target + qsizetype(v) * targetStride;
            if (step == 1) {
                std::memcpy(out, rowStart, size_t(outW) * 4);
            } else {
                for (int u = 0; u < outW; ++u)
                    out[u] = rowStart[-u];
            }
        }
        return result;
    }
    // Sideways, each output row walks down a source column: work in tiles so the columns stay in cache.
    constexpr int kTile = 64;
    for (int tileV = 0; tileV < outH; tileV += kTile) {
        const int endV = std::min(outH, tileV + kTile);
        for (int tileU = 0; tileU < outW; tileU += kTile) {
            const int endU = std::min(outW, tileU + kTile);
            for (int v = tileV; v < endV; ++v) {
                quint32* out = target + qsizetype(v) * targetStride;
                const quint32* in = rowStart + qsizetype(v) * rowStep + qsizetype(tileU) * step;
                for (int u = tileU; u < endU; ++u, in += step)
                    out[u] = *in;
            }
        }
    }
    return result;
}

QImage copy(const QImage& image)
{
    return redrawnAtScreenScale(image).value_or(image);
}

} // namespace ImageHelpers
