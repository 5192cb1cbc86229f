#pragma once

#include "ImageSaver.h"

class ImageSaverImp final : public ImageSaver
{
public:
    QUrl save(const QImage& image, const QuorvaneSdkImageOutputFormat& outputFormat,
              const std::optional<QUrl>& outputURL) override;

private:
    static std::optional<QByteArray> getCompressImageData(const QImage& image,
                                                          const QuorvaneSdkImageOutputFormat& outputFormat);
    static QUrl getOutputURL(const QuorvaneSdkImageOutputFormat& outputFormat);
    static void saveImageDataToLocalURL(const QByteArray& data, const QUrl& url);
};
