#pragma once

#include <QImage>
#include <QUrl>
#include <QtQml/qqmlregistration.h>
#include <optional>

/// What the editor hands back: the final image and the file it was written to. Both are empty when the
/// user left without an image; only the URL is empty when saving failed.
class QuorvaneSdkImageEditorResult
{
    Q_GADGET
    QML_VALUE_TYPE(quorvaneSdkImageEditorResult)
    Q_PROPERTY(QImage editedImage READ editedImageOrNull CONSTANT)
    Q_PROPERTY(QUrl editedImageURL READ editedImageURLOrEmpty CONSTANT)
    Q_PROPERTY(bool hasImage READ hasImage CONSTANT)
    Q_PROPERTY(QSize pixelSize READ pixelSize CONSTANT)
    /// The edit as a recipe (JSON): give it to a preset of the same photo to open the edit again, or to
    /// `quorvane-image apply` to make the same file. Empty without an image, or when an edit cannot be
    /// written as a recipe.
    Q_PROPERTY(QString recipe READ recipe CONSTANT)

public:
    QuorvaneSdkImageEditorResult() = default;
    QuorvaneSdkImageEditorResult(std::optional<QImage> editedImage, std::optional<QUrl> editedImageURL,
                                 QString recipe = QString())
        : m_editedImage(std::move(editedImage))
        , m_editedImageURL(std::move(editedImageURL))
        , m_recipe(std::move(recipe))
    {}

    const std::optional<QImage>& editedImage() const { return m_editedImage; }
    const std::optional<QUrl>& editedImageURL() const { return m_editedImageURL; }

    bool hasImage() const { return m_editedImage.has_value(); }
    QImage editedImageOrNull() const { return m_editedImage.value_or(QImage()); }
    QUrl editedImageURLOrEmpty() const { return m_editedImageURL.value_or(QUrl()); }
    QSize pixelSize() const { return m_editedImage ? m_editedImage->size() : QSize(); }
    QString recipe() const { return m_recipe; }

private:
    std::optional<QImage> m_editedImage;
    std::optional<QUrl> m_editedImageURL;
    QString m_recipe;
};
