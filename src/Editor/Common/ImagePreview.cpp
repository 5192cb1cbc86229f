#include "ImagePreview.h"

#include <QPainter>
#include <QQuickWindow>
#include <QSGImageNode>
#include <QSGTexture>
#include <cmath>

namespace {

// The image over light and dark grey squares of \a cell pixels, all counted in pixels.
QImage overCheckerboard(const QImage& image, int cell)
{
    QImage board(image.size(), QImage::Format_ARGB32_Premultiplied);
    {
        QPainter painter(&board);
        painter.fillRect(board.rect(), QColor(0xcc, 0xcc, 0xcc));
        for (int y = 0; y < board.height(); y += cell) {
            for (int x = (y / cell) % 2 * cell; x < board.width(); x += 2 * cell)
                painter.fillRect(QRect(x, y, cell, cell), QColor(0x99, 0x99, 0x99));
        }
        painter.drawImage(board.rect(), image);
    }
    board.setDevicePixelRatio(image.devicePixelRatio());
    return board;
}

} // namespace

ImagePreview::ImagePreview(QQuickItem* parent)
    : QQuickItem(parent)
{
    setFlag(ItemHasContents, true);
}

void ImagePreview::setShowsTransparency(bool shows)
{
    if (shows == m_showsTransparency)
        return;
    m_showsTransparency = shows;
    m_previewDirty = true;
    update();
    emit showsTransparencyChanged();
}

void ImagePreview::setImage(const QImage& image)
{
    if (image == m_image)
        return;
    m_image = image;
    setImplicitSize(image.deviceIndependentSize().width(), image.deviceIndependentSize().height());
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
        // A sliver of a picture (4000 × 1) would be fitted to a fraction of a point, which nobody sees.
        const QSizeF fitted = m_image.deviceIndependentSize()
                                  .scaled(size(), Qt::KeepAspectRatio)
                                  .expandedTo(QSizeF(1, 1))
                                  .boundedTo(QSizeF(std::max(width(), 1.0), std::max(height(), 1.0)));
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
        // Never to nothing: a sliver keeps a pixel across.
        const QSize reduced = m_image.size().scaled(side, side, Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
        m_reduced = m_image.width() > side || m_image.height() > side
                        ? m_image.scaled(reduced, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
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
        if (m_showsTransparency && m_preview.hasAlphaChannel())
            m_preview = overCheckerboard(m_preview, qMax(1, qRound(8 * dpr)));
        node->setTexture(window()->createTextureFromImage(m_preview));
        // A picture shown at twice its pixels or more is seen pixel by pixel, as in any photo viewer: a
        // smoothed 3 × 3 picture is a blur in which no pixel can be told apart.
        const bool magnified =
            target.width() >= 2 * m_preview.width() && target.height() >= 2 * m_preview.height();
        node->setFiltering(magnified ? QSGTexture::Nearest : QSGTexture::Linear);
        m_previewDirty = false;
    }
    node->setRect(m_paintedRect);
    return node;
}
