#pragma once

#include <QImage>
#include <QQuickItem>

/// Shows an image fitted and centred in the item, never thinner than a point; its implicit size is the
/// image's size in points. Only a copy scaled to the
/// displayed size ever reaches the GPU, however large the image.
class ImagePreview : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QImage image READ image WRITE setImage NOTIFY imageChanged)
    /// Where the image is drawn, in item coordinates.
    Q_PROPERTY(QRectF paintedRect READ paintedRect NOTIFY paintedRectChanged)
    /// Draws the image over a checkerboard, so that its transparent pixels show as such. Off for overlays.
    Q_PROPERTY(bool showsTransparency READ showsTransparency WRITE setShowsTransparency NOTIFY
                   showsTransparencyChanged)

public:
    explicit ImagePreview(QQuickItem* parent = nullptr);

    QImage image() const { return m_image; }
    void setImage(const QImage& image);
    QRectF paintedRect() const { return m_paintedRect; }
    bool showsTransparency() const { return m_showsTransparency; }
    void setShowsTransparency(bool shows);

    /// The pixels uploaded for the last frame (for checks and benchmarks).
    QSize previewPixelSize() const { return m_preview.size(); }

signals:
    void imageChanged();
    void paintedRectChanged();
    void showsTransparencyChanged();

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
    bool m_showsTransparency = false;
};
