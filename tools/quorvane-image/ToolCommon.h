#pragma once

#include "Editor/ImageSaver/ImageSaverImp.h"
#include "Editor/QuorvaneSdkImageOutputFormat.h"
#include "Error/QuorvaneSdkImageError.h"

#include <QString>
#include <QTextStream>
#include <QUrl>
#include <optional>

/// Remembers the saver's failure, which the session deliberately swallows, for the exit code.
class RecordingImageSaver final : public ImageSaver
{
public:
    QUrl save(const QImage& image, const QuorvaneSdkImageOutputFormat& outputFormat,
              const std::optional<QUrl>& outputURL, const PhotoMetadata& metadata,
              const QuorvaneSdkImageMetadataPolicy& policy) override;

    std::optional<QuorvaneSdkImageError> failure;

private:
    ImageSaverImp m_saver;
};

/// The format a name's extension promises, when it is one of ours.
std::optional<QuorvaneSdkImageOutputFormat::Kind> formatNamedBy(const QString& path);

/// The saver writes a new file beside the destination and renames it over the destination when complete:
/// the folder must take a new file, and what is there must be a file that may be replaced. Empty when the
/// write can be tried.
QString destinationProblem(const QString& path);

/// "Cannot write the output file ..." with the system's \a reason.
QString writeFailure(const QUrl& url, const QString& reason);
