#pragma once

#include <QColor>
#include <QImage>
#include <QQuickPaintedItem>

/// One brand icon (an SVG from BrandImage) drawn at the item's size in a single tint colour. Works on every
/// scene graph backend, software included.
class BrandIcon : public QQuickPaintedItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString source READ source WRITE setSource NOTIFY sourceChanged)
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged)

public:
    explicit BrandIcon(QQuickItem* parent = nullptr);

    QString source() const { return m_source; }
    void setSource(const QString& source);
    QColor color() const { return m_color; }
    void setColor(const QColor& color);

    void paint(QPainter* painter) override;

signals:
    void sourceChanged();
    void colorChanged();

private:
    QString m_source;
    QColor m_color = Qt::white;
};
