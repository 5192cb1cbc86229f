#include "CanvasViewModel.h"

#include "Editor/Common/BrandColor.h"
#include "Editor/Helpers/Finite.h"
#include "Editor/Helpers/FittedSize.h"
#include "Editor/Helpers/ImageHelpers.h"
#include "Editor/Recipe/Replay.h"

#include <QColorSpace>
#include <QPainter>
#include <QPainterPath>
#include <cmath>
#include <cstdio>
#include <limits>

namespace {

// The frame as the page lays it out: the left and top edges belong to it, the right and bottom ones do not.
bool frameContains(QSizeF frame, QPointF point)
{
    return point.x() >= 0 && point.y() >= 0 && point.x() < frame.width() && point.y() < frame.height();
}

void sayUnsupportedAlignment()
{
    std::fputs("No supported alignment\n", stdout);
    std::fflush(stdout);
}

} // namespace

CanvasViewModel::CanvasViewModel(QImage image, std::function<void(std::optional<QImage>)> returnAction,
                                 QObject* parent)
    : ToolPageViewModel(std::move(returnAction), parent)
    , m_image(std::move(image))
{
    connect(this, &CanvasViewModel::selectedLineImageChanged, this, &CanvasViewModel::shownSelectionChanged);
    connect(this, &CanvasViewModel::lineImagesChanged, this, &CanvasViewModel::shownSelectionChanged);
}

CanvasViewModel::~CanvasViewModel()
{
    qDeleteAll(m_lineImageViewModels);
}

void CanvasViewModel::setChoosingLineWidth(bool choosing)
{
    if (choosing == m_isChoosingLineWidth)
        return;
    m_isChoosingLineWidth = choosing;
    emit isChoosingLineWidthChanged();
}

void CanvasViewModel::setupScreenSize(QSizeF size)
{
    // A size without area is a layout still in progress, not the screen: it does not use up the one fit.
    if (m_screenWasAlreadyConfigured || !isFinite(size) || !(size.width() > 0) || !(size.height() > 0))
        return;
    m_screenWasAlreadyConfigured = true;
    if (m_setupScreenSizeCounter == std::numeric_limits<int>::max())
        qFatal("CanvasViewModel: the screen size counter overflowed");
    ++m_setupScreenSizeCounter;
    m_imageFrameSize = fittedSize(m_image.deviceIndependentSize(), size);
    emit imageFrameSizeChanged();
    m_isCropperSetup = true;
    emit isCropperSetupChanged();
}

void CanvasViewModel::handleNewPoint(QPointF point, QSizeF frameSize)
{
    if (!isFinite(point) || !isFinite(frameSize) || !frameContains(frameSize, point))
        return;
    m_currentLine.points.append(point);
    emit currentLineChanged();
}

void CanvasViewModel::beginStroke(QPointF point, QSizeF frameSize)
{
    if (!isFinite(point) || !isFinite(frameSize))
        return;
    if (!m_currentLine.points.isEmpty()) {
        m_currentLine = Line();
        emit currentLineChanged();
    }
    handleNewPoint(point, frameSize);
}

void CanvasViewModel::addFinalPoint(QPointF point, QSizeF frameSize)
{
    if (!isFinite(point) || !isFinite(frameSize))
        return;
    // Lifting the finger where it last was adds nothing to the path: a tap stays a single point.
    if (m_currentLine.points.isEmpty() || point != m_currentLine.points.last())
        handleNewPoint(point, frameSize);
    // A tap leaves its point in the stroke on purpose: it starts the next one.
    if (m_currentLine.points.size() < 2)
        return;
    const QPointF topLeft = getTopMostLeftPoint(m_currentLine.points);
    const QPointF bottomRight = getBottomMostRightPoint(m_currentLine.points, frameSize);
    const QSizeF size(bottomRight.x() - topLeft.x(), bottomRight.y() - topLeft.y());
    QList<QPointF> shifted;
    shifted.reserve(m_currentLine.points.size());
    for (const QPointF& p : std::as_const(m_currentLine.points))
        shifted.append(p - topLeft);
    Overlay::StrokeShape stroke{std::move(shifted), m_selectedColor, m_selectedlineWidth};
    QImage picture = Overlay::strokePicture(size, stroke, ImageHelpers::screenScale());

    // A frame that shrank past the stroke leaves no box to draw in: the stroke is dropped, with no item and
    // no undo step the user could not see, and the next one starts clean.
    if (!picture.isNull()) {
        recordState();
        QList<LineImagePtr> images = m_lineImages;
        images.append(std::make_shared<LineImage>(m_imageFrameSize, std::move(picture),
                                                  QSizeF(topLeft.x(), topLeft.y()), Angle(), 1.0,
                                                  std::move(stroke)));
        setLineImages(std::move(images));
    }
    m_currentLine = Line();
    emit currentLineChanged();
}

QPointF CanvasViewModel::getTopMostLeftPoint(const QList<QPointF>& points) const
{
    // Starting at 1000 rather than at infinity is kept on purpose: a stroke wholly past 1000 points keeps
    // 1000 as its corner.
    qreal minX = 1000.0;
    qreal minY = 1000.0;
    for (const QPointF& p : points) {
        minX = std::min(minX, p.x());
        minY = std::min(minY, p.y());
    }
    return {std::max(minX - m_selectedlineWidth, 0.0), std::max(minY - m_selectedlineWidth, 0.0)};
}

QPointF CanvasViewModel::getBottomMostRightPoint(const QList<QPointF>& points, QSizeF availableSize) const
{
    qreal maxX = 0.0;
    qreal maxY = 0.0;
    for (const QPointF& p : points) {
        maxX = std::max(maxX, p.x());
        maxY = std::max(maxY, p.y());
    }
    return {std::min(maxX + m_selectedlineWidth, availableSize.width()),
            std::min(maxY + m_selectedlineWidth, availableSize.height())};
}

void CanvasViewModel::deleteLine(const QString& id)
{
    const auto hasId = [&](const LineImagePtr& item) { return item->id() == id; };
    if (std::none_of(m_lineImages.cbegin(), m_lineImages.cend(), hasId))
        return;
    recordState();
    QList<LineImagePtr> images = m_lineImages;
    images.removeIf(hasId);
    setLineImages(std::move(images));
}

void CanvasViewModel::undoLastAction()
{
    if (m_previousStates.isEmpty())
        return;
    const CanvasState state = m_previousStates.takeLast();
    emit previousStatesChanged();
    // A step recorded before the canvas was laid out has no frame to rescale from.
    const bool rescale = state.currentImageSize != m_imageFrameSize && !state.currentImageSize.isEmpty();
    QList<LineImagePtr> images;
    images.reserve(state.images.size());
    // New items from the saved ones: where they stand now and which exist come back, not their turns and
    // scales.
    for (const LineImagePtr& saved : state.images) {
        QSizeF offset = saved->offset();
        if (rescale) {
            offset = QSizeF(offset.width() * (m_imageFrameSize.width() / state.currentImageSize.width()),
                            offset.height() * (m_imageFrameSize.height() / state.currentImageSize.height()));
        }
        images.append(std::make_shared<LineImage>(saved->currentImageSize(), saved->image(), offset, Angle(),
                                                  1.0, saved->shape()));
        // Brought back on the move page, an item takes gestures at once, as every item there does.
        images.last()->setTransformEnabled(m_selectedOption == Option::transform);
    }
    setLineImages(std::move(images));
}

void CanvasViewModel::enableDraw()
{
    setSelectedOption(Option::drawing);
    setEnteringText(false);
    setTransformEnabledOnAll(false);
}

void CanvasViewModel::enableText()
{
    setSelectedOption(Option::text);
    setEnteringText(true);
    setTransformEnabledOnAll(false);
}

void CanvasViewModel::enableMove()
{
    setSelectedOption(Option::transform);
    setEnteringText(false);
    setTransformEnabledOnAll(true);
}

void CanvasViewModel::handleTap(const LineImagePtr& item)
{
    if (!item)
        return;
    if (!m_selectedLineImage) {
        item->setSelected(true);
        setSelectedLineImage(item);
    } else if (m_selectedLineImage->id() == item->id()) {
        item->setSelected(false);
        setSelectedLineImage(nullptr);
    } else {
        m_selectedLineImage->setSelected(false);
        item->setSelected(true);
        setSelectedLineImage(item);
    }
}

void CanvasViewModel::handleTapOnScreen(QPointF point)
{
    for (auto it = m_lineImages.crbegin(); it != m_lineImages.crend(); ++it) {
        if ((*it)->isShownAt(point)) {
            handleTap(*it);
            return;
        }
    }
}

void CanvasViewModel::setLineWidth(qreal width)
{
    if (!isFinite(width))
        return;
    if (width != m_selectedlineWidth) {
        m_selectedlineWidth = width;
        emit selectedlineWidthChanged();
    }
    setChoosingLineWidth(false);
}

void CanvasViewModel::setColor(const QColor& color)
{
    if (color == m_selectedColor)
        return;
    m_selectedColor = color;
    emit selectedColorChanged();
}

void CanvasViewModel::addText(std::optional<QImage> image)
{
    addText(std::move(image), {});
}

void CanvasViewModel::addText(std::optional<QImage> image, Overlay::Shape shape)
{
    setEnteringText(false);
    if (!image)
        return;
    recordState();
    const QSizeF size = image->deviceIndependentSize();
    const QSizeF offset((m_imageFrameSize.width() - size.width()) / 2,
                        (m_imageFrameSize.height() - size.height()) / 2);
    QList<LineImagePtr> images = m_lineImages;
    images.append(std::make_shared<LineImage>(m_imageFrameSize, std::move(*image), offset, Angle(), 1.0,
                                              std::move(shape)));
    setLineImages(std::move(images));
}

QList<QColor> CanvasViewModel::colorItems()
{
    // Red, green, blue, yellow, orange, purple, pink, gray, black, white, secondary, accent, brown, cyan,
    // mint, teal, indigo: close to the standard palette of phones. The accent is the brand's own, which
    // also keeps it apart from blue.
    return {QColor(0xFF, 0x3B, 0x30), QColor(0x34, 0xC7, 0x59),       QColor(0x00, 0x7A, 0xFF),
            QColor(0xFF, 0xCC, 0x00), QColor(0xFF, 0x95, 0x00),       QColor(0xAF, 0x52, 0xDE),
            QColor(0xFF, 0x2D, 0x55), QColor(0x8E, 0x8E, 0x93),       QColor(0x00, 0x00, 0x00),
            QColor(0xFF, 0xFF, 0xFF), QColor(0x3C, 0x3C, 0x43, 0x99), BrandColor::ambar(),
            QColor(0xA2, 0x84, 0x5E), QColor(0x32, 0xAD, 0xE6),       QColor(0x00, 0xC7, 0xBE),
            QColor(0x30, 0xB0, 0xC7), QColor(0x58, 0x56, 0xD6)};
}

void CanvasViewModel::confirmText(TextImageViewModel* text)
{
    if (!text || text->text().isEmpty()) {
        addText(std::nullopt);
        return;
    }
    const Overlay::TextShape shape = text->textShape();
    QImage image = Overlay::textPicture(shape, ImageHelpers::screenScale());
    addText(image.isNull() ? std::nullopt : std::optional<QImage>(std::move(image)), shape);
}

std::optional<EditRecipe::Overlays> CanvasViewModel::overlaysStep() const
{
    if (m_imageFrameSize.isEmpty() || m_lineImages.isEmpty())
        return std::nullopt;
    EditRecipe::Overlays step{m_imageFrameSize, ImageHelpers::screenScale(), {}};
    for (const LineImagePtr& item : m_lineImages) {
        // A picture handed over without its shape cannot be drawn again.
        if (std::holds_alternative<std::monostate>(item->shape()))
            return std::nullopt;
        const QRectF box(QPointF(item->offset().width(), item->offset().height()),
                         item->image().deviceIndependentSize());
        step.items.append(EditRecipe::recipeItem(item->shape(), box, item->rotationAngle().degrees(),
                                                 item->magnification(), m_imageFrameSize));
    }
    return step;
}

ToolPageViewModel::ResultJob CanvasViewModel::flattening() const
{
    // Drawn from the step a recipe keeps, so that replaying the recipe gives the very same pixels.
    if (std::optional<EditRecipe::Overlays> step = overlaysStep())
        return [image = m_image, step = std::move(*step)] { return EditRecipe::flattened(image, step); };
    QList<Overlay::Placement> placements;
    for (const LineImagePtr& item : std::as_const(m_lineImages)) {
        placements.append({item->image(),
                           QRectF(QPointF(item->offset().width(), item->offset().height()),
                                  item->image().deviceIndependentSize()),
                           item->rotationAngle().degrees(), item->magnification()});
    }
    return [image = m_image, frame = m_imageFrameSize, placements = std::move(placements)] {
        return Overlay::flattened(image, frame, placements);
    };
}

std::optional<QImage> CanvasViewModel::mergeDrawings()
{
    if (m_lineImages.isEmpty())
        return std::nullopt;
    std::optional<QImage> merged = flattening()();
    if (merged)
        setLineImages({});
    return merged;
}

ToolPageViewModel::ResultJob CanvasViewModel::resultJob()
{
    // Nothing to flatten: result() hands back nothing at once.
    return m_lineImages.isEmpty() ? ResultJob() : flattening();
}

void CanvasViewModel::close()
{
    if (!m_selectedLineImage)
        return;
    m_selectedLineImage->setSelected(false);
    setSelectedLineImage(nullptr);
}

void CanvasViewModel::deleteItem()
{
    // The selection keeps pointing at the removed item on purpose; the next tap or close() replaces it.
    if (m_selectedLineImage)
        deleteLine(m_selectedLineImage->id());
}

void CanvasViewModel::rotate(Angle angle, bool overridePrevious)
{
    if (!m_selectedLineImage)
        return;
    const Angle turned = overridePrevious ? angle : m_selectedLineImage->rotationAngle() + angle;
    if (isFinite(turned.degrees()))
        m_selectedLineImage->setRotationAngle(turned);
}

void CanvasViewModel::increaseScale()
{
    if (m_selectedLineImage)
        scale(m_selectedLineImage->magnification() * 1.25);
}

void CanvasViewModel::decreaseScale()
{
    if (m_selectedLineImage)
        scale(m_selectedLineImage->magnification() * 0.75);
}

void CanvasViewModel::scale(qreal factor)
{
    // Also catches a scale that overflowed: an item the screen cannot draw.
    if (m_selectedLineImage && isFinite(factor))
        m_selectedLineImage->setMagnification(factor);
}

void CanvasViewModel::align(Alignment alignment)
{
    if (!m_selectedLineImage)
        return;
    const QSizeF f = m_imageFrameSize;
    // The unscaled image: magnification is not taken into account.
    const QSizeF s = m_selectedLineImage->image().deviceIndependentSize();
    const qreal left = 0;
    const qreal middle = (f.width() - s.width()) / 2;
    const qreal right = f.width() - s.width();
    const qreal top = 0;
    const qreal centre = (f.height() - s.height()) / 2;
    const qreal bottom = f.height() - s.height();
    QSizeF offset;
    switch (alignment) {
    case CanvasAlignment::topLeading:
        offset = {left, top};
        break;
    case CanvasAlignment::top:
        offset = {middle, top};
        break;
    case CanvasAlignment::topTrailing:
        offset = {right, top};
        break;
    case CanvasAlignment::leading:
        offset = {left, centre};
        break;
    case CanvasAlignment::center:
        offset = {middle, centre};
        break;
    case CanvasAlignment::trailing:
        offset = {right, centre};
        break;
    case CanvasAlignment::bottomLeading:
        offset = {left, bottom};
        break;
    case CanvasAlignment::bottom:
        offset = {middle, bottom};
        break;
    case CanvasAlignment::bottomTrailing:
        offset = {right, bottom};
        break;
    default:
        sayUnsupportedAlignment();
        return;
    }
    m_selectedLineImage->setOffset(offset);
}

void CanvasViewModel::recordState()
{
    m_previousStates.append(CanvasState{m_imageFrameSize, m_lineImages});
    emit previousStatesChanged();
}

void CanvasViewModel::setLineImages(QList<LineImagePtr> images)
{
    m_lineImages = std::move(images);
    // One mirror per item for the screen, rebuilt with the list: items are few.
    const QList<QObject*> old = std::exchange(m_lineImageViewModels, {});
    for (const LineImagePtr& item : std::as_const(m_lineImages))
        m_lineImageViewModels.append(new LineImageViewModel(item));
    emit lineImagesChanged();
    for (QObject* model : old)
        model->deleteLater();
}

void CanvasViewModel::setSelectedOption(Option option)
{
    if (option == m_selectedOption)
        return;
    m_selectedOption = option;
    emit selectedOptionChanged();
}

void CanvasViewModel::setEnteringText(bool entering)
{
    if (entering == m_isEnteringText)
        return;
    m_isEnteringText = entering;
    emit isEnteringTextChanged();
}

void CanvasViewModel::setTransformEnabledOnAll(bool enabled)
{
    for (const LineImagePtr& item : std::as_const(m_lineImages))
        item->setTransformEnabled(enabled);
}

void CanvasViewModel::setSelectedLineImage(LineImagePtr item)
{
    if (item == m_selectedLineImage)
        return;
    m_selectedLineImage = std::move(item);
    emit selectedLineImageChanged();
}

std::optional<EditRecipe::Step> CanvasViewModel::recipeStep() const
{
    if (std::optional<EditRecipe::Overlays> step = overlaysStep())
        return *step;
    return std::nullopt;
}
