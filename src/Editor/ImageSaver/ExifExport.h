#pragma once

#include "Editor/QuorvaneSdkImageMetadataPolicy.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QSize>

struct ExifExport
{
    /// The EXIF block to write, as a TIFF structure; empty when nothing is to be written.
    QByteArray tiff;
    /// Part of the source block could not be read and was left out.
    bool damaged = false;
};

/// The most EXIF a JPEG file can carry in its one APP1 segment; the block written is never larger.
inline constexpr qsizetype kMaxExifBytes = 65'527;

/// The EXIF block for an edited copy of a photo whose block was \a source: the tags \a policy keeps, in the
/// source's byte order, with the orientation 1 (the pixels are upright), the pixel size \a written, the
/// software \a software and no thumbnail; \a jpeg adds the two tags a JPEG's block must hold. Empty when the
/// source had none or \a policy strips everything. Costs one pass over the source's directories; a malformed
/// source never makes it read outside \a source.
ExifExport exportedExif(QByteArrayView source, const QuorvaneSdkImageMetadataPolicy& policy, QSize written,
                        QByteArrayView software, bool jpeg);
