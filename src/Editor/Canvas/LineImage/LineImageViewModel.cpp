#include "LineImageViewModel.h"

#include "Editor/Helpers/Finite.h"

LineImageViewModel::LineImageViewModel(LineImagePtr line, QObject* parent)
    : QObject(parent)
    , m_lineImage(std::move(line))
    , m_image(m_lineImage->image())
    , m_currentImageSize(m_lineImage->currentImageSize())
    , m_imageSize(m_image.deviceIndependentSize())
    , m_offset(m_lineImage->offset())
    , m_rotationAngle(m_lineImage->rotationAngle().degrees())
    , m_magnification(m_lineImage->magnification())
    , m_isTransformEnabled(m_lineImage->isTransformEnabled())
    , m_isSelected(m_lineImage->isSelected())
{
    // Values equal to the ones held are dropped: that ends the echo item → mirror → item.
    LineImage* item = m_lineImage.get();
    connect(item, &LineImage::offsetPublisher, this, [this](QSizeF offset) {
        if (offset != m_offset)
            setOffset(offset);
    });
    connect(item, &LineImage::roationPublisher, this, [this](qreal degrees) {
        if (degrees != m_rotationAngle)
            setRotationAngle(degrees);
    });
    connect(item, &LineImage::magnificationPublisher, this, [this](qreal magnification) {
        if (magnification != m_magnification)
            setMagnification(magnification);
    });
    connect(item, &LineImage::isTransformPublisher, this, [this](bool enabled) {
        if (enabled == m_isTransformEnabled)
            return;
        m_isTransformEnabled = enabled;
        emit isTransformEnabledChanged();
    });
    connect(item, &LineImage::selectedPublisher, this, [this](bool selected) {
        if (selected == m_isSelected)
            return;
        m_isSelected = selected;
        emit isSelectedChanged();
    });
}

// A value the screen cannot show is refused before it reaches the item: NaN never equals itself, so it
// would also echo between item and mirror without end.
void LineImageViewModel::setOffset(QSizeF offset)
{
    if (!isFinite(offset))
        return;
    m_offset = offset;
    emit offsetChanged();
    m_lineImage->setOffset(offset);
}

void LineImageViewModel::setRotationAngle(qreal degrees)
{
    if (!isFinite(degrees))
        return;
    m_rotationAngle = degrees;
    emit rotationAngleChanged();
    m_lineImage->setRotationAngle(Angle::degrees(degrees));
}

void LineImageViewModel::setMagnification(qreal magnification)
{
    if (!isFinite(magnification))
        return;
    m_magnification = magnification;
    emit magnificationChanged();
    m_lineImage->setMagnification(magnification);
}

void LineImageViewModel::endDrag(QSizeF translation)
{
    setOffset(QSizeF(m_offset.width() + translation.width(), m_offset.height() + translation.height()));
}

void LineImageViewModel::endRotation(qreal degrees)
{
    setRotationAngle(m_rotationAngle + degrees);
}

void LineImageViewModel::endMagnification(qreal scale)
{
    setMagnification(m_magnification * scale);
}
