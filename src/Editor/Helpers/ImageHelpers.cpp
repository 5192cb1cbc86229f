#include "ImageHelpers.h"

#include <QGuiApplication>
#include <QPainter>
#include <QScreen>
#include <cmath>

namespace ImageHelpers {
namespace {

// Beyond this a bitmap is a host's mistake, not a picture: 1 GiB at four bytes a pixel.
constexpr qreal kMaxPixels = 268'435'456.0;

std::optional<QSize> pixelSizeFor(QSizeF points, qreal scale)
{
    const qreal width = std::ceil(points.width() * scale);
    const qreal height = std::ceil(points.height() * scale);
    if (!std::isfinite(width) || !std::isfinite(height) || width < 1.0 || height < 1.0 ||
        width * height > kMaxPixels)
        return std::nullopt;
    return QSize(static_cast<int>(width), static_cast<int>(height));
}

} // namespace

qreal screenScale()
{
    // Tools and tests may run with a plain QCoreApplication, which has no screens.
    if (!qobject_cast<QGuiApplication*>(QCoreApplication::instance()))
        return 1.0;
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen ? screen->devicePixelRatio() : 1.0;
}

std::optional<QImage> redrawnAtScreenScale(const QImage& image)
{
    if (image.isNull())
        return std::nullopt;
    const qreal scale = screenScale();
    const QSizeF points = image.deviceIndependentSize();
    const auto pixels = pixelSizeFor(points, scale);
    // Redrawing a photo of scale 1 for a screen of scale 3 would make nine pixels of each one: the copy
    // keeps the photo's own pixels and scale instead, and never invents detail.
    if (!pixels || pixels->width() > image.width() || pixels->height() > image.height() ||
        *pixels == image.size()) {
        QImage copy = image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
        if (copy.isNull())
            return std::nullopt;
        return copy;
    }
    QImage canvas(*pixels, QImage::Format_ARGB32_Premultiplied);
    if (canvas.isNull())
        return std::nullopt;
    canvas.fill(Qt::transparent);
    canvas.setDevicePixelRatio(scale);
    QPainter painter(&canvas);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.drawImage(QRectF(QPointF(0, 0), points), image);
    painter.end();
    return canvas;
}

std::optional<QImage> resized(const QImage& image, QSizeF size)
{
    if (image.isNull())
        return std::nullopt;
    const qreal scale = screenScale();
    const auto pixels = pixelSizeFor(size, scale);
    if (!pixels)
        return std::nullopt;
    QImage result = image.scaled(*pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    if (result.isNull())
        return std::nullopt;
    result.setDevicePixelRatio(scale);
    return result;
}

QImage transparentCanvas(QSizeF points)
{
    const qreal scale = screenScale();
    const auto pixels = pixelSizeFor(points, scale);
    if (!pixels)
        return {};
    QImage canvas(*pixels, QImage::Format_ARGB32_Premultiplied);
    if (canvas.isNull())
        return {};
    canvas.setDevicePixelRatio(scale);
    canvas.fill(Qt::transparent);
    return canvas;
}

} // namespace ImageHelpers
