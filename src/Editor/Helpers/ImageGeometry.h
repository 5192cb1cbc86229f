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

/// \a pixels of \a image, turned \a quarterTurns clockwise, then mirrored in the turned image's axes, in one
/// pass over the pixels: the same result as cutting, turning and flipping one after the other, without the
/// images in between. Empty when \a pixels is empty or does not lie inside the image.
std::optional<QImage> cutTurnedAndMirrored(const QImage& image, const QRect& pixels, int quarterTurns,
                                           bool mirrorLeftRight, bool mirrorTopBottom);

/// \a pixels of \a image turned by \a radians as rotate() turns an image, then mirrored in the turned image's
/// axes: the same result as cutting, rotate() and flipping one after the other, read straight from \a image
/// into the one image returned. Empty when \a pixels is empty or does not lie inside the image.
std::optional<QImage> cutRotatedAndMirrored(const QImage& image, const QRect& pixels, double radians,
                                            bool mirrorLeftRight, bool mirrorTopBottom);

/// Where each pixel of a cut, turned and mirrored picture comes from: pixel (u, v) of the \a size result is
/// pixel origin + u·du + v·dv of the source.
struct PixelWalk
{
    QPoint origin;
    QPoint du;
    QPoint dv;
    QSize size;
};

/// The walk of cutTurnedAndMirrored(): \a pixels of a source, turned \a quarterTurns clockwise, then
/// mirrored in the turned picture's axes.
PixelWalk pixelWalk(const QRect& pixels, int quarterTurns, bool mirrorLeftRight, bool mirrorTopBottom);

/// The walk that makes \a outer of the picture \a inner makes: one pass for both.
PixelWalk composed(const PixelWalk& inner, const PixelWalk& outer);

/// Whether cutWalked() can read \a image: pixels of whole bytes.
bool walksWholePixels(const QImage& image);

/// Rows [top, top + band.height()) of what \a walk makes of \a image, written into \a band (the walk's width,
/// the image's format). The walk must stay inside the image and its pixels be whole bytes.
void cutWalked(const QImage& image, const PixelWalk& walk, int top, QImage& band);

/// A redrawn, non-opaque copy of \a image at the screen's scale, or \a image itself if that fails.
QImage copy(const QImage& image);

} // namespace ImageHelpers
