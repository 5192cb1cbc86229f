#include "QuorvaneSdkImage.h"

#include "Localization/QuorvaneSdkImageTranslations.h"

QuorvaneSdkImageEditorPreset
QuorvaneSdkImage::presetFromImageUrl(const QUrl& imageURL, const QuorvaneSdkImageOutputFormat& outputFormat,
                                     const QUrl& outputURL, const QSizeF& newSize,
                                     qint64 maxImagePixels) const
{
    return QuorvaneSdkImageEditorPreset(
        imageURL, outputFormat, outputURL.isEmpty() ? std::nullopt : std::optional<QUrl>(outputURL),
        newSize.isEmpty() ? std::nullopt : std::optional<QSizeF>(newSize), maxImagePixels);
}

bool QuorvaneSdkImage::setLanguage(const QString& localeName)
{
    return QuorvaneSdkImageTranslations::setLanguage(QLocale(localeName));
}
