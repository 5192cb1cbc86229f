#pragma once

#include <QColor>
#include <QImage>
#include <QSizeF>
#include <optional>

/// Pure image operations: the input is never changed.
namespace ImageHelpers {

/// Beyond this many pixels a bitmap is a host's mistake, not a picture: 1 GiB at four bytes a pixel. Resizing
/// to more leaves the picture as it was.
inline constexpr qint64 kMaxPixels = 268'435'456;

/// The primary screen's device pixel ratio, 1.0 without a screen.
qreal screenScale();

/// Whether \a points at the screen's scale stay within kMaxPixels: resized() refuses larger sizes.
bool fitsPixelLimit(QSizeF points);

/// An upright, non-opaque copy of \a image with the same size in points, redrawn at the screen's scale when
/// that has fewer pixels; an image of a lower scale than the screen keeps its own pixels and scale. Empty for
/// a null image or when the copy cannot be allocated.
std::optional<QImage> redrawnAtScreenScale(const QImage& image);

/// \a image stretched to \a size points at the screen's scale (the aspect ratio is not kept); empty when
/// the size is not a positive finite size or the result cannot be allocated.
std::optional<QImage> resized(const QImage& image, QSizeF size);

/// A new, uninitialised image of \a size pixels. Photo-sized buffers are laid on huge pages where the system
/// offers them: a fresh 48 MB image otherwise costs more in page faults than the work done on it. Null when
/// it cannot be allocated.
QImage newImage(QSize size, QImage::Format format);

/// The premultiplied format that drawing over \a image keeps its precision in: 16 bits a channel for 16-bit
/// images, Format_ARGB32_Premultiplied for the rest.
QImage::Format drawingFormat(const QImage& image);

/// A copy of \a image in its drawingFormat() that owns its pixels, ready to be drawn on; null when it cannot
/// be allocated.
QImage premultipliedCopy(const QImage& image);

/// \a image (straight ARGB32 or RGBA64) premultiplied, and \a image (premultiplied ARGB32 or RGBA64) made
/// straight, by Qt's scalar arithmetic, which rounds alike on every processor (its vector conversions do
/// not). Null for any other format.
QImage premultipliedAlike(QImage image);
QImage straightAlike(QImage image);

/// Gives \a image the scale, colour space, resolution and text of \a source: what a new buffer holding the
/// source's pixels must carry along.
void keepMetadata(QImage& image, const QImage& source);

/// A transparent, non-opaque image of \a points at \a scale pixels a point (the screen's by default); null
/// for an empty or absurd size.
QImage transparentCanvas(QSizeF points, std::optional<qreal> scale = std::nullopt);

/// transparentCanvas filled with \a color instead.
QImage filledCanvas(QSizeF points, const QColor& color, std::optional<qreal> scale = std::nullopt);

} // namespace ImageHelpers
