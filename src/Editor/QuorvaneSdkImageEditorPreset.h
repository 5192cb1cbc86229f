#pragma once

#include "QuorvaneSdkImageMetadataPolicy.h"
#include "QuorvaneSdkImageOutputFormat.h"

#include <QImage>
#include <QSizeF>
#include <QUrl>
#include <future>
#include <memory>
#include <optional>

struct PhotoMetadata;
namespace EditRecipe {
struct StepList;
}

/// What a host hands the editor: the picture, how to encode the result, where to write it and an optional
/// size to resize it to (a size that is not finite counts as none).
class QuorvaneSdkImageEditorPreset
{
    Q_GADGET
    QML_VALUE_TYPE(quorvaneSdkImageEditorPreset)
    Q_PROPERTY(bool hasImage READ hasImage CONSTANT)
    Q_PROPERTY(QString loadFailure READ loadFailure CONSTANT)

public:
    /// Larger files are refused unread unless the host raises the limit.
    static constexpr qint64 kDefaultMaxImagePixels = 100'000'000;

    /// No image: the editor shows its error screen.
    QuorvaneSdkImageEditorPreset() = default;

    /// Keeps an upright copy of \a image redrawn at the screen's scale; a null image leaves the preset empty.
    QuorvaneSdkImageEditorPreset(const QImage& image, QuorvaneSdkImageOutputFormat outputFormat,
                                 std::optional<QUrl> outputURL, std::optional<QSizeF> newSize);

    /// Loads the local file \a imageURL (a file: URL or a plain absolute path) upright, EXIF orientation
    /// applied. A relative path, another scheme, or a missing, unreadable, corrupt, truncated or over-large
    /// file leaves the image empty and says why in loadFailure().
    explicit QuorvaneSdkImageEditorPreset(
        const QUrl& imageURL,
        QuorvaneSdkImageOutputFormat outputFormat = QuorvaneSdkImageOutputFormat::jpg(100),
        std::optional<QUrl> outputURL = std::nullopt, std::optional<QSizeF> newSize = std::nullopt,
        qint64 maxImagePixels = kDefaultMaxImagePixels);

    const std::optional<QImage>& image() const { return m_image; }
    QuorvaneSdkImageOutputFormat outputFormat() const { return m_outputFormat; }
    const std::optional<QUrl>& outputURL() const { return m_outputURL; }
    const std::optional<QSizeF>& newSize() const { return m_newSize; }

    /// Which of the photo's metadata the written file carries; the default keeps no location.
    QuorvaneSdkImageMetadataPolicy metadataPolicy() const { return m_metadataPolicy; }
    void setMetadataPolicy(const QuorvaneSdkImageMetadataPolicy& policy) { m_metadataPolicy = policy; }

    /// What the photo carried besides its pixels (its colour profile, its EXIF), for the saved copy.
    const PhotoMetadata& metadata() const;

    /// The SHA-256 of the file the image was loaded from, lower-case hexadecimal: which photo a recipe is
    /// for. Empty for a preset built from an image.
    QString sourceSha256() const;

    /// Opens the editor on this photo with a recipe's steps already made, each one a version the user can
    /// undo, as the session that wrote \a recipe left it. A recipe that cannot be read, or that was made for
    /// another photo, is not taken: the sentence returned says why (empty when it was taken).
    QString setRecipe(const QByteArray& recipe);
    /// The steps of the recipe taken; none without one.
    const EditRecipe::StepList* recipeSteps() const { return m_recipeSteps.get(); }

    bool hasImage() const { return m_image.has_value(); }
    /// Why the image could not be loaded; empty when it was, or when the preset was built from an image.
    QString loadFailure() const { return m_loadFailure; }

private:
    std::optional<QImage> m_image;
    QuorvaneSdkImageOutputFormat m_outputFormat;
    std::optional<QUrl> m_outputURL;
    std::optional<QSizeF> m_newSize;
    QString m_loadFailure;
    QuorvaneSdkImageMetadataPolicy m_metadataPolicy;
    std::shared_ptr<const PhotoMetadata> m_metadata;
    std::shared_future<QString> m_sourceSha256;
    std::shared_ptr<const EditRecipe::StepList> m_recipeSteps;
};
