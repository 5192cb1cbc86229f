#include "QuorvaneSdkImageEditorViewModel.h"

#include "Error/QuorvaneSdkImageError.h"
#include "Helpers/BackgroundWork.h"
#include "Helpers/ImageHelpers.h"
#include "Helpers/Notify.h"
#include "ImageSaver/ImageSaverImp.h"
#include "Logger/ImageLogger.h"

#include <QVariant>

QuorvaneSdkImageEditorViewModel::QuorvaneSdkImageEditorViewModel(QObject* parent)
    : QObject(parent)
    , m_imageSaver(std::make_shared<ImageSaverImp>())
{}

QuorvaneSdkImageEditorViewModel::QuorvaneSdkImageEditorViewModel(QuorvaneSdkImageEditorPreset preset,
                                                                 std::shared_ptr<ImageSaver> imageSaver,
                                                                 QObject* parent)
    : QObject(parent)
    , m_preset(std::move(preset))
    , m_imageSaver(imageSaver ? std::move(imageSaver) : std::make_shared<ImageSaverImp>())
{
    start();
}

void QuorvaneSdkImageEditorViewModel::setPreset(const QuorvaneSdkImageEditorPreset& preset)
{
    if (m_started)
        return;
    m_preset = preset;
    emit presetChanged();
}

void QuorvaneSdkImageEditorViewModel::start()
{
    ImageLogger::shared().log(QStringLiteral("QuorvaneSdkImageEditorViewModel"),
                              QStringLiteral("initialize image editor"));
    m_image = m_preset.image();
    if (m_image) {
        m_editor = new ImageEditorViewModel(*m_image, this);
        connect(m_editor, &ImageEditorViewModel::returnAction, this,
                [this](const std::optional<QImage>& image) { deliver(image); });
        const EditRecipe::StepList* steps = m_preset.recipeSteps();
        if (const QString refusal = steps ? m_editor->applySteps(steps->steps) : QString();
            !refusal.isEmpty())
            ImageLogger::shared().log(QStringLiteral("QuorvaneSdkImageEditorViewModel"),
                                      QStringLiteral("recipe not applied: %1").arg(refusal),
                                      SharedQuorvaneSdkLogSeverity::error);
    }
    m_started = true;
    emit imageChanged();
    emit startedChanged();
}

namespace {

QuorvaneSdkImageEditorResult makeResult(const QuorvaneSdkImageEditorPreset& preset, ImageSaver& saver,
                                        const std::optional<QImage>& image, const QString& recipe = QString())
{
    if (!image)
        return {};
    QImage resultImage = *image;
    if (const auto newSize = preset.newSize()) {
        if (auto resized = ImageHelpers::resized(resultImage, *newSize))
            resultImage = std::move(*resized);
    }
    std::optional<QUrl> url;
    try {
        url = saver.save(resultImage, preset.outputFormat(), preset.outputURL(), preset.metadata(),
                         preset.metadataPolicy());
    } catch (const QuorvaneSdkImageError&) {
        // Already logged by the saver; the host still gets the image.
    }
    return {std::move(resultImage), std::move(url), recipe};
}

} // namespace

QString QuorvaneSdkImageEditorViewModel::recipe() const
{
    const std::optional<QList<EditRecipe::Step>> steps = m_editor ? m_editor->steps() : std::nullopt;
    if (!steps)
        return {};
    const QuorvaneSdkImageOutputFormat format = m_preset.outputFormat();
    EditRecipe::Output output;
    output.format = format.kind() == QuorvaneSdkImageOutputFormat::Kind::png ? QStringLiteral("png")
                                                                             : QStringLiteral("jpg");
    output.quality = format.compressionQuality();
    output.resize = m_preset.newSize();
    const EditRecipe::Fingerprint source{m_image ? m_image->size() : QSize(), m_preset.sourceSha256()};
    return QString::fromUtf8(EditRecipe::toJson({source, *steps, output}));
}

QuorvaneSdkImageEditorResult QuorvaneSdkImageEditorViewModel::getResult(const std::optional<QImage>& image)
{
    return makeResult(m_preset, *m_imageSaver, image);
}

void QuorvaneSdkImageEditorViewModel::setSavesInBackground(bool inBackground)
{
    assignAndNotify(this, m_savesInBackground, inBackground,
                    &QuorvaneSdkImageEditorViewModel::savesInBackgroundChanged);
}

void QuorvaneSdkImageEditorViewModel::deliver(const std::optional<QImage>& image)
{
    if (!m_savesInBackground || !image) {
        emit completion(makeResult(m_preset, *m_imageSaver, image, image ? recipe() : QString()));
        return;
    }
    m_editor->setWorking(true);
    // The preset is fixed once the session has started, and the saver keeps no state: copies of both serve
    // the pool thread.
    runInBackground<QuorvaneSdkImageEditorResult>(
        this,
        [preset = m_preset, saver = m_imageSaver, image, recipe = recipe()] {
            return makeResult(preset, *saver, image, recipe);
        },
        [this](QuorvaneSdkImageEditorResult result) {
            m_editor->setWorking(false);
            emit completion(result);
        });
}

QuorvaneSdkImageEditorResult QuorvaneSdkImageEditorViewModel::resultFor(const QVariant& image)
{
    if (image.metaType() != QMetaType::fromType<QImage>())
        return getResult(std::nullopt);
    const QImage converted = image.value<QImage>();
    return getResult(converted.isNull() ? std::nullopt : std::optional<QImage>(converted));
}

void QuorvaneSdkImageEditorViewModel::classBegin()
{
    m_declaredInQml = true;
}

void QuorvaneSdkImageEditorViewModel::componentComplete()
{
    if (m_declaredInQml && !m_started)
        start();
}
