#pragma once

#include "ImageSaver.h"

class ImageSaverImp final : public ImageSaver
{
public:
    using ImageSaver::save;
    QUrl save(const QImage& image, const QuorvaneSdkImageOutputFormat& outputFormat,
              const std::optional<QUrl>& outputURL, const PhotoMetadata& metadata,
              const QuorvaneSdkImageMetadataPolicy& policy) override;

private:
    static std::optional<QByteArray> getCompressImageData(const QImage& image,
                                                          const QuorvaneSdkImageOutputFormat& outputFormat,
                                                          const PhotoMetadata& metadata,
                                                          const QuorvaneSdkImageMetadataPolicy& policy);
    static QUrl getOutputURL(const QuorvaneSdkImageOutputFormat& outputFormat);
    static void saveImageDataToLocalURL(const QByteArray& data, const QUrl& url);
};
