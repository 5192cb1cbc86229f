#include "ImageSaverImp.h"

#include "Error/QuorvaneSdkImageError.h"
#include "ExifExport.h"
#include "JpegMetadata.h"
#include "Logger/ImageLogger.h"
#include "Logger/ModuleLog.h"
#include "PngEncoder.h"

#include <QBuffer>
#include <QDir>
#include <QImageWriter>
#include <QSaveFile>
#include <QStandardPaths>
#include <QUuid>
#include <algorithm>

namespace {

const QString kTag = QStringLiteral("ImageSaverImp");

QString fileExtension(const QuorvaneSdkImageOutputFormat& format)
{
    return format.kind() == QuorvaneSdkImageOutputFormat::Kind::png ? QStringLiteral("png")
                                                                    : QStringLiteral("jpg");
}

// The profile goes with the pixels it describes: a grey profile never tags colour pixels.
QByteArray fittingProfile(const QImage& image, const QByteArray& profile)
{
    if (profile.isEmpty())
        return {};
    const bool grey =
        image.format() == QImage::Format_Grayscale8 || image.format() == QImage::Format_Grayscale16;
    if (iccProfileFits(profile, grey))
        return profile;
    qCWarning(quorvaneSdkImage, "The photo's colour profile is damaged or does not describe the edited "
                                "pixels; the copy is written without it.");
    return {};
}

std::optional<QByteArray> encodeJpeg(const QImage& image, int compressionQuality)
{
    // The quality reaches us unclamped; the encoder takes 0...100.
    const int quality = std::clamp(compressionQuality, 0, 100);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, "jpeg");
    writer.setQuality(quality);
    if (!writer.write(image))
        return std::nullopt;
    return bytes;
}

} // namespace

QUrl outputURL(const QString& name, const QString& fileExtension)
{
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    QDir().mkpath(documents);
    return QUrl::fromLocalFile(QDir(documents).filePath(name + u'.' + fileExtension));
}

QUrl ImageSaverImp::save(const QImage& image, const QuorvaneSdkImageOutputFormat& outputFormat,
                         const std::optional<QUrl>& outputURL, const PhotoMetadata& metadata,
                         const QuorvaneSdkImageMetadataPolicy& policy)
{
    const std::optional<QByteArray> data = getCompressImageData(image, outputFormat, metadata, policy);
    if (!data) {
        ImageLogger::shared().log(kTag, QStringLiteral("compress image failed"),
                                  SharedQuorvaneSdkLogSeverity::error);
        throw QuorvaneSdkImageError(QuorvaneSdkImageError::unableToCompressImage);
    }
    const QUrl url = outputURL ? *outputURL : getOutputURL(outputFormat);
    try {
        saveImageDataToLocalURL(*data, url);
    } catch (const QuorvaneSdkImageError& error) {
        ImageLogger::shared().log(kTag, QStringLiteral("save image data to local failed"),
                                  SharedQuorvaneSdkLogSeverity::error);
        throw QuorvaneSdkImageError(QuorvaneSdkImageError::unableToSaveCroppedImage, error.reason());
    }
    return url;
}

std::optional<QByteArray>
ImageSaverImp::getCompressImageData(const QImage& image, const QuorvaneSdkImageOutputFormat& outputFormat,
                                    const PhotoMetadata& metadata,
                                    const QuorvaneSdkImageMetadataPolicy& policy)
{
    if (image.isNull())
        return std::nullopt;
    const QByteArray software = "Quorvane SDK Image " + ImageLogger::shared().moduleVersion().toUtf8();
    const ExifExport exif = exportedExif(metadata.exif, policy, image.size(), software,
                                         outputFormat.kind() == QuorvaneSdkImageOutputFormat::Kind::jpg);
    if (metadata.damaged || exif.damaged)
        qCWarning(quorvaneSdkImage, "Part of the photo's metadata could not be read; the copy is written "
                                    "without it.");
    const QByteArray profile = fittingProfile(image, metadata.iccProfile);
    switch (outputFormat.kind()) {
    case QuorvaneSdkImageOutputFormat::Kind::jpg: {
        const auto jpeg = encodeJpeg(image, outputFormat.compressionQuality());
        if (!jpeg)
            return std::nullopt;
        return withJpegMetadata(*jpeg, exif.tiff, profile);
    }
    case QuorvaneSdkImageOutputFormat::Kind::png:
        return encodePng(image, profile, exif.tiff);
    }
    return std::nullopt;
}

QUrl ImageSaverImp::getOutputURL(const QuorvaneSdkImageOutputFormat& outputFormat)
{
    const QString name = QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper();
    return ::outputURL(name, fileExtension(outputFormat));
}

void ImageSaverImp::saveImageDataToLocalURL(const QByteArray& data, const QUrl& url)
{
    // Written beside the destination and renamed over it only when complete, so a failed or interrupted
    // write never leaves a partial file and never destroys the file that was there.
    if (!url.isLocalFile())
        throw QuorvaneSdkImageError(QuorvaneSdkImageError::unableToSaveCroppedImage,
                                    QStringLiteral("not a local file"));
    // The log record stays the same whatever the cause; the reason travels with the error for a caller
    // that can show it.
    const auto failed = [](const QSaveFile& file) {
        return QuorvaneSdkImageError(QuorvaneSdkImageError::unableToSaveCroppedImage,
                                     file.error() == QFileDevice::NoError ? QString() : file.errorString());
    };
    QSaveFile file(url.toLocalFile());
    // Unbuffered: Qt 6.4's commit() renames a file whose buffered bytes did not all reach the disk.
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        throw failed(file);
    // A full disk first shows as a short write with no error; only the next write says why.
    for (qint64 written = 0; written < data.size();) {
        const qint64 count = file.write(data.constData() + written, data.size() - written);
        if (count <= 0)
            throw failed(file);
        written += count;
    }
    if (!file.commit())
        throw failed(file);
}
