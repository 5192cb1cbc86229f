#include "ImagePreview.h"

#include <QQuickWindow>
#include <QSGImageNode>
#include <QSGTexture>
#include <cmath>

ImagePreview::ImagePreview(QQuickItem* parent)
    : QQuickItem(parent)
{
    setFlag(ItemHasContents, true);
}

void ImagePreview::setImage(const QImage& image)
{
    if (image == m_image)
        return;
    m_image = image;
    m_previewDirty = true;
    updatePaintedRect();
    update();
    emit imageChanged();
}

void ImagePreview::geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry)
{
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    if (newGeometry.size() != oldGeometry.size()) {
        m_previewDirty = true;
        updatePaintedRect();
        update();
    }
}

void ImagePreview::updatePaintedRect()
{
    QRectF rect;
    if (!m_image.isNull() && width() > 0 && height() > 0) {
        const QSizeF fitted = m_image.deviceIndependentSize().scaled(size(), Qt::KeepAspectRatio);
        rect = QRectF(QPointF((width() - fitted.width()) / 2, (height() - fitted.height()) / 2), fitted);
    }
    if (rect != m_paintedRect) {
        m_paintedRect = rect;
        emit paintedRectChanged();
    }
}

QSGNode* ImagePreview::updatePaintNode(QSGNode* oldNode, UpdatePaintNodeData*)
{
    auto* node = static_cast<QSGImageNode*>(oldNode);
    if (m_paintedRect.isEmpty()) {
        delete node;
        m_preview = QImage();
        return nullptr;
    }
    if (!node) {
        node = window()->createImageNode();
        node->setOwnsTexture(true);
        node->setFiltering(QSGTexture::Linear);
        m_previewDirty = true;
    }
    if (m_previewDirty) {
        const qreal dpr = window()->effectiveDevicePixelRatio();
        const QSize target(qMax(1, int(std::ceil(m_paintedRect.width() * dpr))),
                           qMax(1, int(std::ceil(m_paintedRect.height() * dpr))));
        m_preview = target.width() < m_image.width() || target.height() < m_image.height()
                        ? m_image.scaled(target, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                        : m_image;
        node->setTexture(window()->createTextureFromImage(m_preview));
        m_previewDirty = false;
    }
    node->setRect(m_paintedRect);
    return node;
}
