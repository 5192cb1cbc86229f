#include "ImageSaverImp.h"

#include "Error/QuorvaneSdkImageError.h"
#include "ExifExport.h"
#include "JpegEncoder.h"
#include "Logger/ImageLogger.h"
#include "Logger/ModuleLog.h"
#include "PngEncoder.h"

#include <QDir>
#include <QStandardPaths>
#include <QUuid>

namespace {

const QString kTag = QStringLiteral("ImageSaverImp");

QString fileExtension(const QuorvaneSdkImageOutputFormat& format)
{
    return format.kind() == QuorvaneSdkImageOutputFormat::Kind::png ? QStringLiteral("png")
                                                                    : QStringLiteral("jpg");
}

// The profile goes with the pixels it describes: a grey profile never tags colour pixels.
QByteArray fittingProfile(QImage::Format format, const QByteArray& profile)
{
    if (profile.isEmpty())
        return {};
    const bool grey = format == QImage::Format_Grayscale8 || format == QImage::Format_Grayscale16;
    if (iccProfileFits(profile, grey))
        return profile;
    qCWarning(quorvaneSdkImage, "The photo's colour profile is damaged or does not describe the edited "
                                "pixels; the copy is written without it.");
    return {};
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
    WholeImageBands bands(image);
    return save(bands, outputFormat, outputURL, metadata, policy);
}

QUrl ImageSaverImp::save(ImageBands& bands, const QuorvaneSdkImageOutputFormat& outputFormat,
                         const std::optional<QUrl>& outputURL, const PhotoMetadata& metadata,
                         const QuorvaneSdkImageMetadataPolicy& policy)
{
    const auto failed = [](QuorvaneSdkImageError::Code code, const char* message, const QString& reason) {
        ImageLogger::shared().log(kTag, QString::fromLatin1(message), SharedQuorvaneSdkLogSeverity::error);
        return QuorvaneSdkImageError(code, reason);
    };
    const ImageBands::Shape& shape = bands.shape();
    if (shape.size.isEmpty())
        throw failed(QuorvaneSdkImageError::unableToCompressImage, "compress image failed", {});
    const QUrl url = outputURL ? *outputURL : getOutputURL(outputFormat);
    if (!url.isLocalFile())
        throw failed(QuorvaneSdkImageError::unableToSaveCroppedImage, "save image data to local failed",
                     QStringLiteral("not a local file"));
    FileSink file(url.toLocalFile());
    if (!file.open())
        throw failed(QuorvaneSdkImageError::unableToSaveCroppedImage, "save image data to local failed",
                     file.error());

    const QByteArray software = "Quorvane SDK Image " + ImageLogger::shared().moduleVersion().toUtf8();
    const bool jpeg = outputFormat.kind() == QuorvaneSdkImageOutputFormat::Kind::jpg;
    const ExifExport exif = exportedExif(metadata.exif, policy, shape.size, software, jpeg);
    if (metadata.damaged || exif.damaged)
        qCWarning(quorvaneSdkImage, "Part of the photo's metadata could not be read; the copy is written "
                                    "without it.");
    const QByteArray profile = fittingProfile(shape.format, metadata.iccProfile);
    const bool encoded = jpeg ? writeJpeg(bands, outputFormat.compressionQuality(), exif.tiff, profile, file)
                              : writePng(bands, profile, exif.tiff, file);
    // A failure of the file, rather than of the pixels, is a failure to save.
    if (!file.error().isEmpty())
        throw failed(QuorvaneSdkImageError::unableToSaveCroppedImage, "save image data to local failed",
                     file.error());
    if (!encoded)
        throw failed(QuorvaneSdkImageError::unableToCompressImage, "compress image failed", {});
    if (!file.commit())
        throw failed(QuorvaneSdkImageError::unableToSaveCroppedImage, "save image data to local failed",
                     file.error());
    return url;
}

QUrl ImageSaverImp::getOutputURL(const QuorvaneSdkImageOutputFormat& outputFormat)
{
    const QString name = QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper();
    return ::outputURL(name, fileExtension(outputFormat));
}
