#include "ImageCropperImp.h"

#include "Editor/Helpers/ImageGeometry.h"
#include "Editor/Helpers/Truncate.h"
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
    const QImage& original = input.image;
    const auto cut = cutPixels(original.size(), original.devicePixelRatio(), input.startXPoint,
                               input.startYPoint, input.width, input.height);
    if (std::holds_alternative<QuorvaneSdkImageError::Code>(cut) &&
        std::get<QuorvaneSdkImageError::Code>(cut) == QuorvaneSdkImageError::invalidCropRange) {
        log("invalid crop range", SharedQuorvaneSdkLogSeverity::error);
        throw QuorvaneSdkImageError(QuorvaneSdkImageError::invalidCropRange);
    }
    log("crop image");
    const Cut* pixels = std::get_if<Cut>(&cut);
    if (original.isNull() || !pixels) {
        log("crop image failed", SharedQuorvaneSdkLogSeverity::error);
        throw QuorvaneSdkImageError(QuorvaneSdkImageError::unableToCropImage);
    }
    const QRect& whole = pixels->whole;
    const Mirroring seen = seenMirroring(input.rotation, {input.flipHorizontally, input.flipVertically});
    const bool mirrorLeftRight = seen.leftRight;
    const bool mirrorTopBottom = seen.topBottom;
    // The cut, the turn and the flips read the original once and write one image: a photo-sized cut or
    // turned copy in between would cost as much memory as the photo itself.
    const double quarters = input.rotation.degrees() / 90.0;
    std::optional<QImage> result;
    if (QRectF(whole) == pixels->exact && quarters == std::floor(quarters) && std::abs(quarters) < 1e9)
        result = ImageHelpers::cutTurnedAndMirrored(original, whole, int(std::fmod(quarters, 4.0)),
                                                    mirrorLeftRight, mirrorTopBottom);
    else if (input.rotation.radians() != 0.0)
        result = ImageHelpers::cutRotatedAndMirrored(original, whole, input.rotation.radians(),
                                                     mirrorLeftRight, mirrorTopBottom);
    // No turn, or one that could not be made: the cut stays as it is.
    if (!result)
        result = ImageHelpers::cutTurnedAndMirrored(original, whole, 0, mirrorLeftRight, mirrorTopBottom);
    if (!result) {
        log("crop image failed", SharedQuorvaneSdkLogSeverity::error);
        throw QuorvaneSdkImageError(QuorvaneSdkImageError::unableToCropImage);
    }
    return std::move(*result);
}

std::variant<ImageCropperImp::Cut, QuorvaneSdkImageError::Code>
ImageCropperImp::cutPixels(QSize pixels, qreal scale, qint64 x, qint64 y, qint64 width, qint64 height)
{
    const QSizeF size = QSizeF(pixels) / scale;
    const qint64 pointsWide = truncatedToInt64(size.width(), "ImageCropperImp: image width");
    const qint64 pointsHigh = truncatedToInt64(size.height(), "ImageCropperImp: image height");
    // Zero or negative extents pass here on purpose; the cut refuses them.
    if (x < 0 || y < 0 || checkedSum(x, width) > pointsWide || checkedSum(y, height) > pointsHigh)
        return QuorvaneSdkImageError::invalidCropRange;
    const QRectF exact(double(x) * scale, double(y) * scale, double(width) * scale, double(height) * scale);
    if (!(exact.width() > 0) || !(exact.height() > 0))
        return QuorvaneSdkImageError::unableToCropImage;
    // Fractional pixel edges widen to whole pixels, as bitmap cuts do.
    const QRect whole(QPoint(int(std::floor(exact.left())), int(std::floor(exact.top()))),
                      QPoint(int(std::ceil(exact.right())) - 1, int(std::ceil(exact.bottom())) - 1));
    if (!QRect(QPoint(0, 0), pixels).contains(whole))
        return QuorvaneSdkImageError::unableToCropImage;
    return Cut{exact, whole};
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
