#pragma once

#include "QuorvaneSdkImageCropInput.h"

/// Cuts, turns and flips images.
class ImageCropper
{
public:
    virtual ~ImageCropper() = default;

    /// The cut-out of \a image's rectangle, turned and flipped as it asks. Throws QuorvaneSdkImageError
    /// (invalidCropRange, unableToCropImage) after logging the failure.
    virtual QImage crop(const QuorvaneSdkImageCropInput& image) = 0;
};
