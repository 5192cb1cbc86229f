#include "QuorvaneSdkImage.h"

#include "Localization/QuorvaneSdkImageTranslations.h"
#include "Logger/ModuleLog.h"

QuorvaneSdkImageEditorPreset
QuorvaneSdkImage::presetFromImageUrl(const QUrl& imageURL, const QuorvaneSdkImageOutputFormat& outputFormat,
                                     const QUrl& outputURL, const QSizeF& newSize, qint64 maxImagePixels,
                                     bool keepLocation, bool stripMetadata) const
{
    QuorvaneSdkImageEditorPreset preset(
        imageURL, outputFormat, outputURL.isEmpty() ? std::nullopt : std::optional<QUrl>(outputURL),
        newSize.isEmpty() ? std::nullopt : std::optional<QSizeF>(newSize), maxImagePixels);
    preset.setMetadataPolicy({keepLocation, stripMetadata});
    // QML shows only "Could not preview input image."; the host's developer reads why here. No URL yet is
    // a binding waiting for its photo, not a mistake.
    if (!preset.hasImage() && !imageURL.isEmpty())
        qCWarning(quorvaneSdkImage).noquote()
            << "QuorvaneSdkImage.presetFromImageUrl:" << preset.loadFailure();
    return preset;
}

QuorvaneSdkImageEditorPreset QuorvaneSdkImage::withRecipe(QuorvaneSdkImageEditorPreset preset,
                                                          const QString& recipe) const
{
    if (const QString refusal = preset.setRecipe(recipe.toUtf8()); !refusal.isEmpty())
        qCWarning(quorvaneSdkImage).noquote() << "QuorvaneSdkImage.withRecipe:" << refusal;
    return preset;
}

bool QuorvaneSdkImage::setLanguage(const QString& localeName)
{
    return QuorvaneSdkImageTranslations::setLanguage(QLocale(localeName));
}
