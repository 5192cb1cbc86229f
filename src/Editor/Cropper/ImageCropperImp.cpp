#include "ImageCropperImp.h"

#include "Editor/Helpers/ImageGeometry.h"
#include "Error/QuorvaneSdkImageError.h"
#include "Logger/ImageLogger.h"

#include <QPainter>
#include <cmath>

namespace {

const QString kTag = QStringLiteral("ImageCropperImp");

void log(const char* message, SharedQuorvaneSdkLogSeverity severity = SharedQuorvaneSdkLogSeverity::info)
{
    ImageLogger::shared().log(kTag, QString::fromLatin1(message), severity);
}

qint64 truncatedPoints(double value, const char* what)
{
    // 2^63 as a double; anything at or beyond it does not fit a signed 64-bit integer.
    constexpr double kLimit = 9223372036854775808.0;
    if (!std::isfinite(value) || value <= -kLimit || value >= kLimit)
        qFatal("ImageCropperImp: image %s %f is not a finite 64-bit size", what, value);
    return qint64(value);
}

qint64 checkedSum(qint64 a, qint64 b)
{
    qint64 sum = 0;
    if (__builtin_add_overflow(a, b, &sum))
        qFatal("ImageCropperImp: crop range %lld + %lld overflows", static_cast<long long>(a),
               static_cast<long long>(b));
    return sum;
}

} // namespace

QImage ImageCropperImp::crop(const QuorvaneSdkImageCropInput& input)
{
    log("start crop image");
    validateCropRange(input);
    const QRectF rect(double(input.startXPoint), double(input.startYPoint), double(input.width),
                      double(input.height));
    if (auto done = cropInOnePass(input, rect))
        return std::move(*done);
    std::optional<QImage> cut = crop(input.image, rect);
    if (!cut) {
        log("crop image failed", SharedQuorvaneSdkLogSeverity::error);
        throw QuorvaneSdkImageError(QuorvaneSdkImageError::unableToCropImage);
    }
    QImage result = std::move(*cut);
    if (input.rotation.radians() != 0.0)
        result = ImageHelpers::rotate(result, input.rotation.radians()).value_or(result);
    // At a quarter turn the image's own axes are swapped on screen, so are the flips.
    const bool portrait = input.rotation.isPortrait();
    if (input.flipHorizontally)
        result =
            (portrait ? ImageHelpers::horizontallyFlipped(result) : ImageHelpers::verticallyFlipped(result))
                .value_or(result);
    if (input.flipVertically)
        result =
            (portrait ? ImageHelpers::verticallyFlipped(result) : ImageHelpers::horizontallyFlipped(result))
                .value_or(result);
    return result;
}

void ImageCropperImp::validateCropRange(const QuorvaneSdkImageCropInput& input)
{
    const QSizeF size = input.image.deviceIndependentSize();
    const qint64 width = truncatedPoints(size.width(), "width");
    const qint64 height = truncatedPoints(size.height(), "height");
    // Zero or negative extents pass here on purpose; the cut refuses them.
    const bool valid = input.startXPoint >= 0 && input.startYPoint >= 0 &&
                       checkedSum(input.startXPoint, input.width) <= width &&
                       checkedSum(input.startYPoint, input.height) <= height;
    if (!valid) {
        log("invalid crop range", SharedQuorvaneSdkLogSeverity::error);
        throw QuorvaneSdkImageError(QuorvaneSdkImageError::invalidCropRange);
    }
}

std::optional<QImage> ImageCropperImp::crop(const QImage& original, const QRectF& cropRect)
{
    log("crop image");
    if (original.isNull())
        return std::nullopt;
    const qreal scale = original.devicePixelRatio();
    const QRectF pixels(cropRect.x() * scale, cropRect.y() * scale, cropRect.width() * scale,
                        cropRect.height() * scale);
    if (!(pixels.width() > 0) || !(pixels.height() > 0))
        return std::nullopt;
    // Fractional pixel edges widen to whole pixels, as bitmap cuts do.
    const QRect whole(QPoint(int(std::floor(pixels.left())), int(std::floor(pixels.top()))),
                      QPoint(int(std::ceil(pixels.right())) - 1, int(std::ceil(pixels.bottom())) - 1));
    if (!original.rect().contains(whole))
        return std::nullopt;
    QImage cut = original.copy(whole);
    if (cut.isNull())
        return std::nullopt;
    cut.setDevicePixelRatio(scale);
    return cut;
}

std::optional<QImage> ImageCropperImp::cropInOnePass(const QuorvaneSdkImageCropInput& input,
                                                     const QRectF& cropRect)
{
    const double quarters = input.rotation.degrees() / 90.0;
    const qreal scale = input.image.devicePixelRatio();
    const QRectF pixels(cropRect.x() * scale, cropRect.y() * scale, cropRect.width() * scale,
                        cropRect.height() * scale);
    const auto whole = [](qreal v) { return std::isfinite(v) && v == std::floor(v) && std::abs(v) < 1e9; };
    // Only where every step moves whole pixels is one pass the same as cut, turn and flips in turn.
    if (!whole(quarters) || !whole(pixels.x()) || !whole(pixels.y()) || !whole(pixels.width()) ||
        !whole(pixels.height()) || pixels.width() <= 0 || pixels.height() <= 0)
        return std::nullopt;
    const bool portrait = input.rotation.isPortrait();
    const bool mirrorLeftRight = portrait ? input.flipHorizontally : input.flipVertically;
    const bool mirrorTopBottom = portrait ? input.flipVertically : input.flipHorizontally;
    const QRect pixelRect(int(pixels.x()), int(pixels.y()), int(pixels.width()), int(pixels.height()));
    auto result = ImageHelpers::cutTurnedAndMirrored(input.image, pixelRect, int(std::fmod(quarters, 4.0)),
                                                     mirrorLeftRight, mirrorTopBottom);
    if (result)
        log("crop image");
    return result;
}

std::optional<QImage> ImageCropperImp::resizeImage(const QImage& image, QSizeF newSize)
{
    log("resize image");
    if (image.isNull() || !std::isfinite(newSize.width()) || !std::isfinite(newSize.height()) ||
        newSize.width() < 1.0 || newSize.height() < 1.0 || newSize.width() * newSize.height() > 268'435'456.0)
        return std::nullopt;
    QImage canvas(QSize(int(std::ceil(newSize.width())), int(std::ceil(newSize.height()))),
                  QImage::Format_ARGB32_Premultiplied);
    if (canvas.isNull())
        return std::nullopt;
    canvas.fill(Qt::transparent);
    QPainter painter(&canvas);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.drawImage(QRectF(QPointF(0, 0), newSize), image);
    painter.end();
    return canvas;
}
