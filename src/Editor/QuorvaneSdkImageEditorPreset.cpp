#include "QuorvaneSdkImageEditorPreset.h"

#include "Helpers/Finite.h"
#include "Helpers/ImageHelpers.h"
#include "Helpers/ImageLoader.h"
#include "Helpers/PhotoMetadata.h"

namespace {

// A size that is not finite cannot be resized to: the picture keeps its own, as without a size.
std::optional<QSizeF> finiteOrNone(std::optional<QSizeF> size)
{
    return size && isFinite(*size) ? size : std::nullopt;
}

} // namespace

QuorvaneSdkImageEditorPreset::QuorvaneSdkImageEditorPreset(const QImage& image,
                                                           QuorvaneSdkImageOutputFormat outputFormat,
                                                           std::optional<QUrl> outputURL,
                                                           std::optional<QSizeF> newSize)
    : m_image(ImageHelpers::redrawnAtScreenScale(image))
    , m_outputFormat(outputFormat)
    , m_outputURL(std::move(outputURL))
    , m_newSize(finiteOrNone(newSize))
    , m_metadata(std::make_shared<const PhotoMetadata>(photoMetadataOf(image)))
{}

QuorvaneSdkImageEditorPreset::QuorvaneSdkImageEditorPreset(const QUrl& imageURL,
                                                           QuorvaneSdkImageOutputFormat outputFormat,
                                                           std::optional<QUrl> outputURL,
                                                           std::optional<QSizeF> newSize,
                                                           qint64 maxImagePixels)
    : m_outputFormat(outputFormat)
    , m_outputURL(std::move(outputURL))
    , m_newSize(finiteOrNone(newSize))
{
    if (!imageURL.isLocalFile()) {
        m_loadFailure = QStringLiteral("\"%1\" is not a local file URL.").arg(imageURL.toString());
        return;
    }
    ImageLoadResult loaded = loadImageFile(imageURL.toLocalFile(), maxImagePixels);
    m_image = std::move(loaded.image);
    m_loadFailure = std::move(loaded.failure);
    m_metadata = std::make_shared<const PhotoMetadata>(std::move(loaded.metadata));
}

const PhotoMetadata& QuorvaneSdkImageEditorPreset::metadata() const
{
    static const PhotoMetadata kNone;
    return m_metadata ? *m_metadata : kNone;
}
