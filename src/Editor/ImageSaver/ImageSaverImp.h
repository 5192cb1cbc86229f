#pragma once

#include "ImageBands.h"
#include "ImageSaver.h"

class ImageSaverImp final : public ImageSaver
{
public:
    using ImageSaver::save;
    QUrl save(const QImage& image, const QuorvaneSdkImageOutputFormat& outputFormat,
              const std::optional<QUrl>& outputURL, const PhotoMetadata& metadata,
              const QuorvaneSdkImageMetadataPolicy& policy) override;

    /// save() of a picture made a band at a time: neither it nor its file is ever whole in memory.
    QUrl save(ImageBands& bands, const QuorvaneSdkImageOutputFormat& outputFormat,
              const std::optional<QUrl>& outputURL, const PhotoMetadata& metadata,
              const QuorvaneSdkImageMetadataPolicy& policy);

    /// A new file in the documents folder (made when missing): what save() writes when given no URL.
    static QUrl getOutputURL(const QuorvaneSdkImageOutputFormat& outputFormat);
};
