#pragma once

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
    /// is empty, and returns the URL written. Throws QuorvaneSdkImageError (unableToCompressImage,
    /// unableToSaveCroppedImage) after logging the failure.
    virtual QUrl save(const QImage& image, const QuorvaneSdkImageOutputFormat& outputFormat,
                      const std::optional<QUrl>& outputURL) = 0;
};

/// The file \a name with extension \a fileExtension in the user's documents folder.
QUrl outputURL(const QString& name, const QString& fileExtension);
