#pragma once

#include "ImageCropper.h"

#include <QRectF>
#include <QSizeF>
#include <optional>

class ImageCropperImp final : public ImageCropper
{
public:
    QImage crop(const QuorvaneSdkImageCropInput& image) override;

    /// \a image redrawn at \a newSize pixels (scale 1), stretched; empty when no such image can be made.
    std::optional<QImage> resizeImage(const QImage& image, QSizeF newSize);

private:
    static void validateCropRange(const QuorvaneSdkImageCropInput& input);
    static std::optional<QImage> crop(const QuorvaneSdkImageCropInput& input, const QRectF& cropRect);
};
