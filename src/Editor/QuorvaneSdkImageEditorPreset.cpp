#include "QuorvaneSdkImageEditorPreset.h"

#include "Helpers/Finite.h"
#include "Helpers/ImageHelpers.h"
#include "Helpers/ImageLoader.h"
#include "Helpers/PhotoMetadata.h"
#include "Recipe/Replay.h"

#include <QDir>

namespace {

// A plain absolute path names a local file as well as a file: URL does; hosts pass one as often.
std::optional<QString> localPath(const QUrl& url)
{
    if (url.isLocalFile())
        return url.toLocalFile();
    if (!url.scheme().isEmpty() || !QDir::isAbsolutePath(url.path()))
        return std::nullopt;
    // A path may hold '?' and '#', which the URL took for a query and a fragment.
    QString path = url.path(QUrl::FullyDecoded);
    if (url.hasQuery())
        path += u'?' + url.query(QUrl::FullyDecoded);
    if (url.hasFragment())
        path += u'#' + url.fragment(QUrl::FullyDecoded);
    return path;
}

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
    const std::optional<QString> path = localPath(imageURL);
    if (!path) {
        m_loadFailure =
            imageURL.scheme().isEmpty()
                ? QStringLiteral("\"%1\" is a relative path; give an absolute path or a file: URL.")
                      .arg(imageURL.toString())
                : QStringLiteral("\"%1\" is not a local file; give an absolute path or a file: URL.")
                      .arg(imageURL.toString());
        return;
    }
    ImageLoadResult loaded = loadImageFile(*path, maxImagePixels);
    m_image = std::move(loaded.image);
    m_loadFailure = std::move(loaded.failure);
    m_metadata = std::make_shared<const PhotoMetadata>(std::move(loaded.metadata));
    if (m_image)
        m_sourceSha256 = std::move(loaded.sha256);
}

QString QuorvaneSdkImageEditorPreset::sourceSha256() const
{
    return m_sourceSha256.valid() ? m_sourceSha256.get() : QString();
}

QString QuorvaneSdkImageEditorPreset::setRecipe(const QByteArray& recipe)
{
    if (!m_image)
        return QStringLiteral("There is no photo to apply the recipe to.");
    auto read = EditRecipe::fromJson(recipe);
    if (const auto* refusal = std::get_if<QString>(&read))
        return *refusal;
    const EditRecipe::Recipe& taken = std::get<EditRecipe::Recipe>(read);
    if (QString refusal = EditRecipe::mismatch(taken.source, {m_image->size(), sourceSha256()});
        !refusal.isEmpty())
        return refusal;
    m_recipeSteps = std::make_shared<const EditRecipe::StepList>(EditRecipe::StepList{taken.steps});
    return {};
}

const PhotoMetadata& QuorvaneSdkImageEditorPreset::metadata() const
{
    static const PhotoMetadata kNone;
    return m_metadata ? *m_metadata : kNone;
}
