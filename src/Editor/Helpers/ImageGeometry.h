#pragma once

#include <QImage>
#include <optional>

/// Geometry operations on images. Pure: the input is never changed. Quarter turns and flips move pixels
/// without resampling.
namespace ImageHelpers {

/// \a image turned by \a radians (clockwise on screen) on a canvas the floor of the turned bounding box in
/// points, at the image's scale; corners outside the turned image are transparent. Empty for a null image.
std::optional<QImage> rotate(const QImage& image, double radians);

/// \a image mirrored left to right; empty for a null image.
std::optional<QImage> horizontallyFlipped(const QImage& image);

/// \a image mirrored top to bottom; empty for a null image.
std::optional<QImage> verticallyFlipped(const QImage& image);

/// A redrawn, non-opaque copy of \a image at the screen's scale, or \a image itself if that fails.
QImage copy(const QImage& image);

} // namespace ImageHelpers
