#include "CropperViewModel.h"

#include "Editor/Common/BrandColor.h"
#include "Editor/Helpers/Finite.h"
#include "Editor/Helpers/FittedSize.h"
#include "Editor/Helpers/Notify.h"
#include "Editor/Helpers/Truncate.h"
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

QPointF CropperViewModel::centerCropPosition() const
{
    return {(leadingCropPosition() + trailingCropPosition()) / 2,
            (topCropPosition() + bottomCropPosition()) / 2};
}

void CropperViewModel::setupCropperLayout(QSizeF availableSize)
{
    if (!isFinite(availableSize))
        return;
    const QSizeF picture = m_currentImage.deviceIndependentSize();
    m_portraitSize = fittedSize(picture, availableSize);
    // The frame of the image turned a quarter, stated in the image's own axes.
    m_landscapeSize = fittedSize(picture.transposed(), availableSize).transposed();
    m_availableScreenSize = availableSize;
    // A layout while turned a quarter keeps the turned frame; the bands follow the new frame.
    setImageFrameSize(m_rotationAngle.isPortrait() ? m_portraitSize : m_landscapeSize);
    assignAndNotify(this, m_isCropperSetup, true, &CropperViewModel::isCropperSetupChanged);
}

CropperViewModel::CropEdge CropperViewModel::getCropEdge(QPointF p) const
{
    const auto near = [](qreal a, qreal b) { return std::abs(a - b) <= kHandleRadius; };
    const QPointF centre = centerCropPosition();
    if (near(p.y(), centre.y()) && near(p.x(), centre.x()))
        return CropEdge::center;
    if (near(p.y(), topCropPosition())) {
        if (near(p.x(), leadingCropPosition()))
            return CropEdge::topLeading;
        if (near(p.x(), trailingCropPosition()))
            return CropEdge::topTrailing;
        return CropEdge::top;
    }
    if (near(p.y(), bottomCropPosition())) {
        if (near(p.x(), leadingCropPosition()))
            return CropEdge::bottomLeading;
        if (near(p.x(), trailingCropPosition()))
            return CropEdge::bottomTrailing;
        return CropEdge::bottom;
    }
    if (near(p.x(), leadingCropPosition()))
        return CropEdge::leading;
    if (near(p.x(), trailingCropPosition()))
        return CropEdge::trailing;
    return CropEdge::none;
}

bool CropperViewModel::isValidLocation(QPointF p) const
{
    if (!(p.x() > 0) || !(p.y() > 0))
        return false;
    const QSizeF frame = m_rotationAngle.isPortrait() ? m_portraitSize : m_landscapeSize;
    return p.x() < frame.width() && p.y() < frame.height();
}

void CropperViewModel::handleDragging(QPointF p)
{
    if (!isFinite(p) || !isValidLocation(p))
        return;
    saveCurrentImageVersionIfNeeded();
    updateCropBackgroundIfNeeded();
    switch (getCropEdge(p)) {
    case CropEdge::top:
        updateTopCropPosition(p.y());
        break;
    case CropEdge::bottom:
        updateBottomCropPosition(p.y());
        break;
    case CropEdge::leading:
        updateLeadingCropPosition(p.x());
        break;
    case CropEdge::trailing:
        updateTrailingCropPosition(p.x());
        break;
    case CropEdge::topLeading:
        updateTopCropPosition(p.y());
        updateLeadingCropPosition(p.x());
        break;
    case CropEdge::topTrailing:
        updateTopCropPosition(p.y());
        updateTrailingCropPosition(p.x());
        break;
    case CropEdge::bottomLeading:
        updateBottomCropPosition(p.y());
        updateLeadingCropPosition(p.x());
        break;
    case CropEdge::bottomTrailing:
        updateBottomCropPosition(p.y());
        updateTrailingCropPosition(p.x());
        break;
    case CropEdge::center:
        moveCenter(p);
        break;
    case CropEdge::none:
        break;
    }
}

void CropperViewModel::handleTouch(QPointF location)
{
    // No edge of such a side can move anyway, so nothing is lost by ignoring where across it the finger is.
    if (m_imageFrameSize.width() <= m_minimumCropEdgesSeparation)
        location.setX(m_imageFrameSize.width() / 2);
    if (m_imageFrameSize.height() <= m_minimumCropEdgesSeparation)
        location.setY(m_imageFrameSize.height() / 2);
    handleDragging(location);
}

// Only the bottom and trailing updates check the frame's far border; the near borders are guarded by
// isValidLocation. The asymmetry is deliberate.
void CropperViewModel::updateTopCropPosition(qreal y)
{
    if (bottomCropPosition() - y <= m_minimumCropEdgesSeparation)
        return;
    setTopCropFactor(y / m_imageFrameSize.height());
}

void CropperViewModel::updateBottomCropPosition(qreal y)
{
    if (!(y - topCropPosition() > m_minimumCropEdgesSeparation) || !(m_imageFrameSize.height() - y >= 0))
        return;
    setBottomCropFactor(y / m_imageFrameSize.height());
}

void CropperViewModel::updateLeadingCropPosition(qreal x)
{
    if (trailingCropPosition() - x <= m_minimumCropEdgesSeparation)
        return;
    setLeadingCropFactor(x / m_imageFrameSize.width());
}

void CropperViewModel::updateTrailingCropPosition(qreal x)
{
    if (!(x - leadingCropPosition() > m_minimumCropEdgesSeparation) || !(m_imageFrameSize.width() - x >= 0))
        return;
    setTrailingCropFactor(x / m_imageFrameSize.width());
}

void CropperViewModel::moveCenter(QPointF p)
{
    const QPointF d = centerCropPosition() - p;
    const qreal top = topCropPosition() - d.y();
    const qreal bottom = bottomCropPosition() - d.y();
    const qreal leading = leadingCropPosition() - d.x();
    const qreal trailing = trailingCropPosition() - d.x();
    // A move that would cross the frame is dropped whole: the rectangle never slides along a border.
    if (!(top >= 0) || !(bottom <= m_imageFrameSize.height()) || !(leading >= 0) ||
        !(trailing <= m_imageFrameSize.width()))
        return;
    updateTopCropPosition(top);
    updateBottomCropPosition(bottom);
    updateLeadingCropPosition(leading);
    updateTrailingCropPosition(trailing);
}

QuorvaneSdkImageCropInput CropperViewModel::cropInput() const
{
    const QSizeF size = m_currentImage.deviceIndependentSize();
    return QuorvaneSdkImageCropInput(
        m_currentImage, truncatedPoints(m_leadingCropFactor * size.width()),
        truncatedPoints(m_topCropFactor * size.height()),
        truncatedPoints((m_trailingCropFactor - m_leadingCropFactor) * size.width()),
        truncatedPoints((m_bottomCropFactor - m_topCropFactor) * size.height()), m_rotationAngle,
        m_flipHorizontally, m_flipVertically);
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

void CropperViewModel::resultJobFinished()
{
    assignAndNotify(this, m_isCroppingInProgress, false, &CropperViewModel::isCroppingInProgressChanged);
}

void CropperViewModel::rotateLeft(bool trackAction)
{
    turnTo(m_rotationAngle + Angle::degrees(-90));
    if (trackAction)
        trackEdit([](CropperViewModel& model) { model.rotateRight(false); });
}

void CropperViewModel::rotateRight(bool trackAction)
{
    turnTo(m_rotationAngle + Angle::degrees(90));
    if (trackAction)
        trackEdit([](CropperViewModel& model) { model.rotateLeft(false); });
}

void CropperViewModel::flipHorizontally(bool trackAction)
{
    if (m_rotationAngle.isPortrait())
        setFlips(!m_flipHorizontally, m_flipVertically);
    else
        setFlips(m_flipHorizontally, !m_flipVertically);
    if (trackAction)
        trackEdit([](CropperViewModel& model) { model.flipHorizontally(false); });
}

void CropperViewModel::flipVertically(bool trackAction)
{
    if (m_rotationAngle.isPortrait())
        setFlips(m_flipHorizontally, !m_flipVertically);
    else
        setFlips(!m_flipHorizontally, m_flipVertically);
    if (trackAction)
        trackEdit([](CropperViewModel& model) { model.flipVertically(false); });
}

void CropperViewModel::saveCurrentImageVersionIfNeeded()
{
    if (m_isMovingCropper)
        return;
    m_isMovingCropper = true;
    const qreal top = m_topCropFactor;
    const qreal bottom = m_bottomCropFactor;
    const qreal leading = m_leadingCropFactor;
    const qreal trailing = m_trailingCropFactor;
    const QSizeF frame = m_imageFrameSize;
    const Angle rotation = m_rotationAngle;
    const bool horizontally = m_flipHorizontally;
    const bool vertically = m_flipVertically;
    // Undo writes back the frame as the drag found it, even after a new layout; the angle assigned after it
    // leaves that frame alone.
    trackEdit([=](CropperViewModel& model) {
        model.setTopCropFactor(top);
        model.setBottomCropFactor(bottom);
        model.setLeadingCropFactor(leading);
        model.setTrailingCropFactor(trailing);
        model.setImageFrameSize(frame);
        model.setRotationAngle(rotation);
        model.setFlips(horizontally, vertically);
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
    setCropBorderColor(Qt::white);
}

void CropperViewModel::setTopCropFactor(qreal factor)
{
    m_topCropFactor = factor;
    assignAndNotify(this, m_topCropHeight, m_imageFrameSize.height() * factor,
                    &CropperViewModel::topCropHeightChanged);
}

void CropperViewModel::setBottomCropFactor(qreal factor)
{
    m_bottomCropFactor = factor;
    assignAndNotify(this, m_bottomCropHeight, m_imageFrameSize.height() * (1 - factor),
                    &CropperViewModel::bottomCropHeightChanged);
}

void CropperViewModel::setLeadingCropFactor(qreal factor)
{
    m_leadingCropFactor = factor;
    assignAndNotify(this, m_leadingCropWidth, m_imageFrameSize.width() * factor,
                    &CropperViewModel::leadingCropWidthChanged);
}

void CropperViewModel::setTrailingCropFactor(qreal factor)
{
    m_trailingCropFactor = factor;
    assignAndNotify(this, m_trailingCropWidth, m_imageFrameSize.width() * (1 - factor),
                    &CropperViewModel::trailingCropWidthChanged);
}

void CropperViewModel::setImageFrameSize(QSizeF size)
{
    assignAndNotify(this, m_imageFrameSize, size, &CropperViewModel::imageFrameSizeChanged);
    recomputeBands();
}

void CropperViewModel::recomputeBands()
{
    setTopCropFactor(m_topCropFactor);
    setBottomCropFactor(m_bottomCropFactor);
    setLeadingCropFactor(m_leadingCropFactor);
    setTrailingCropFactor(m_trailingCropFactor);
}

void CropperViewModel::turnTo(Angle angle)
{
    setRotationAngle(angle);
    // The rectangle keeps its place on the image, not on the screen: same factors, turned frame.
    setImageFrameSize(angle.isPortrait() ? m_portraitSize : m_landscapeSize);
}

void CropperViewModel::setRotationAngle(Angle angle)
{
    assignAndNotify(this, m_rotationAngle, angle, &CropperViewModel::rotationAngleChanged);
    // The flip buttons' tints depend on the turn.
    setFlips(m_flipHorizontally, m_flipVertically);
}

void CropperViewModel::setFlips(bool horizontally, bool vertically)
{
    assignAndNotify(this, m_flipHorizontally, horizontally, &CropperViewModel::flipHorizontallyChanged);
    assignAndNotify(this, m_flipVertically, vertically, &CropperViewModel::flipVerticallyChanged);
    // Each button shows whether the picture is mirrored along its own screen axis.
    const bool portrait = m_rotationAngle.isPortrait();
    const bool mirroredLeftRight = portrait ? horizontally : vertically;
    const bool mirroredTopBottom = portrait ? vertically : horizontally;
    assignAndNotify(this, m_flipHorizontallyButtonColor,
                    mirroredLeftRight ? BrandColor::ambar() : BrandColor::gray(),
                    &CropperViewModel::flipHorizontallyButtonColorChanged);
    assignAndNotify(this, m_flipVericallyButtonColor,
                    mirroredTopBottom ? BrandColor::ambar() : BrandColor::gray(),
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
