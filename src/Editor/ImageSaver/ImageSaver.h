#pragma once

#include "Editor/Helpers/PhotoMetadata.h"
#include "Editor/QuorvaneSdkImageMetadataPolicy.h"
#include "Editor/QuorvaneSdkImageOutputFormat.h"

#include <QImage>
#include <QUrl>
#include <optional>

/// Encodes an image and writes it to a file.
class ImageSaver
{
public:
    virtual ~ImageSaver() = default;

    /// Writes \a image in \a outputFormat to \a outputURL, or to a new file in the documents folder when it
    /// is empty, and returns the URL written. The file carries the colour profile and what \a policy keeps of
    /// the EXIF of \a metadata, the photo the image was made from. Throws QuorvaneSdkImageError
    /// (unableToCompressImage, unableToSaveCroppedImage) after logging the failure.
    virtual QUrl save(const QImage& image, const QuorvaneSdkImageOutputFormat& outputFormat,
                      const std::optional<QUrl>& outputURL, const PhotoMetadata& metadata,
                      const QuorvaneSdkImageMetadataPolicy& policy) = 0;

    /// save() for an image that carries all it has: its own colour space, no EXIF.
    QUrl save(const QImage& image, const QuorvaneSdkImageOutputFormat& outputFormat,
              const std::optional<QUrl>& outputURL)
    {
        return save(image, outputFormat, outputURL, photoMetadataOf(image), {});
    }
};

/// The file \a name with extension \a fileExtension in the user's documents folder.
QUrl outputURL(const QString& name, const QString& fileExtension);
