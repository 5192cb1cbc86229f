#include "ImageGeometry.h"

#include "ImageHelpers.h"

#include <QPainter>
#include <QTransform>
#include <cmath>

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
        turned.setDevicePixelRatio(scale);
        return turned;
    }

    QImage canvas(canvasPixels, QImage::Format_ARGB32_Premultiplied);
    if (canvas.isNull())
        return std::nullopt;
    canvas.setDevicePixelRatio(scale);
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
    flipped.setDevicePixelRatio(image.devicePixelRatio());
    return flipped;
}

std::optional<QImage> verticallyFlipped(const QImage& image)
{
    if (image.isNull())
        return std::nullopt;
    QImage flipped = image.mirrored(false, true);
    flipped.setDevicePixelRatio(image.devicePixelRatio());
    return flipped;
}

QImage copy(const QImage& image)
{
    return redrawnAtScreenScale(image).value_or(image);
}

} // namespace ImageHelpers
