#pragma once

#include "IntensityDelegate.h"

#include <QObject>
#include <QSizeF>
#include <QtQml/qqmlregistration.h>

/// A ruler of tick segments dragged sideways to choose an intensity from 0 to 100, in points of the screen.
/// The ruler stands at `offset` (where its first tick starts); during a drag the screen draws it moved by the
/// drag's translation, and the model settles the offset when the drag ends. Each change is told to the
/// delegate.
class ChooseIntensityViewModel : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("A colour page creates its intensity ruler.")
    Q_PROPERTY(qreal offset READ offset NOTIFY offsetChanged)
    Q_PROPERTY(bool isDragging READ isDragging NOTIFY isDraggingChanged)
    Q_PROPERTY(qreal selectedIntensity READ selectedIntensity NOTIFY selectedIntensityChanged)
    /// The intensity as the ruler's label shows it: a whole number.
    Q_PROPERTY(QString intensityText READ intensityText NOTIFY selectedIntensityChanged)
    /// The intensity as a share of the range, 0 to 1; 0 while it is not a number.
    Q_PROPERTY(qreal intensityFraction READ intensityFraction NOTIFY selectedIntensityChanged)
    Q_PROPERTY(QSizeF segmentSize READ segmentSize CONSTANT)
    Q_PROPERTY(int segmentNumber READ segmentNumber CONSTANT)
    Q_PROPERTY(qreal segmentSpacing READ segmentSpacing CONSTANT)

public:
    /// 41 ticks of 2 × 24 points, 8 points apart, starting at intensity 100. \a delegate, if any, must
    /// outlive the ruler (the page that owns it).
    explicit ChooseIntensityViewModel(IntensityDelegate* delegate, QObject* parent = nullptr);

    qreal offset() const { return m_offset; }
    qreal maxOffset() const { return m_maxOffset; }
    qreal minOffset() const { return m_minOffset; }
    qreal minimumValue() const { return m_minimumValue; }
    qreal maximumValue() const { return m_maximumValue; }
    QSizeF segmentSize() const { return m_segmentSize; }
    int segmentNumber() const { return m_segmentNumber; }
    qreal segmentSpacing() const { return m_segmentSpacing; }
    bool isDragging() const { return m_isDragging; }
    qreal selectedIntensity() const { return m_selectedIntensity; }
    qreal previousIntensity() const { return m_previousIntensity; }
    qreal totalDraggingSize() const { return m_totalDraggingSize; }
    bool isFirstTimeAppearing() const { return m_isFirstTimeAppearing; }
    QString intensityText() const;
    qreal intensityFraction() const;

    /// The ruler's width is known: the bounds of its offset, and on the first call its travel and start.
    Q_INVOKABLE void setupElementsSize(qreal width);
    /// A change of a running drag, \a translation points sideways; left raises the intensity. A translation
    /// that is not finite is ignored.
    Q_INVOKABLE void handleDragOnChange(qreal translation);
    /// The end of a drag of \a translation points.
    Q_INVOKABLE void handleDragOnEnded(qreal translation);
    /// Raises the intensity by \a ticks of the ruler (lowers it when negative), as a drag of as many ticks
    /// would, for the keyboard and screen readers. Nothing past either end, nor before the width is known.
    Q_INVOKABLE void step(int ticks);
    /// Shows \a intensity chosen, with the ruler where a drag would have left it, as an undo does, without
    /// telling the delegate.
    void restore(qreal intensity);

signals:
    void offsetChanged();
    void isDraggingChanged();
    void selectedIntensityChanged();

protected:
    ChooseIntensityViewModel(QSizeF segmentSize, int segmentNumber, qreal segmentSpacing,
                             qreal startIntensity, IntensityDelegate* delegate, QObject* parent);

    /// Where the ruler stands after its first setup: at its far end, which stands for 100.
    virtual qreal firstOffset() const { return m_minOffset; }

private:
    void setOffset(qreal offset);
    void setDragging(bool dragging);

    qreal m_offset = 0;
    qreal m_maxOffset = 0;
    qreal m_minOffset = 0;
    qreal m_minimumValue = 0;
    qreal m_maximumValue = 100;
    QSizeF m_segmentSize;
    int m_segmentNumber;
    qreal m_segmentSpacing;
    bool m_isDragging = false;
    qreal m_selectedIntensity;
    qreal m_previousIntensity;
    qreal m_totalDraggingSize = 0;
    IntensityDelegate* m_delegate;
    bool m_isFirstTimeAppearing = true;
};
