#pragma once

#include "ImageGeometry.h"
#include "PhotoMetadata.h"

#include <QByteArrayView>
#include <QImage>
#include <QString>
#include <future>
#include <optional>

struct ImageLoadResult
{
    std::optional<QImage> image;
    /// One sentence saying why there is no image; empty on success.
    QString failure;
    /// What the file carries besides its pixels.
    PhotoMetadata metadata;
    /// SHA-256 of the file's bytes, lower-case hexadecimal, once it has loaded: which photo a recipe is for.
    /// Worked out on a thread of its own: at 80 MB/s it would add a fifth of a second to opening a 48 MP
    /// photo, and it is only asked for when an edit is saved or a recipe applied.
    std::shared_future<QString> sha256;
    /// The EXIF orientation (1 to 8) the pixels are in: 1 unless they were asked for as stored.
    int orientation = 1;
};

/// Pixels turned upright by the file's EXIF orientation, or as the file stores them (whoever cuts them turns
/// them in the same pass).
enum class PixelOrder { Upright, AsStored };

/// Decodes the image file at \a path, upright unless asked otherwise. Files that are missing, not
/// images, truncated, corrupt, that declare more than \a maxPixels pixels or do not tell their size before
/// decoding (MNG animations among them) yield no image and a reason; nothing larger than the limit is
/// allocated.
/// When the file's SHA-256 is worked out: on a thread of its own from the start (a session shows the photo
/// meanwhile), or by the first get() (a command that may never ask for it).
enum class Fingerprint { InBackground, WhenAsked };

ImageLoadResult loadImageFile(const QString& path, qint64 maxPixels, PixelOrder order = PixelOrder::Upright,
                              Fingerprint fingerprint = Fingerprint::InBackground);

/// The orientation \a orientation (EXIF 1 to 8) as a walk: the upright picture's pixels in the stored ones of
/// size \a stored.
ImageHelpers::PixelWalk uprightWalk(QSize stored, int orientation);

/// \a stored turned upright by \a orientation (EXIF 1 to 8) in one pass; empty when memory runs out.
std::optional<QImage> turnedUpright(const QImage& stored, int orientation);

/// Whether a JPEG stream runs from its start marker through every segment and scan to its end marker.
/// Decoders fill a cut-off scan with grey and succeed; this tells a truncated file from a whole one.
bool jpegStreamIsComplete(QByteArrayView data);
