#include "ChooseIntensityViewModel.h"

#include "Editor/Helpers/Notify.h"

#include <algorithm>
#include <cmath>

ChooseIntensityViewModel::ChooseIntensityViewModel(IntensityDelegate* delegate, QObject* parent)
    : ChooseIntensityViewModel(QSizeF(2, 24), 41, 8, 100, delegate, parent)
{}

ChooseIntensityViewModel::ChooseIntensityViewModel(QSizeF segmentSize, int segmentNumber,
                                                   qreal segmentSpacing, qreal startIntensity,
                                                   IntensityDelegate* delegate, QObject* parent)
    : QObject(parent)
    , m_segmentSize(segmentSize)
    , m_segmentNumber(segmentNumber)
    , m_segmentSpacing(segmentSpacing)
    , m_selectedIntensity(startIntensity)
    , m_previousIntensity(startIntensity)
    , m_delegate(delegate)
{}

QString ChooseIntensityViewModel::intensityText() const
{
    return std::isfinite(m_selectedIntensity) ? QString::number(std::lround(m_selectedIntensity))
                                              : QStringLiteral("–");
}

qreal ChooseIntensityViewModel::intensityFraction() const
{
    return std::isfinite(m_selectedIntensity) ? std::clamp(m_selectedIntensity / 100, 0.0, 1.0) : 0.0;
}

void ChooseIntensityViewModel::setupElementsSize(qreal width)
{
    if (!std::isfinite(width))
        return;
    m_maxOffset = (width - m_segmentSize.width()) / 2;
    const qreal pitch = m_segmentSize.width() + m_segmentSpacing;
    m_minOffset = m_maxOffset - (m_segmentNumber - 1) * pitch;
    // Deliberately once: a later width moves the bounds but keeps the travel and where the ruler stands.
    if (m_isFirstTimeAppearing) {
        m_isFirstTimeAppearing = false;
        m_totalDraggingSize = pitch * (m_segmentNumber - 1);
        setOffset(firstOffset());
    }
}

void ChooseIntensityViewModel::handleDragOnChange(qreal translation)
{
    if (!std::isfinite(translation))
        return;
    setDragging(true);
    qreal intensity = 0;
    // Beyond either end the value is exactly 0 or 100. In between it is relative to where the drag began,
    // which after a new width (the bounds move, the travel stays) could lead past either end: held within
    // them. Before any setup a drag of zero divides zero by zero, and the intensity is not a number.
    if (m_offset + translation > m_maxOffset)
        intensity = 0;
    else if (m_offset + translation < m_minOffset)
        intensity = 100;
    else
        intensity = std::clamp(m_previousIntensity + (-translation / m_totalDraggingSize) * 100, 0.0, 100.0);
    assignAndNotify(this, m_selectedIntensity, intensity,
                    &ChooseIntensityViewModel::selectedIntensityChanged);
    if (m_delegate)
        m_delegate->applyIntensity(m_selectedIntensity);
}

void ChooseIntensityViewModel::handleDragOnEnded(qreal translation)
{
    m_previousIntensity = m_selectedIntensity;
    setDragging(false);
    if (!std::isfinite(translation))
        return;
    // No snapping to ticks: the ruler stays where the finger left it.
    if (m_offset + translation > m_maxOffset)
        setOffset(m_maxOffset);
    else if (m_offset + translation < m_minOffset)
        setOffset(m_minOffset);
    else
        setOffset(m_offset + translation);
}

void ChooseIntensityViewModel::step(int ticks)
{
    if (m_isFirstTimeAppearing || ticks == 0)
        return;
    // A key at either end changes nothing: it must not leave an undo step that undoes nothing.
    if ((ticks > 0 && m_selectedIntensity >= m_maximumValue) ||
        (ticks < 0 && m_selectedIntensity <= m_minimumValue))
        return;
    // The ruler moves left to raise the intensity.
    const qreal translation = -qreal(ticks) * (m_segmentSize.width() + m_segmentSpacing);
    handleDragOnChange(translation);
    handleDragOnEnded(translation);
}

void ChooseIntensityViewModel::restore(qreal intensity)
{
    m_previousIntensity = intensity;
    assignAndNotify(this, m_selectedIntensity, intensity,
                    &ChooseIntensityViewModel::selectedIntensityChanged);
    if (!m_isFirstTimeAppearing && std::isfinite(intensity))
        setOffset(m_maxOffset - intensity / 100 * m_totalDraggingSize);
}

void ChooseIntensityViewModel::setOffset(qreal offset)
{
    assignAndNotify(this, m_offset, offset, &ChooseIntensityViewModel::offsetChanged);
}

void ChooseIntensityViewModel::setDragging(bool dragging)
{
    assignAndNotify(this, m_isDragging, dragging, &ChooseIntensityViewModel::isDraggingChanged);
}
