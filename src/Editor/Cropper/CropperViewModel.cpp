#include "CropperViewModel.h"

#include "Editor/Common/BrandColor.h"
#include "Editor/Helpers/Finite.h"
#include "Editor/Helpers/Notify.h"
#include "Editor/Helpers/Truncate.h"
#include "Editor/Recipe/Replay.h"
#include "Error/QuorvaneSdkImageError.h"

#include <QPointer>
#include <cmath>

namespace {

qint64 truncatedPoints(double value)
{
    return truncatedToInt64(value, "CropperViewModel: crop extent");
}

} // namespace

CropperViewModel::CropperViewModel(QImage image, std::shared_ptr<ImageCropper> cropper,
                                   std::function<void(std::optional<QImage>)> returnAction, QObject* parent)
    : ToolPageViewModel(std::move(returnAction), parent)
    , m_currentImage(std::move(image))
    , m_cropper(std::move(cropper))
    , m_flipHorizontallyButtonColor(BrandColor::gray())
    , m_flipVericallyButtonColor(BrandColor::gray())
{}

void CropperViewModel::setupCropperLayout(QSizeF availableSize)
{
    bool fitted = false;
    editFrame(
        [&](CropFrame& frame) { fitted = frame.fit(m_currentImage.deviceIndependentSize(), availableSize); });
    if (fitted)
        assignAndNotify(this, m_isCropperSetup, true, &CropperViewModel::isCropperSetupChanged);
}

void CropperViewModel::handleDragging(QPointF p)
{
    if (!isFinite(p) || !m_frame.isValidLocation(p))
        return;
    saveCurrentImageVersionIfNeeded();
    updateCropBackgroundIfNeeded();
    editFrame([p](CropFrame& frame) { frame.drag(p); });
}

void CropperViewModel::handleTouch(QPointF location)
{
    const QPointF taken = m_frame.touchLocation(location);
    const QList<QPointF> path =
        m_lastTouch ? CropFrame::pathBetween(*m_lastTouch, taken) : QList<QPointF>{taken};
    m_lastTouch = taken;
    for (const QPointF& point : path)
        handleDragging(point);
}

void CropperViewModel::beginTouch(QPointF location)
{
    m_lastTouch = m_frame.touchLocation(location);
}

QuorvaneSdkImageCropInput CropperViewModel::cropInput() const
{
    const QRectF rect = m_frame.cropRect(m_currentImage.deviceIndependentSize());
    return QuorvaneSdkImageCropInput(m_currentImage, truncatedPoints(rect.x()), truncatedPoints(rect.y()),
                                     truncatedPoints(rect.width()), truncatedPoints(rect.height()),
                                     m_frame.rotation, m_frame.flips.leftRight, m_frame.flips.topBottom);
}

namespace {

std::optional<QImage> cropWith(ImageCropper& cropper, const QuorvaneSdkImageCropInput& input)
{
    try {
        return cropper.crop(input);
    } catch (const QuorvaneSdkImageError&) {
        // The service has logged it; the page hands back nothing.
        return std::nullopt;
    }
}

} // namespace

std::optional<QImage> CropperViewModel::cropImage()
{
    const QuorvaneSdkImageCropInput input = cropInput();
    assignAndNotify(this, m_isCroppingInProgress, true, &CropperViewModel::isCroppingInProgressChanged);
    std::optional<QImage> result = cropWith(*m_cropper, input);
    assignAndNotify(this, m_isCroppingInProgress, false, &CropperViewModel::isCroppingInProgressChanged);
    return result;
}

ToolPageViewModel::ResultJob CropperViewModel::resultJob()
{
    assignAndNotify(this, m_isCroppingInProgress, true, &CropperViewModel::isCroppingInProgressChanged);
    return [cropper = m_cropper, input = cropInput()] { return cropWith(*cropper, input); };
}

std::optional<EditRecipe::Step> CropperViewModel::recipeStep() const
{
    return EditRecipe::cropStep(cropInput());
}

void CropperViewModel::resultJobFinished()
{
    assignAndNotify(this, m_isCroppingInProgress, false, &CropperViewModel::isCroppingInProgressChanged);
}

void CropperViewModel::rotateLeft(bool trackAction)
{
    editFrame([](CropFrame& frame) { frame.turn(Angle::degrees(-90)); });
    if (trackAction)
        trackEdit([](CropperViewModel& model) { model.rotateRight(false); });
}

void CropperViewModel::rotateRight(bool trackAction)
{
    editFrame([](CropFrame& frame) { frame.turn(Angle::degrees(90)); });
    if (trackAction)
        trackEdit([](CropperViewModel& model) { model.rotateLeft(false); });
}

void CropperViewModel::flipHorizontally(bool trackAction)
{
    editFrame([](CropFrame& frame) { frame.mirrorAsSeen({true, false}); });
    if (trackAction)
        trackEdit([](CropperViewModel& model) { model.flipHorizontally(false); });
}

void CropperViewModel::flipVertically(bool trackAction)
{
    editFrame([](CropFrame& frame) { frame.mirrorAsSeen({false, true}); });
    if (trackAction)
        trackEdit([](CropperViewModel& model) { model.flipVertically(false); });
}

void CropperViewModel::saveCurrentImageVersionIfNeeded()
{
    if (m_isMovingCropper)
        return;
    m_isMovingCropper = true;
    // Undo writes back the frame as the drag found it, even after a new layout.
    trackEdit([earlier = m_frame](CropperViewModel& model) {
        model.editFrame([&](CropFrame& frame) { frame.restoreEdit(earlier); });
    });
}

void CropperViewModel::updateCropBackgroundIfNeeded()
{
    if (m_cropBorderColor == QColor(Qt::white))
        setCropBorderColor(Qt::yellow);
}

void CropperViewModel::finishCropping()
{
    m_isMovingCropper = false;
    m_lastTouch.reset();
    setCropBorderColor(Qt::white);
}

void CropperViewModel::editFrame(const std::function<void(CropFrame&)>& edit)
{
    const CropFrame before = m_frame;
    edit(m_frame);
    const QSizeF frame = m_frame.frameSize;
    assignAndNotify(this, m_imageFrameSize, frame, &CropperViewModel::imageFrameSizeChanged);
    assignAndNotify(this, m_topCropHeight, frame.height() * m_frame.topFactor,
                    &CropperViewModel::topCropHeightChanged);
    assignAndNotify(this, m_bottomCropHeight, frame.height() * (1 - m_frame.bottomFactor),
                    &CropperViewModel::bottomCropHeightChanged);
    assignAndNotify(this, m_leadingCropWidth, frame.width() * m_frame.leadingFactor,
                    &CropperViewModel::leadingCropWidthChanged);
    assignAndNotify(this, m_trailingCropWidth, frame.width() * (1 - m_frame.trailingFactor),
                    &CropperViewModel::trailingCropWidthChanged);
    if (!(m_frame.rotation == before.rotation))
        emit rotationAngleChanged();
    if (m_frame.flips.leftRight != before.flips.leftRight)
        emit flipHorizontallyChanged();
    if (m_frame.flips.topBottom != before.flips.topBottom)
        emit flipVerticallyChanged();
    // Each button shows whether the picture is mirrored along its own screen axis.
    const Mirroring seen = m_frame.seenFlips();
    assignAndNotify(this, m_flipHorizontallyButtonColor,
                    seen.leftRight ? BrandColor::ambar() : BrandColor::gray(),
                    &CropperViewModel::flipHorizontallyButtonColorChanged);
    assignAndNotify(this, m_flipVericallyButtonColor,
                    seen.topBottom ? BrandColor::ambar() : BrandColor::gray(),
                    &CropperViewModel::flipVericallyButtonColorChanged);
}

void CropperViewModel::setCropBorderColor(const QColor& color)
{
    assignAndNotify(this, m_cropBorderColor, color, &CropperViewModel::cropBorderColorChanged);
}

void CropperViewModel::trackEdit(std::function<void(CropperViewModel&)> undo)
{
    ToolPageViewModel::track([this, undo = std::move(undo)] { undo(*this); });
}
