#pragma once

#include <QColor>
#include <QQuickPaintedItem>

/// An arc of the circle inscribed in the item: of the sweep from `startAngle` (degrees, counter-clockwise
/// from three o'clock), the first `progress` (0 to 1) is drawn in `color`, the rest in `trackColor`.
class PartialCircle : public QQuickPaintedItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(qreal startAngle MEMBER m_startAngle WRITE setStartAngle NOTIFY shapeChanged)
    Q_PROPERTY(qreal sweepAngle MEMBER m_sweepAngle WRITE setSweepAngle NOTIFY shapeChanged)
    Q_PROPERTY(qreal progress MEMBER m_progress WRITE setProgress NOTIFY shapeChanged)
    Q_PROPERTY(qreal lineWidth MEMBER m_lineWidth WRITE setLineWidth NOTIFY shapeChanged)
    Q_PROPERTY(QColor color MEMBER m_color WRITE setColor NOTIFY shapeChanged)
    Q_PROPERTY(QColor trackColor MEMBER m_trackColor WRITE setTrackColor NOTIFY shapeChanged)

public:
    explicit PartialCircle(QQuickItem* parent = nullptr);

    void setStartAngle(qreal angle) { set(m_startAngle, angle); }
    void setSweepAngle(qreal angle) { set(m_sweepAngle, angle); }
    void setProgress(qreal progress) { set(m_progress, progress); }
    void setLineWidth(qreal width) { set(m_lineWidth, width); }
    void setColor(const QColor& color) { set(m_color, color); }
    void setTrackColor(const QColor& color) { set(m_trackColor, color); }

    void paint(QPainter* painter) override;

signals:
    void shapeChanged();

private:
    template <typename T> void set(T& field, const T& value)
    {
        if (field == value)
            return;
        field = value;
        update();
        emit shapeChanged();
    }

    qreal m_startAngle = 180;
    qreal m_sweepAngle = -180;
    qreal m_progress = 0;
    qreal m_lineWidth = 4;
    QColor m_color = Qt::white;
    QColor m_trackColor = Qt::transparent;
};
