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

public:
    QuorvaneSdkImageEditorResult() = default;
    QuorvaneSdkImageEditorResult(std::optional<QImage> editedImage, std::optional<QUrl> editedImageURL)
        : m_editedImage(std::move(editedImage))
        , m_editedImageURL(std::move(editedImageURL))
    {}

    const std::optional<QImage>& editedImage() const { return m_editedImage; }
    const std::optional<QUrl>& editedImageURL() const { return m_editedImageURL; }

    bool hasImage() const { return m_editedImage.has_value(); }
    QImage editedImageOrNull() const { return m_editedImage.value_or(QImage()); }
    QUrl editedImageURLOrEmpty() const { return m_editedImageURL.value_or(QUrl()); }
    QSize pixelSize() const { return m_editedImage ? m_editedImage->size() : QSize(); }

private:
    std::optional<QImage> m_editedImage;
    std::optional<QUrl> m_editedImageURL;
};
