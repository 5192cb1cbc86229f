#include "BrandIcon.h"

#include <QPainter>
#include <QQuickWindow>
#include <QSvgRenderer>

BrandIcon::BrandIcon(QQuickItem* parent)
    : QQuickPaintedItem(parent)
{
    setAntialiasing(true);
}

void BrandIcon::setSource(const QString& source)
{
    if (source == m_source)
        return;
    m_source = source;
    update();
    emit sourceChanged();
}

void BrandIcon::setColor(const QColor& color)
{
    if (color == m_color)
        return;
    m_color = color;
    update();
    emit colorChanged();
}

void BrandIcon::paint(QPainter* painter)
{
    if (m_source.isEmpty())
        return;
    QSvgRenderer renderer(m_source);
    if (!renderer.isValid() || width() <= 0 || height() <= 0)
        return;
    // Drawn white into its own layer, then tinted, so the tint never depends on the SVG's colours.
    const qreal dpr = window() ? window()->effectiveDevicePixelRatio() : 1.0;
    QImage layer((QSizeF(width(), height()) * dpr).toSize(), QImage::Format_ARGB32_Premultiplied);
    layer.fill(Qt::transparent);
    QPainter layerPainter(&layer);
    layerPainter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&layerPainter);
    layerPainter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    layerPainter.fillRect(layer.rect(), m_color);
    layerPainter.end();
    painter->drawImage(QRectF(0, 0, width(), height()), layer);
}
