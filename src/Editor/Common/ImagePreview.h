#pragma once

#include <QImage>
#include <QQuickItem>

/// Shows an image fitted and centred in the item. Only a copy scaled to the displayed size ever reaches the
/// GPU, however large the image.
class ImagePreview : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QImage image READ image WRITE setImage NOTIFY imageChanged)
    /// Where the image is drawn, in item coordinates.
    Q_PROPERTY(QRectF paintedRect READ paintedRect NOTIFY paintedRectChanged)

public:
    explicit ImagePreview(QQuickItem* parent = nullptr);

    QImage image() const { return m_image; }
    void setImage(const QImage& image);
    QRectF paintedRect() const { return m_paintedRect; }

    /// The pixels uploaded for the last frame (for checks and benchmarks).
    QSize previewPixelSize() const { return m_preview.size(); }

signals:
    void imageChanged();
    void paintedRectChanged();

protected:
    QSGNode* updatePaintNode(QSGNode* oldNode, UpdatePaintNodeData* data) override;
    void geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) override;

private:
    void updatePaintedRect();
    const QImage& reducedSource(QSize target);

    QImage m_image;
    QImage m_reduced;
    QImage m_preview;
    QRectF m_paintedRect;
    bool m_previewDirty = true;
};
