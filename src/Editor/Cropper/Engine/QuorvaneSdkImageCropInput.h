#pragma once

#include "Editor/Helpers/Angle.h"

#include <QImage>

/// One crop request: a rectangle in points of the image (not pixels), then a turn and flips applied to the
/// cut-out, in that order. Built as {image, x, y, width, height[, rotation[, flipH[, flipV]]]}.
struct QuorvaneSdkImageCropInput
{
    const QImage image;
    const qint64 startXPoint;
    const qint64 startYPoint;
    const qint64 width;
    const qint64 height;
    const Angle rotation = Angle();
    const bool flipHorizontally = false;
    const bool flipVertically = false;
};
