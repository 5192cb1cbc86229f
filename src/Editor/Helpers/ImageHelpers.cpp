#include "ImageHelpers.h"

#include <QColorSpace>
#include <QGuiApplication>
#include <QPainter>
#include <QRgba64>
#include <QScreen>
#include <cmath>
#include <cstdlib>
#include <cstring>
// Transparent huge pages: desktop and embedded Linux; Android leaves them off.
#if defined(__linux__) && !defined(__ANDROID__)
#define QUORVANE_HUGE_PAGES 1
#include <sys/mman.h>
#endif

namespace ImageHelpers {
namespace {

// image with change applied to each pixel in place, then named format.
template <typename Pixel, Pixel (*change)(Pixel)> QImage changedPixels(QImage image, QImage::Format format)
{
    for (int y = 0; y < image.height(); ++y) {
        auto* row = reinterpret_cast<Pixel*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x)
            row[x] = change(row[x]);
    }
    return image.reinterpretAsFormat(format) ? image : QImage();
}

std::optional<QSize> pixelSizeFor(QSizeF points, qreal scale)
{
    const qreal width = std::ceil(points.width() * scale);
    const qreal height = std::ceil(points.height() * scale);
    if (!std::isfinite(width) || !std::isfinite(height) || width < 1.0 || height < 1.0 ||
        width * height > qreal(kMaxPixels))
        return std::nullopt;
    return QSize(static_cast<int>(width), static_cast<int>(height));
}

constexpr qsizetype kHugePage = 2 * 1024 * 1024;

} // namespace

QImage newImage(QSize size, QImage::Format format)
{
#ifdef QUORVANE_HUGE_PAGES
    const int depth = QImage::toPixelFormat(format).bitsPerPixel();
    if (size.isEmpty() || depth <= 0 || qint64(size.width()) * size.height() > kMaxPixels)
        return QImage(size, format);
    const qsizetype bytesPerLine = ((qsizetype(size.width()) * depth + 31) / 32) * 4;
    const qsizetype bytes = bytesPerLine * size.height();
    if (bytes < 2 * kHugePage)
        return QImage(size, format);
    const auto rounded = size_t((bytes + kHugePage - 1) / kHugePage * kHugePage);
    void* data = std::aligned_alloc(size_t(kHugePage), rounded);
    if (!data)
        return QImage(size, format);
    // Only a hint: without transparent huge pages the buffer is an ordinary one.
    madvise(data, rounded, MADV_HUGEPAGE);
    QImage image(
        static_cast<uchar*>(data), size.width(), size.height(), bytesPerLine, format,
        [](void* buffer) { std::free(buffer); }, data);
    if (image.isNull())
        std::free(data);
    return image;
#else
    return QImage(size, format);
#endif
}

QImage::Format drawingFormat(const QImage& image)
{
    switch (image.format()) {
    case QImage::Format_RGBX64:
    case QImage::Format_RGBA64:
    case QImage::Format_RGBA64_Premultiplied:
    case QImage::Format_Grayscale16:
        return QImage::Format_RGBA64_Premultiplied;
    default:
        return QImage::Format_ARGB32_Premultiplied;
    }
}

QImage premultipliedAlike(QImage image)
{
    switch (image.format()) {
    case QImage::Format_ARGB32:
        return changedPixels<QRgb, qPremultiply>(std::move(image), QImage::Format_ARGB32_Premultiplied);
    case QImage::Format_RGBA64:
        return changedPixels<QRgba64, qPremultiply>(std::move(image), QImage::Format_RGBA64_Premultiplied);
    default:
        return {};
    }
}

QImage straightAlike(QImage image)
{
    switch (image.format()) {
    case QImage::Format_ARGB32_Premultiplied:
        return changedPixels<QRgb, qUnpremultiply>(std::move(image), QImage::Format_ARGB32);
    case QImage::Format_RGBA64_Premultiplied:
        return changedPixels<QRgba64, qUnpremultiply>(std::move(image), QImage::Format_RGBA64);
    default:
        return {};
    }
}

QImage premultipliedCopy(const QImage& image)
{
    const QImage::Format format = image.format();
    if (drawingFormat(image) != QImage::Format_ARGB32_Premultiplied)
        return image.convertToFormat(QImage::Format_RGBA64_Premultiplied);
    if (format != QImage::Format_RGB32 && format != QImage::Format_ARGB32_Premultiplied)
        return image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    QImage copy = newImage(image.size(), QImage::Format_ARGB32_Premultiplied);
    if (copy.isNull())
        return copy;
    if (format == QImage::Format_ARGB32_Premultiplied) {
        const auto rowBytes = size_t(image.width()) * 4;
        for (int y = 0; y < image.height(); ++y)
            std::memcpy(copy.scanLine(y), image.constScanLine(y), rowBytes);
    } else {
        // Opaque pixels are premultiplied already; only the unused byte of a host's buffer may not say
        // "opaque".
        const int width = image.width();
        for (int y = 0; y < image.height(); ++y) {
            const auto* in = reinterpret_cast<const quint32*>(image.constScanLine(y));
            auto* out = reinterpret_cast<quint32*>(copy.scanLine(y));
            for (int x = 0; x < width; ++x)
                out[x] = in[x] | 0xFF000000u;
        }
    }
    keepMetadata(copy, image);
    return copy;
}

void keepMetadata(QImage& image, const QImage& source)
{
    image.setDevicePixelRatio(source.devicePixelRatio());
    image.setColorSpace(source.colorSpace());
    image.setDotsPerMeterX(source.dotsPerMeterX());
    image.setDotsPerMeterY(source.dotsPerMeterY());
    const QStringList keys = source.textKeys();
    for (const QString& key : keys)
        image.setText(key, source.text(key));
}

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
        QImage copy = premultipliedCopy(image);
        if (copy.isNull())
            return std::nullopt;
        return copy;
    }
    QImage canvas(*pixels, drawingFormat(image));
    if (canvas.isNull())
        return std::nullopt;
    canvas.fill(Qt::transparent);
    canvas.setDevicePixelRatio(scale);
    canvas.setColorSpace(image.colorSpace());
    QPainter painter(&canvas);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.drawImage(QRectF(QPointF(0, 0), points), image);
    painter.end();
    return canvas;
}

bool fitsPixelLimit(QSizeF points)
{
    return pixelSizeFor(points, screenScale()).has_value();
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
    result.setColorSpace(image.colorSpace());
    return result;
}

QImage transparentCanvas(QSizeF points, std::optional<qreal> scale)
{
    return filledCanvas(points, Qt::transparent, scale);
}

QImage filledCanvas(QSizeF points, const QColor& color, std::optional<qreal> givenScale)
{
    const qreal scale = givenScale.value_or(screenScale());
    const auto pixels = pixelSizeFor(points, scale);
    if (!pixels)
        return {};
    QImage canvas(*pixels, QImage::Format_ARGB32_Premultiplied);
    if (canvas.isNull())
        return {};
    canvas.setDevicePixelRatio(scale);
    canvas.fill(color);
    return canvas;
}

} // namespace ImageHelpers
