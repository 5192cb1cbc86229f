#pragma once

#include "ImageSaver.h"

class ImageSaverImp final : public ImageSaver
{
public:
    using ImageSaver::save;
    QUrl save(const QImage& image, const QuorvaneSdkImageOutputFormat& outputFormat,
              const std::optional<QUrl>& outputURL, const PhotoMetadata& metadata,
              const QuorvaneSdkImageMetadataPolicy& policy) override;

    /// A new file in the documents folder (made when missing): what save() writes when given no URL.
    static QUrl getOutputURL(const QuorvaneSdkImageOutputFormat& outputFormat);

private:
    static std::optional<QByteArray> getCompressImageData(const QImage& image,
                                                          const QuorvaneSdkImageOutputFormat& outputFormat,
                                                          const PhotoMetadata& metadata,
                                                          const QuorvaneSdkImageMetadataPolicy& policy);
    static void saveImageDataToLocalURL(const QByteArray& data, const QUrl& url);
};
