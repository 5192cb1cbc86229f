#include "CropFrame.h"

#include "Editor/Helpers/Finite.h"
#include "Editor/Helpers/FittedSize.h"

#include <cmath>

bool CropFrame::fit(QSizeF picture, QSizeF available)
{
    if (!isFinite(available))
        return false;
    portraitSize = fittedSize(picture, available);
    // The frame of the picture turned a quarter, stated in the picture's own axes.
    landscapeSize = fittedSize(picture.transposed(), available).transposed();
    // A layout while turned a quarter keeps the turned frame; the rectangle follows the new frame.
    frameSize = rotation.isPortrait() ? portraitSize : landscapeSize;
    return true;
}

CropFrame::Edge CropFrame::edgeAt(QPointF p) const
{
    const auto near = [](qreal a, qreal b) { return std::abs(a - b) <= kHandleRadius; };
    const QPointF middle = centre();
    if (near(p.y(), middle.y()) && near(p.x(), middle.x()))
        return Edge::center;
    if (near(p.y(), top())) {
        if (near(p.x(), leading()))
            return Edge::topLeading;
        if (near(p.x(), trailing()))
            return Edge::topTrailing;
        return Edge::top;
    }
    if (near(p.y(), bottom())) {
        if (near(p.x(), leading()))
            return Edge::bottomLeading;
        if (near(p.x(), trailing()))
            return Edge::bottomTrailing;
        return Edge::bottom;
    }
    if (near(p.x(), leading()))
        return Edge::leading;
    if (near(p.x(), trailing()))
        return Edge::trailing;
    return Edge::none;
}

bool CropFrame::isValidLocation(QPointF p) const
{
    if (!(p.x() > 0) || !(p.y() > 0))
        return false;
    const QSizeF frame = rotation.isPortrait() ? portraitSize : landscapeSize;
    return p.x() < frame.width() && p.y() < frame.height();
}

QPointF CropFrame::touchLocation(QPointF location) const
{
    // No edge of such a side can move anyway, so nothing is lost by ignoring where across it the finger is.
    if (frameSize.width() <= kMinimumEdgesSeparation)
        location.setX(frameSize.width() / 2);
    if (frameSize.height() <= kMinimumEdgesSeparation)
        location.setY(frameSize.height() / 2);
    return location;
}

void CropFrame::drag(QPointF p)
{
    if (!isFinite(p) || !isValidLocation(p))
        return;
    switch (edgeAt(p)) {
    case Edge::top:
        dragTop(p.y());
        break;
    case Edge::bottom:
        dragBottom(p.y());
        break;
    case Edge::leading:
        dragLeading(p.x());
        break;
    case Edge::trailing:
        dragTrailing(p.x());
        break;
    case Edge::topLeading:
        dragTop(p.y());
        dragLeading(p.x());
        break;
    case Edge::topTrailing:
        dragTop(p.y());
        dragTrailing(p.x());
        break;
    case Edge::bottomLeading:
        dragBottom(p.y());
        dragLeading(p.x());
        break;
    case Edge::bottomTrailing:
        dragBottom(p.y());
        dragTrailing(p.x());
        break;
    case Edge::center:
        moveCentre(p);
        break;
    case Edge::none:
        break;
    }
}

// Only the bottom and trailing drags check the frame's far border; the near borders are guarded by
// isValidLocation. The asymmetry is deliberate.
void CropFrame::dragTop(qreal y)
{
    if (bottom() - y <= kMinimumEdgesSeparation)
        return;
    topFactor = y / frameSize.height();
}

void CropFrame::dragBottom(qreal y)
{
    if (!(y - top() > kMinimumEdgesSeparation) || !(frameSize.height() - y >= 0))
        return;
    bottomFactor = y / frameSize.height();
}

void CropFrame::dragLeading(qreal x)
{
    if (trailing() - x <= kMinimumEdgesSeparation)
        return;
    leadingFactor = x / frameSize.width();
}

void CropFrame::dragTrailing(qreal x)
{
    if (!(x - leading() > kMinimumEdgesSeparation) || !(frameSize.width() - x >= 0))
        return;
    trailingFactor = x / frameSize.width();
}

void CropFrame::moveCentre(QPointF p)
{
    const QPointF d = centre() - p;
    const qreal newTop = top() - d.y();
    const qreal newBottom = bottom() - d.y();
    const qreal newLeading = leading() - d.x();
    const qreal newTrailing = trailing() - d.x();
    // A move that would cross the frame is dropped whole: the rectangle never slides along a border.
    if (!(newTop >= 0) || !(newBottom <= frameSize.height()) || !(newLeading >= 0) ||
        !(newTrailing <= frameSize.width()))
        return;
    dragTop(newTop);
    dragBottom(newBottom);
    dragLeading(newLeading);
    dragTrailing(newTrailing);
}

QList<QPointF> CropFrame::pathBetween(QPointF from, QPointF to)
{
    if (!isFinite(from) || !isFinite(to))
        return {to};
    const QPointF step = to - from;
    const qreal length = std::hypot(step.x(), step.y());
    // Far beyond any screen: a jump that long is taken as it comes.
    constexpr int kMostSteps = 1000;
    const int steps = int(std::min<qreal>(kMostSteps, std::ceil(length / (kHandleRadius / 2))));
    QList<QPointF> points;
    for (int i = 1; i < steps; ++i)
        points.append(from + step * (qreal(i) / steps));
    points.append(to);
    return points;
}

void CropFrame::turn(Angle angle)
{
    rotation = rotation + angle;
    // The rectangle keeps its place on the image, not on the screen: same factors, turned frame.
    frameSize = rotation.isPortrait() ? portraitSize : landscapeSize;
}

void CropFrame::mirrorAsSeen(Mirroring change)
{
    Mirroring seen = seenFlips();
    seen.leftRight ^= change.leftRight;
    seen.topBottom ^= change.topBottom;
    flips = seenMirroring(rotation, seen);
}

void CropFrame::restoreEdit(const CropFrame& earlier)
{
    const QSizeF portrait = portraitSize;
    const QSizeF landscape = landscapeSize;
    *this = earlier;
    portraitSize = portrait;
    landscapeSize = landscape;
}

QRectF CropFrame::cropRect(QSizeF picture) const
{
    return {leadingFactor * picture.width(), topFactor * picture.height(),
            (trailingFactor - leadingFactor) * picture.width(),
            (bottomFactor - topFactor) * picture.height()};
}
