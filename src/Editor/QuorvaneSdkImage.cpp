#include "QuorvaneSdkImage.h"

#include "Localization/QuorvaneSdkImageTranslations.h"

QuorvaneSdkImageEditorPreset
QuorvaneSdkImage::presetFromImageUrl(const QUrl& imageURL, const QuorvaneSdkImageOutputFormat& outputFormat,
                                     const QUrl& outputURL, const QSizeF& newSize, qint64 maxImagePixels,
                                     bool keepLocation, bool stripMetadata) const
{
    QuorvaneSdkImageEditorPreset preset(
        imageURL, outputFormat, outputURL.isEmpty() ? std::nullopt : std::optional<QUrl>(outputURL),
        newSize.isEmpty() ? std::nullopt : std::optional<QSizeF>(newSize), maxImagePixels);
    preset.setMetadataPolicy({keepLocation, stripMetadata});
    return preset;
}

bool QuorvaneSdkImage::setLanguage(const QString& localeName)
{
    return QuorvaneSdkImageTranslations::setLanguage(QLocale(localeName));
}
