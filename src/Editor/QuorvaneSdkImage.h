#pragma once

#include "QuorvaneSdkImageEditorPreset.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

/// Builds presets and output formats from QML, where value types have no constructors, and switches the
/// component's language.
class QuorvaneSdkImage : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    Q_INVOKABLE QuorvaneSdkImageOutputFormat jpg(int compressionQuality) const
    {
        return QuorvaneSdkImageOutputFormat::jpg(compressionQuality);
    }
    Q_INVOKABLE QuorvaneSdkImageOutputFormat png() const { return QuorvaneSdkImageOutputFormat::png(); }

    /// A preset that loads \a imageURL, a file: URL or an absolute path; when it cannot, the component's
    /// logging category warns why. An empty \a outputURL lets the editor name a new file in Documents;
    /// an empty or non-finite \a newSize keeps the image's size. A file of more than \a maxImagePixels pixels
    /// is not loaded (the error screen shows instead). The written file keeps the photo's date, camera and
    /// exposure, its location only with \a keepLocation, and no metadata at all with \a stripMetadata.
    Q_INVOKABLE QuorvaneSdkImageEditorPreset presetFromImageUrl(
        const QUrl& imageURL,
        const QuorvaneSdkImageOutputFormat& outputFormat = QuorvaneSdkImageOutputFormat::jpg(100),
        const QUrl& outputURL = QUrl(), const QSizeF& newSize = QSizeF(),
        qint64 maxImagePixels = QuorvaneSdkImageEditorPreset::kDefaultMaxImagePixels,
        bool keepLocation = false, bool stripMetadata = false) const;

    /// \a preset opening the editor with the steps of \a recipe (a result's `recipe`), each one undoable. A
    /// recipe that cannot be taken (unreadable, or made for another photo) leaves the preset as it was, and
    /// the component's logging category warns why.
    Q_INVOKABLE QuorvaneSdkImageEditorPreset withRecipe(QuorvaneSdkImageEditorPreset preset,
                                                        const QString& recipe) const;

    /// Switches the component's texts to \a localeName ("de", "pt_BR", "ja-JP"); open screens follow. False
    /// when the component has no translation for it (its texts then show in English).
    Q_INVOKABLE bool setLanguage(const QString& localeName);
};
