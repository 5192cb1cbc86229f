#pragma once

#include <QPointF>
#include <QSizeF>
#include <QtNumeric>

/// Whether a number handed in by QML or a host can be used: models ignore NaN and infinities at the boundary.
inline bool isFinite(qreal value)
{
    return qIsFinite(value);
}

inline bool isFinite(QPointF point)
{
    return qIsFinite(point.x()) && qIsFinite(point.y());
}

inline bool isFinite(QSizeF size)
{
    return qIsFinite(size.width()) && qIsFinite(size.height());
}
