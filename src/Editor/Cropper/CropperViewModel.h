#pragma once

#include "Editor/Cropper/Engine/CropFrame.h"
#include "Editor/Cropper/Engine/ImageCropper.h"
#include "Editor/Helpers/Angle.h"
#include "Editor/ToolPageViewModel.h"

#include <QColor>
#include <QImage>
#include <QList>
#include <QObject>
#include <QPointF>
#include <QSizeF>
#include <QtQml/qqmlregistration.h>
#include <functional>
#include <memory>
#include <optional>

/// The crop screen's state: the displayed frame, the crop rectangle (four fractions of the frame), the turn
/// and flips, and the undo list. Lengths are in points of the screen. A size or location that is not finite
/// is ignored.
class CropperViewModel : public ToolPageViewModel
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The editor creates the crop page's model.")
    Q_PROPERTY(QImage currentImage READ currentImage CONSTANT)
    Q_PROPERTY(QSizeF imageFrameSize READ imageFrameSize NOTIFY imageFrameSizeChanged)
    Q_PROPERTY(qreal topCropHeight READ topCropHeight NOTIFY topCropHeightChanged)
    Q_PROPERTY(qreal bottomCropHeight READ bottomCropHeight NOTIFY bottomCropHeightChanged)
    Q_PROPERTY(qreal leadingCropWidth READ leadingCropWidth NOTIFY leadingCropWidthChanged)
    Q_PROPERTY(qreal trailingCropWidth READ trailingCropWidth NOTIFY trailingCropWidthChanged)
    Q_PROPERTY(QColor cropBorderColor READ cropBorderColor NOTIFY cropBorderColorChanged)
    Q_PROPERTY(bool isCropperSetup READ isCropperSetup NOTIFY isCropperSetupChanged)
    /// Degrees, accumulated without normalising (−90, −180, ... after repeated left turns).
    Q_PROPERTY(qreal rotationAngle READ rotationDegrees NOTIFY rotationAngleChanged)
    Q_PROPERTY(bool flipHorizontally READ flipHorizontally NOTIFY flipHorizontallyChanged)
    Q_PROPERTY(bool flipVertically READ flipVertically NOTIFY flipVerticallyChanged)
    Q_PROPERTY(QColor flipHorizontallyButtonColor READ flipHorizontallyButtonColor NOTIFY
                   flipHorizontallyButtonColorChanged)
    Q_PROPERTY(
        QColor flipVericallyButtonColor READ flipVericallyButtonColor NOTIFY flipVericallyButtonColorChanged)
    Q_PROPERTY(bool isCroppingInProgress READ isCroppingInProgress NOTIFY isCroppingInProgressChanged)
    /// How far from an edge or corner a touch still takes hold of it, in points.
    Q_PROPERTY(qreal handleRadius READ handleRadius CONSTANT)

public:
    /// The handle a touch grabs.
    enum class CropEdge {
        top = int(CropFrame::Edge::top),
        topLeading = int(CropFrame::Edge::topLeading),
        topTrailing = int(CropFrame::Edge::topTrailing),
        leading = int(CropFrame::Edge::leading),
        trailing = int(CropFrame::Edge::trailing),
        bottomLeading = int(CropFrame::Edge::bottomLeading),
        bottomTrailing = int(CropFrame::Edge::bottomTrailing),
        bottom = int(CropFrame::Edge::bottom),
        center = int(CropFrame::Edge::center),
        none = int(CropFrame::Edge::none)
    };
    Q_ENUM(CropEdge)

    static constexpr qreal kHandleRadius = CropFrame::kHandleRadius;
    static constexpr qreal handleRadius() { return kHandleRadius; }

    /// The crop page's model for \a image. \a returnAction receives the page's result once: the cropped
    /// image, or nothing when the page is cancelled or cropping fails.
    CropperViewModel(QImage image, std::shared_ptr<ImageCropper> cropper,
                     std::function<void(std::optional<QImage>)> returnAction = {}, QObject* parent = nullptr);

    QImage currentImage() const { return m_currentImage; }
    QSizeF imageFrameSize() const { return m_imageFrameSize; }
    qreal topCropHeight() const { return m_topCropHeight; }
    qreal bottomCropHeight() const { return m_bottomCropHeight; }
    qreal leadingCropWidth() const { return m_leadingCropWidth; }
    qreal trailingCropWidth() const { return m_trailingCropWidth; }
    QColor cropBorderColor() const { return m_cropBorderColor; }
    bool isCropperSetup() const { return m_isCropperSetup; }
    Angle rotationAngle() const { return m_frame.rotation; }
    qreal rotationDegrees() const { return m_frame.rotation.degrees(); }
    bool flipHorizontally() const { return m_frame.flips.leftRight; }
    bool flipVertically() const { return m_frame.flips.topBottom; }
    const CropFrame& frame() const { return m_frame; }
    QColor flipHorizontallyButtonColor() const { return m_flipHorizontallyButtonColor; }
    QColor flipVericallyButtonColor() const { return m_flipVericallyButtonColor; }
    bool isCroppingInProgress() const { return m_isCroppingInProgress; }

    qreal topCropPosition() const { return m_frame.top(); }
    qreal bottomCropPosition() const { return m_frame.bottom(); }
    qreal leadingCropPosition() const { return m_frame.leading(); }
    qreal trailingCropPosition() const { return m_frame.trailing(); }
    QPointF centerCropPosition() const { return m_frame.centre(); }

    /// Fits the frame into \a availableSize, the space the screen offers the image.
    Q_INVOKABLE void setupCropperLayout(QSizeF availableSize);
    /// One change of a drag over the frame, at \a location in the frame's coordinates.
    Q_INVOKABLE void handleDragging(QPointF location);
    /// A touch of a drag at \a location in the frame's coordinates, up to handleRadius outside the frame.
    /// Along a side too short for its edges to move apart it is taken on the side's middle line, so that a
    /// sliver of a picture, thinner than any finger, can still be cropped along its length.
    Q_INVOKABLE void handleTouch(QPointF location);
    /// Where a finger went down; the touches that follow are walked from there in short steps, so that a
    /// quick drag keeps hold of the edge it took. Without it each touch stands alone.
    Q_INVOKABLE void beginTouch(QPointF location);
    /// The end of a drag.
    Q_INVOKABLE void finishCropping();
    /// Which handle a touch at \a location grabs: the centre first, then top, bottom, leading, trailing.
    CropEdge getCropEdge(QPointF location) const { return CropEdge(m_frame.edgeAt(location)); }

    /// The crop of the current frame, turn and flips; empty when the cropping service fails.
    std::optional<QImage> cropImage();

    void rotateLeft(bool trackAction);
    void rotateRight(bool trackAction);
    /// Mirrors left to right as seen on screen: at a quarter turn that is the image's vertical flip.
    void flipHorizontally(bool trackAction);
    /// Mirrors top to bottom as seen on screen.
    void flipVertically(bool trackAction);

    /// The screen's buttons: tracked edits.
    Q_INVOKABLE void rotateLeftTracked() { rotateLeft(true); }
    Q_INVOKABLE void rotateRightTracked() { rotateRight(true); }
    Q_INVOKABLE void toggleFlipHorizontally() { flipHorizontally(true); }
    Q_INVOKABLE void toggleFlipVertically() { flipVertically(true); }

    /// "CROP": accept(), which leaves with the cropped image (nothing if cropping fails). Only after an edit;
    /// neither it nor "CANCEL" leaves while a crop is in progress.
    Q_INVOKABLE void crop() { accept(); }

signals:
    void imageFrameSizeChanged();
    void topCropHeightChanged();
    void bottomCropHeightChanged();
    void leadingCropWidthChanged();
    void trailingCropWidthChanged();
    void cropBorderColorChanged();
    void isCropperSetupChanged();
    void rotationAngleChanged();
    void flipHorizontallyChanged();
    void flipVerticallyChanged();
    void flipHorizontallyButtonColorChanged();
    void flipVericallyButtonColorChanged();
    void isCroppingInProgressChanged();

protected:
    bool canLeave() const override { return !m_isCroppingInProgress; }
    bool canAccept() const override { return hasTrackedActions(); }
    std::optional<QImage> result() override { return cropImage(); }
    ResultJob resultJob() override;
    void resultJobFinished() override;
    std::optional<EditRecipe::Step> recipeStep() const override;

private:
    QuorvaneSdkImageCropInput cropInput() const;
    void saveCurrentImageVersionIfNeeded();
    void updateCropBackgroundIfNeeded();
    /// Applies \a edit to the frame and tells the screen what it changed.
    void editFrame(const std::function<void(CropFrame&)>& edit);
    void setCropBorderColor(const QColor& color);
    void trackEdit(std::function<void(CropperViewModel&)> undo);

    QImage m_currentImage;
    std::shared_ptr<ImageCropper> m_cropper;
    CropFrame m_frame;
    // What the screen was last told: the frame and its bands, and the flip buttons' tints.
    QSizeF m_imageFrameSize;
    qreal m_topCropHeight = 0;
    qreal m_bottomCropHeight = 0;
    qreal m_leadingCropWidth = 0;
    qreal m_trailingCropWidth = 0;
    QColor m_flipHorizontallyButtonColor;
    QColor m_flipVericallyButtonColor;
    QColor m_cropBorderColor = Qt::white;
    bool m_isCropperSetup = false;
    bool m_isMovingCropper = false;
    std::optional<QPointF> m_lastTouch;
    bool m_isCroppingInProgress = false;
};
