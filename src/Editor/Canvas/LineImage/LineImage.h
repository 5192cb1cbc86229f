#pragma once

#include "Editor/Canvas/Scene/Overlay.h"
#include "Editor/Helpers/Angle.h"

#include <QImage>
#include <QObject>
#include <QPointF>
#include <QSizeF>
#include <memory>

/// One overlay item on the canvas: a finished stroke or a rendered text. Shared by reference between the
/// canvas's list and its undo states; compared by identity. Each of the five value fields announces its
/// new value after every assignment, also when it did not change.
class LineImage : public QObject
{
    Q_OBJECT

public:
    /// \a shape says what \a image shows, so that the saved photo and a recipe can draw it again.
    LineImage(QSizeF currentImageSize, QImage image, QSizeF offset, Angle rotationAngle = Angle(),
              qreal magnification = 1.0, Overlay::Shape shape = {});

    /// A fresh UUID, upper case.
    QString id() const { return m_id; }
    /// The canvas frame size when the item was made.
    QSizeF currentImageSize() const { return m_currentImageSize; }
    QImage image() const { return m_image; }
    const Overlay::Shape& shape() const { return m_shape; }

    /// The item's top-left corner in canvas points (width = x, height = y).
    QSizeF offset() const { return m_offset; }
    void setOffset(QSizeF offset);
    Angle rotationAngle() const { return m_rotationAngle; }
    void setRotationAngle(Angle angle);
    qreal magnification() const { return m_magnification; }
    void setMagnification(qreal magnification);
    bool isTransformEnabled() const { return m_isTransformEnabled; }
    void setTransformEnabled(bool enabled);
    bool isSelected() const { return m_isSelected; }
    void setSelected(bool selected);

    /// Strictly inside the unscaled, unturned box of the image at the offset.
    bool pointIsInside(QPointF point) const;
    /// Inside the item as the screen draws it: its box scaled, then turned, about its centre.
    bool isShownAt(QPointF point) const;
    QPointF getCenterPoint() const;

signals:
    void offsetPublisher(QSizeF offset);
    void roationPublisher(qreal degrees);
    void magnificationPublisher(qreal magnification);
    void isTransformPublisher(bool enabled);
    void selectedPublisher(bool selected);

private:
    const QString m_id;
    const QSizeF m_currentImageSize;
    const QImage m_image;
    const Overlay::Shape m_shape;
    QSizeF m_offset;
    Angle m_rotationAngle;
    qreal m_magnification;
    bool m_isTransformEnabled = false;
    bool m_isSelected = false;
};

using LineImagePtr = std::shared_ptr<LineImage>;
