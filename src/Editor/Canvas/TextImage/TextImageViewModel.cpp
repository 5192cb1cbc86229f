#include "TextImageViewModel.h"

#include "Editor/Helpers/Finite.h"
#include "Editor/Helpers/ImageHelpers.h"
#include "Editor/Helpers/Notify.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPainter>
#include <cmath>

namespace {

constexpr int kTextFlags = Qt::AlignHCenter | Qt::AlignVCenter | Qt::TextWordWrap;
constexpr qreal kUnlimited = 1e6;

// How a text is laid out: measured and drawn with the same width and flags, so that it wraps the same way
// in both.
struct TextLayout
{
    QSizeF size;
    qreal width = kUnlimited;
    int flags = kTextFlags;

    // The text's rectangle on an image of `size`, centred: lines are centred within `width`.
    QRectF drawingRect() const
    {
        return width >= kUnlimited ? QRectF(QPointF(0, 0), size)
                                   : QRectF((size.width() - width) / 2, 0, width, size.height());
    }
};

TextLayout layOut(const QFont& font, const QString& text, qreal maximumWidth)
{
    TextLayout layout;
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

QSizeF fittedSize(const QFont& font, const QString& text)
{
    return layOut(font, text, 0).size;
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

QImage TextImageViewModel::textToImage() const
{
    // Measured with the traits applied, so bold and italic text is never clipped.
    QFont styled = font(true);
    const QString shown = displayedText();
    TextLayout layout = layOut(styled, shown, m_maximumWidth);
    // Too tall for the canvas once wrapped: smaller until every line fits.
    while (m_maximumHeight > 0 && layout.size.height() > m_maximumHeight &&
           styled.pixelSize() > int(minimumTextSize())) {
        styled.setPixelSize(styled.pixelSize() - 1);
        layout = layOut(styled, shown, m_maximumWidth);
    }
    QImage image = ImageHelpers::transparentCanvas(layout.size);
    if (image.isNull())
        return image;
    QPainter painter(&image);
    painter.setRenderHint(QPainter::TextAntialiasing);
    painter.setFont(styled);
    painter.setPen(m_selectedColor);
    painter.drawText(layout.drawingRect(), layout.flags, shown);
    return image;
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
    painter.drawText(QRectF(origin, text), kTextFlags, shown);
    return image;
}
