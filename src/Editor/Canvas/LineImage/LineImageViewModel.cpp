#include "LineImageViewModel.h"

#include "Editor/Helpers/Finite.h"

LineImageViewModel::LineImageViewModel(LineImagePtr line, QObject* parent)
    : QObject(parent)
    , m_lineImage(std::move(line))
{
    LineImage* item = m_lineImage.get();
    connect(item, &LineImage::offsetPublisher, this, &LineImageViewModel::offsetChanged);
    connect(item, &LineImage::roationPublisher, this, &LineImageViewModel::rotationAngleChanged);
    connect(item, &LineImage::magnificationPublisher, this, &LineImageViewModel::magnificationChanged);
    connect(item, &LineImage::isTransformPublisher, this, &LineImageViewModel::isTransformEnabledChanged);
    connect(item, &LineImage::selectedPublisher, this, &LineImageViewModel::isSelectedChanged);
}

// A value the screen cannot show is refused before it reaches the item.
void LineImageViewModel::setOffset(QSizeF offset)
{
    if (isFinite(offset))
        m_lineImage->setOffset(offset);
}

void LineImageViewModel::setRotationAngle(qreal degrees)
{
    if (isFinite(degrees))
        m_lineImage->setRotationAngle(Angle::degrees(degrees));
}

void LineImageViewModel::setMagnification(qreal magnification)
{
    if (isFinite(magnification))
        m_lineImage->setMagnification(magnification);
}

void LineImageViewModel::endDrag(QSizeF translation)
{
    setOffset(QSizeF(offset().width() + translation.width(), offset().height() + translation.height()));
}

void LineImageViewModel::endRotation(qreal degrees)
{
    setRotationAngle(rotationAngle() + degrees);
}

void LineImageViewModel::endMagnification(qreal scale)
{
    setMagnification(magnification() * scale);
}
