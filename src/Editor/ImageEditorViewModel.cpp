#include "ImageEditorViewModel.h"

#include "Editor/Cropper/Engine/ImageCropperImp.h"
#include "Helpers/Notify.h"
#include "Recipe/Replay.h"

#include <QMetaEnum>

QString ImageEditorViewModel::rawValue(Page page)
{
    return QString::fromLatin1(QMetaEnum::fromType<Page>().valueToKey(int(page)));
}

std::optional<ImageEditorViewModel::Page> ImageEditorViewModel::page(const QString& rawValue)
{
    // Exact raw values only: QMetaEnum would also take "ImageEditorViewModel::crop".
    for (const Page candidate : {Page::base, Page::crop, Page::canvas, Page::filters, Page::adjust}) {
        if (ImageEditorViewModel::rawValue(candidate) == rawValue)
            return candidate;
    }
    return std::nullopt;
}

ImageEditorViewModel::ImageEditorViewModel(QImage image, QObject* parent)
    : QObject(parent)
    , m_image(std::move(image))
{}

void ImageEditorViewModel::navigate(Page page)
{
    // Once the result is handed back no tool opens: the host is about to take the editor away.
    // Screens pass a number: one that names no page is ignored.
    if (page == m_page || (m_hasReturned && page != Page::base) || page < Page::base || page > Page::adjust)
        return;
    // Each tool page's model lives while its page is shown. It may be the caller, handing back its result:
    // it is deleted once it has returned.
    if (m_toolPage)
        m_toolPage->deleteLater();
    m_toolPage = nullptr;
    QPointer<ImageEditorViewModel> self(this);
    const auto returnAction = [self](std::optional<QImage> result) {
        if (!self)
            return;
        std::optional<EditRecipe::Step> step;
        if (self->m_toolPage)
            step = self->m_toolPage->acceptedStep();
        self->addNewImageVerion(std::move(result), std::move(step));
    };
    switch (page) {
    case Page::base:
        break;
    case Page::crop:
        m_toolPage = new CropperViewModel(m_image, std::make_shared<ImageCropperImp>(), returnAction, this);
        break;
    case Page::canvas:
        m_toolPage = new CanvasViewModel(m_image, returnAction, this);
        break;
    case Page::filters:
        m_toolPage = new FiltersViewModel(m_image, returnAction, this);
        break;
    case Page::adjust:
        m_toolPage = new AdjustImageViewModel(m_image, returnAction, this);
        break;
    }
    m_page = page;
    emit pageChanged();
}

void ImageEditorViewModel::navigate(const QString& rawValue)
{
    if (const auto target = page(rawValue))
        navigate(*target);
}

void ImageEditorViewModel::addNewImageVerion(std::optional<QImage> image)
{
    addNewImageVerion(std::move(image), std::nullopt);
}

void ImageEditorViewModel::addNewImageVerion(std::optional<QImage> image,
                                             std::optional<EditRecipe::Step> step)
{
    navigate(Page::base);
    if (!image)
        return;
    m_previousImageVersions.append(m_image);
    m_steps.append(std::move(step));
    m_image = std::move(*image);
    emit previousImageVersionsChanged();
    emit imageChanged();
}

void ImageEditorViewModel::restoreLastImageVersion()
{
    if (m_hasReturned)
        return;
    auto last = getLastImageVersion();
    if (!last)
        return;
    m_image = std::move(*last);
    emit previousImageVersionsChanged();
    emit imageChanged();
}

void ImageEditorViewModel::leave(std::optional<QImage> image)
{
    // A double tap on "CONTINUE" must not write two files.
    if (m_hasReturned)
        return;
    m_hasReturned = true;
    emit hasReturnedChanged();
    emit returnAction(std::move(image));
}

void ImageEditorViewModel::setWorking(bool working)
{
    assignAndNotify(this, m_isWorking, working, &ImageEditorViewModel::isWorkingChanged);
}

void ImageEditorViewModel::requestClose()
{
    if (m_hasReturned || m_page != Page::base)
        return;
    if (!hasPreviousImageVersions()) {
        close();
        return;
    }
    assignAndNotify(this, m_isConfirmingClose, true, &ImageEditorViewModel::isConfirmingCloseChanged);
}

void ImageEditorViewModel::discardEdits()
{
    if (!m_isConfirmingClose)
        return;
    assignAndNotify(this, m_isConfirmingClose, false, &ImageEditorViewModel::isConfirmingCloseChanged);
    close();
}

void ImageEditorViewModel::keepEditing()
{
    assignAndNotify(this, m_isConfirmingClose, false, &ImageEditorViewModel::isConfirmingCloseChanged);
}

std::optional<QImage> ImageEditorViewModel::getLastImageVersion()
{
    if (m_previousImageVersions.isEmpty())
        return std::nullopt;
    m_steps.removeLast();
    return m_previousImageVersions.takeLast();
}

QString ImageEditorViewModel::applySteps(const QList<EditRecipe::Step>& steps)
{
    for (const EditRecipe::Step& step : steps) {
        auto next = EditRecipe::applied(m_image, step);
        if (const auto* refusal = std::get_if<QString>(&next))
            return *refusal;
        addNewImageVerion(std::move(std::get<QImage>(next)), step);
    }
    return {};
}

std::optional<QList<EditRecipe::Step>> ImageEditorViewModel::steps() const
{
    QList<EditRecipe::Step> known;
    known.reserve(m_steps.size());
    for (const auto& step : m_steps) {
        if (!step)
            return std::nullopt;
        known.append(*step);
    }
    return known;
}
