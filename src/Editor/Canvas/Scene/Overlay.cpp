#include "Overlay.h"

#include "Editor/Helpers/ImageHelpers.h"
#include "Editor/Helpers/Resampling.h"

#include <QColorSpace>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPainter>
#include <QPainterPath>
#include <cmath>

namespace Overlay {

namespace {

constexpr int kTextFlags = Qt::AlignHCenter | Qt::AlignVCenter | Qt::TextWordWrap;
constexpr qreal kUnlimited = 1e6;

// Swatch colours and text are chosen in sRGB: on a photo of a wider gamut they are converted, so the saved
// file shows the colour the user picked rather than a more saturated one.
QImage inColourSpace(const QImage& overlay, const QColorSpace& space)
{
    if (!space.isValid() || space == QColorSpace(QColorSpace::SRgb))
        return overlay;
    QImage converted = overlay;
    if (!converted.colorSpace().isValid())
        converted.setColorSpace(QColorSpace::SRgb);
    converted.convertToColorSpace(space);
    return converted;
}

QPointF scaled(QPointF point, QSizeF by)
{
    return {point.x() * by.width(), point.y() * by.height()};
}

} // namespace

QFont TextShape::font() const
{
    QFont font = QGuiApplication::font();
    if (!family.isEmpty())
        font.setFamily(family);
    font.setPixelSize(std::max(1, pixelSize));
    font.setBold(bold);
    font.setItalic(italic);
    return font;
}

QRectF TextLayout::drawingRect() const
{
    return width >= kUnlimited ? QRectF(QPointF(0, 0), size)
                               : QRectF((size.width() - width) / 2, 0, width, size.height());
}

TextLayout layOut(const QFont& font, const QString& text, qreal maximumWidth)
{
    TextLayout layout{QSizeF(), kUnlimited, kTextFlags};
    if (maximumWidth > 0 && std::isfinite(maximumWidth))
        layout.width = std::max<qreal>(1, std::floor(maximumWidth));
    const QFontMetricsF metrics(font);
    QRectF bounds = metrics.boundingRect(QRectF(0, 0, layout.width, kUnlimited), layout.flags, text);
    // A word longer than the width cannot wrap at a word boundary: such a text breaks anywhere.
    if (bounds.width() > layout.width) {
        layout.flags = (kTextFlags & ~Qt::TextWordWrap) | Qt::TextWrapAnywhere;
        bounds = metrics.boundingRect(QRectF(0, 0, layout.width, kUnlimited), layout.flags, text);
    }
    layout.size = QSizeF(std::min(std::ceil(bounds.width()), layout.width), std::ceil(bounds.height()));
    return layout;
}

QImage strokePicture(QSizeF size, const StrokeShape& stroke, qreal pixelRatio)
{
    QImage image = ImageHelpers::transparentCanvas(size, pixelRatio);
    if (image.isNull() || stroke.points.isEmpty())
        return image;
    QPainterPath path(stroke.points.first());
    for (qsizetype i = 1; i < stroke.points.size(); ++i)
        path.lineTo(stroke.points[i]);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    // Butt caps and mitre joins: what strokes get when nothing else is asked for.
    painter.setPen(QPen(stroke.color, stroke.width, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    painter.drawPath(path);
    return image;
}

QImage textPicture(const TextShape& text, qreal pixelRatio)
{
    const QFont font = text.font();
    const QString shown = text.shown();
    const TextLayout layout = layOut(font, shown, text.wrapWidth);
    QImage image = ImageHelpers::transparentCanvas(layout.size, pixelRatio);
    if (image.isNull())
        return image;
    QPainter painter(&image);
    painter.setRenderHint(QPainter::TextAntialiasing);
    painter.setFont(font);
    painter.setPen(text.color);
    painter.drawText(layout.drawingRect(), layout.flags, shown);
    return image;
}

std::optional<QImage> flattened(const QImage& base, QSizeF frame, const QList<Placement>& placements)
{
    // At the base image's own resolution: a 12-megapixel photo keeps all its pixels.
    QImage canvas = ImageHelpers::premultipliedCopy(base);
    if (canvas.isNull())
        return std::nullopt;
    if (frame.isEmpty())
        return canvas;
    const QSizeF size = base.deviceIndependentSize();
    const QSizeF factor(size.width() / frame.width(), size.height() / frame.height());
    // Drawn by our own sampler rather than Qt's painter, whose turned and scaled images differ in the last
    // bits between x86-64 and ARM.
    for (const Placement& placement : placements) {
        const QRectF rect(
            scaled(placement.rect.topLeft(), factor),
            QSizeF(placement.rect.width() * factor.width(), placement.rect.height() * factor.height()));
        const QImage picture = inColourSpace(placement.picture, base.colorSpace())
                                   .convertToFormat(QImage::Format_ARGB32_Premultiplied);
        if (picture.isNull() || rect.isEmpty())
            continue;
        ImageHelpers::drawOver(
            canvas, picture,
            ImageHelpers::placedPicture(picture.size(), rect, qDegreesToRadians(placement.degrees),
                                        placement.magnification, canvas.devicePixelRatio()));
    }
    return canvas;
}

} // namespace Overlay
