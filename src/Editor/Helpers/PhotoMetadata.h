#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QImage>

/// What a photo file carries besides its pixels and what an edited copy may take along: its colour profile
/// and its EXIF block, each as the file holds it. Blocks are kept unparsed until a copy is written.
struct PhotoMetadata
{
    /// The ICC profile, whole; empty when the photo has none.
    QByteArray iccProfile;
    /// The EXIF block as a TIFF structure ("II*\0" or "MM\0*" first); empty when the photo has none.
    QByteArray exif;
    /// A block was there but could not be read whole; what could not be read is left out.
    bool damaged = false;
};

/// The metadata of a JPEG or PNG file's bytes, read from the segments or chunks before its pixels; other
/// formats and files without metadata give none. Reads each byte at most once and never holds a profile
/// larger than a JPEG file can carry.
PhotoMetadata readPhotoMetadata(QByteArrayView file);

/// The orientation tag (1 to 8) of the EXIF block \a exif; 1 when it has none or it cannot be read.
int exifOrientation(QByteArrayView exif);

/// The metadata an image in memory carries: its colour space's ICC profile, when it has one.
PhotoMetadata photoMetadataOf(const QImage& image);

/// Whether \a profile is an ICC profile whose header is whole and that describes \a grey or colour pixels
/// (a CMYK or Lab profile describes neither).
bool iccProfileFits(QByteArrayView profile, bool grey);

/// The largest ICC profile a JPEG file can carry: 255 segments of 65,519 bytes.
inline constexpr qsizetype kMaxIccProfileBytes = 255 * 65'519;
