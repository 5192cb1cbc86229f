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
    m_reduced = QImage();
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

const QImage& ImagePreview::reducedSource(QSize target)
{
    // A photo is reduced once to about the window's size; later fits (a turn swaps the frame's sides, a
    // window resize) start from that copy instead of from every pixel of the photo.
    const bool fits =
        !m_reduced.isNull() && target.width() <= m_reduced.width() && target.height() <= m_reduced.height();
    if (!fits) {
        const qreal dpr = window()->effectiveDevicePixelRatio();
        // Two pixels to spare, so that rounding the short side never leaves the copy below a target.
        const int side = qMax(qMax(target.width(), target.height()),
                              int(std::ceil(qMax(window()->width(), window()->height()) * dpr))) +
                         2;
        m_reduced = m_image.width() > side || m_image.height() > side
                        ? m_image.scaled(side, side, Qt::KeepAspectRatio, Qt::SmoothTransformation)
                        : m_image;
    }
    return m_reduced;
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
        const QImage& source = reducedSource(target);
        m_preview = target.width() < source.width() || target.height() < source.height()
                        ? source.scaled(target, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                        : source;
        node->setTexture(window()->createTextureFromImage(m_preview));
        m_previewDirty = false;
    }
    node->setRect(m_paintedRect);
    return node;
}
