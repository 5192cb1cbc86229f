#pragma once

#include "Error/QuorvaneSdkImageError.h"
#include "ImageCropper.h"

#include <QRectF>
#include <QSizeF>
#include <optional>
#include <variant>

class ImageCropperImp final : public ImageCropper
{
public:
    QImage crop(const QuorvaneSdkImageCropInput& image) override;

    /// \a image redrawn at \a newSize pixels (scale 1), stretched; empty when no such image can be made.
    std::optional<QImage> resizeImage(const QImage& image, QSizeF newSize);

    /// The pixels a cut of \a x, \a y, \a width, \a height points takes from a picture of \a pixels at
    /// \a scale: \a exact, and \a whole with fractional edges widened to whole pixels, as crop() cuts.
    struct Cut
    {
        QRectF exact;
        QRect whole;
    };
    /// invalidCropRange for a cut outside the picture, unableToCropImage for one that holds no pixels.
    static std::variant<Cut, QuorvaneSdkImageError::Code> cutPixels(QSize pixels, qreal scale, qint64 x,
                                                                    qint64 y, qint64 width, qint64 height);
};
