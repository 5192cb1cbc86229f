#pragma once

#include "LineImage.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

/// One overlay item as the screen sees it: its values are the item's own, read and written through, and its
/// signals the item's announcements. Gestures show live values on screen and commit here when they end. A
/// value that is not finite, given or reached by overflow, is ignored.
class LineImageViewModel : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The canvas creates one per overlay item.")
    Q_PROPERTY(QImage image READ image CONSTANT)
    Q_PROPERTY(QSizeF currentImageSize READ currentImageSize CONSTANT)
    Q_PROPERTY(QSizeF imageSize READ imageSize CONSTANT)
    Q_PROPERTY(QSizeF offset READ offset WRITE setOffset NOTIFY offsetChanged)
    /// Degrees.
    Q_PROPERTY(qreal rotationAngle READ rotationAngle WRITE setRotationAngle NOTIFY rotationAngleChanged)
    Q_PROPERTY(qreal magnification READ magnification WRITE setMagnification NOTIFY magnificationChanged)
    Q_PROPERTY(bool isTransformEnabled READ isTransformEnabled NOTIFY isTransformEnabledChanged)
    Q_PROPERTY(bool isSelected READ isSelected NOTIFY isSelectedChanged)

public:
    explicit LineImageViewModel(LineImagePtr line, QObject* parent = nullptr);

    const LineImagePtr& lineImage() const { return m_lineImage; }
    QImage image() const { return m_lineImage->image(); }
    QSizeF currentImageSize() const { return m_lineImage->currentImageSize(); }
    QSizeF imageSize() const { return m_lineImage->image().deviceIndependentSize(); }
    QSizeF offset() const { return m_lineImage->offset(); }
    void setOffset(QSizeF offset);
    qreal rotationAngle() const { return m_lineImage->rotationAngle().degrees(); }
    void setRotationAngle(qreal degrees);
    qreal magnification() const { return m_lineImage->magnification(); }
    void setMagnification(qreal magnification);
    bool isTransformEnabled() const { return m_lineImage->isTransformEnabled(); }
    bool isSelected() const { return m_lineImage->isSelected(); }

    /// The end of a drag that moved the item by \a translation.
    Q_INVOKABLE void endDrag(QSizeF translation);
    /// The end of a twist that turned the item by \a degrees.
    Q_INVOKABLE void endRotation(qreal degrees);
    /// The end of a pinch that scaled the item by \a scale.
    Q_INVOKABLE void endMagnification(qreal scale);

signals:
    void offsetChanged();
    void rotationAngleChanged();
    void magnificationChanged();
    void isTransformEnabledChanged();
    void isSelectedChanged();

private:
    const LineImagePtr m_lineImage;
};
