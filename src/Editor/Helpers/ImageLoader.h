#pragma once

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
};

/// Decodes the image file at \a path upright (EXIF orientation applied). Files that are missing, not
/// images, truncated, corrupt, that declare more than \a maxPixels pixels or do not tell their size before
/// decoding (MNG animations among them) yield no image and a reason; nothing larger than the limit is
/// allocated.
ImageLoadResult loadImageFile(const QString& path, qint64 maxPixels);

/// Whether a JPEG stream runs from its start marker through every segment and scan to its end marker.
/// Decoders fill a cut-off scan with grey and succeed; this tells a truncated file from a whole one.
bool jpegStreamIsComplete(QByteArrayView data);
