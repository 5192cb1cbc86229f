#include "PartialCircle.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

PartialCircle::PartialCircle(QQuickItem* parent)
    : QQuickPaintedItem(parent)
{
    setAntialiasing(true);
}

void PartialCircle::paint(QPainter* painter)
{
    const qreal side = std::min(width(), height()) - m_lineWidth;
    if (!(side > 0) || !std::isfinite(m_startAngle) || !std::isfinite(m_sweepAngle))
        return;
    const QRectF circle(QPointF((width() - side) / 2, (height() - side) / 2), QSizeF(side, side));
    // QPainter counts arcs in sixteenths of a degree.
    const auto arc = [&](const QColor& color, qreal from, qreal sweep) {
        painter->setPen(QPen(color, m_lineWidth, Qt::SolidLine, Qt::RoundCap));
        painter->drawArc(circle, int(std::lround(from * 16)), int(std::lround(sweep * 16)));
    };
    painter->setRenderHint(QPainter::Antialiasing);
    const qreal progress = std::isfinite(m_progress) ? std::clamp(m_progress, 0.0, 1.0) : 0.0;
    if (m_trackColor.alpha() > 0)
        arc(m_trackColor, m_startAngle, m_sweepAngle);
    if (progress > 0)
        arc(m_color, m_startAngle, m_sweepAngle * progress);
}
