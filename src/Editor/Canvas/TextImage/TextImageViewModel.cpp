#include "TextImageViewModel.h"

#include "Editor/Canvas/Scene/Overlay.h"
#include "Editor/Helpers/Finite.h"
#include "Editor/Helpers/ImageHelpers.h"
#include "Editor/Helpers/Notify.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPainter>
#include <cmath>

namespace {

QSizeF fittedSize(const QFont& font, const QString& text)
{
    return Overlay::layOut(font, text, 0).size;
}

} // namespace

TextImageViewModel::TextImageViewModel(QObject* parent)
    : QObject(parent)
{
    for (const auto changed :
         {&TextImageViewModel::textChanged, &TextImageViewModel::isUppercaseChanged,
          &TextImageViewModel::isBoldChanged, &TextImageViewModel::isItalicChanged,
          &TextImageViewModel::textSizeChanged, &TextImageViewModel::selectedColorChanged,
          &TextImageViewModel::maximumWidthChanged, &TextImageViewModel::maximumHeightChanged})
        connect(this, changed, this, &TextImageViewModel::imageChanged);
}

void TextImageViewModel::setText(const QString& text)
{
    assignAndNotify(this, m_text, text, &TextImageViewModel::textChanged);
}

void TextImageViewModel::setUppercase(bool uppercase)
{
    assignAndNotify(this, m_isUppercase, uppercase, &TextImageViewModel::isUppercaseChanged);
}

void TextImageViewModel::setBold(bool bold)
{
    assignAndNotify(this, m_isBold, bold, &TextImageViewModel::isBoldChanged);
}

void TextImageViewModel::setItalic(bool italic)
{
    assignAndNotify(this, m_isItalic, italic, &TextImageViewModel::isItalicChanged);
}

void TextImageViewModel::setTextSize(qreal size)
{
    // Infinities are ignored rather than clamped: they are no size a slider gives.
    if (!isFinite(size))
        return;
    assignAndNotify(this, m_textSize, std::clamp(size, minimumTextSize(), maximumTextSize()),
                    &TextImageViewModel::textSizeChanged);
}

void TextImageViewModel::setMaximumWidth(qreal width)
{
    assignAndNotify(this, m_maximumWidth, isFinite(width) ? std::max<qreal>(0, width) : 0.0,
                    &TextImageViewModel::maximumWidthChanged);
}

void TextImageViewModel::setMaximumHeight(qreal height)
{
    assignAndNotify(this, m_maximumHeight, isFinite(height) ? std::max<qreal>(0, height) : 0.0,
                    &TextImageViewModel::maximumHeightChanged);
}

void TextImageViewModel::setSelectedColor(const QColor& color)
{
    assignAndNotify(this, m_selectedColor, color, &TextImageViewModel::selectedColorChanged);
}

QFont TextImageViewModel::font(bool withTraits) const
{
    QFont font = QGuiApplication::font();
    font.setPixelSize(std::max(1, int(std::lround(m_textSize))));
    if (withTraits) {
        font.setBold(m_isBold);
        font.setItalic(m_isItalic);
    }
    return font;
}

QString TextImageViewModel::displayedText() const
{
    return m_isUppercase ? m_text.toUpper() : m_text;
}

Overlay::TextShape TextImageViewModel::textShape() const
{
    // Measured with the traits applied, so bold and italic text is never clipped.
    Overlay::TextShape shape{m_text,
                             QString(),
                             std::max(1, int(std::lround(m_textSize))),
                             m_isBold,
                             m_isItalic,
                             m_isUppercase,
                             m_selectedColor,
                             m_maximumWidth > 0 ? std::max(1, int(std::floor(m_maximumWidth))) : 0};
    shape.family = shape.font().family();
    const QString shown = shape.shown();
    // Too tall for the canvas once wrapped: smaller until every line fits.
    while (m_maximumHeight > 0 && shape.pixelSize > int(minimumTextSize()) &&
           Overlay::layOut(shape.font(), shown, shape.wrapWidth).size.height() > m_maximumHeight)
        --shape.pixelSize;
    return shape;
}

QImage TextImageViewModel::textToImage() const
{
    return Overlay::textPicture(textShape(), ImageHelpers::screenScale());
}

QSizeF TextImageViewModel::getTextImageSize() const
{
    return fittedSize(font(false), m_text);
}

QImage TextImageViewModel::convertTextToImage(QSizeF initialSize, const QColor& backgroundColor) const
{
    QImage image = ImageHelpers::transparentCanvas(initialSize);
    if (image.isNull())
        return image;
    image.fill(backgroundColor);
    const QFont styled = font(true);
    const QString shown = displayedText();
    const QSizeF text = fittedSize(styled, shown);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::TextAntialiasing);
    painter.setFont(styled);
    painter.setPen(m_selectedColor);
    const QPointF origin((initialSize.width() - text.width()) / 2,
                         (initialSize.height() - text.height()) / 2);
    painter.drawText(QRectF(origin, text), Qt::AlignHCenter | Qt::AlignVCenter | Qt::TextWordWrap, shown);
    return image;
}
