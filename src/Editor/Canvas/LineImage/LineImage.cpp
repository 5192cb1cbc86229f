#include "LineImage.h"

#include <QTransform>
#include <QUuid>

LineImage::LineImage(QSizeF currentImageSize, QImage image, QSizeF offset, Angle rotationAngle,
                     qreal magnification, Overlay::Shape shape)
    : m_id(QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper())
    , m_currentImageSize(currentImageSize)
    , m_image(std::move(image))
    , m_shape(std::move(shape))
    , m_offset(offset)
    , m_rotationAngle(rotationAngle)
    , m_magnification(magnification)
{}

void LineImage::setOffset(QSizeF offset)
{
    m_offset = offset;
    emit offsetPublisher(offset);
}

void LineImage::setRotationAngle(Angle angle)
{
    m_rotationAngle = angle;
    emit roationPublisher(angle.degrees());
}

void LineImage::setMagnification(qreal magnification)
{
    m_magnification = magnification;
    emit magnificationPublisher(magnification);
}

void LineImage::setTransformEnabled(bool enabled)
{
    m_isTransformEnabled = enabled;
    emit isTransformPublisher(enabled);
}

void LineImage::setSelected(bool selected)
{
    m_isSelected = selected;
    emit selectedPublisher(selected);
}

bool LineImage::pointIsInside(QPointF point) const
{
    const QSizeF size = m_image.deviceIndependentSize();
    return m_offset.width() < point.x() && point.x() < m_offset.width() + size.width() &&
           m_offset.height() < point.y() && point.y() < m_offset.height() + size.height();
}

bool LineImage::isShownAt(QPointF point) const
{
    const QPointF centre = getCenterPoint();
    const QTransform shown = QTransform()
                                 .translate(centre.x(), centre.y())
                                 .rotate(m_rotationAngle.degrees())
                                 .scale(m_magnification, m_magnification)
                                 .translate(-centre.x(), -centre.y());
    bool invertible = false;
    const QPointF unshown = shown.inverted(&invertible).map(point);
    return invertible && QRectF(QPointF(m_offset.width(), m_offset.height()), m_image.deviceIndependentSize())
                             .contains(unshown);
}

QPointF LineImage::getCenterPoint() const
{
    const QSizeF size = m_image.deviceIndependentSize();
    return {m_offset.width() + size.width() / 2, m_offset.height() + size.height() / 2};
}
