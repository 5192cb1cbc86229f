#pragma once

#include "Editor/Canvas/Scene/Overlay.h"

#include <QColor>
#include <QFont>
#include <QImage>
#include <QObject>
#include <QSizeF>
#include <QtQml/qqmlregistration.h>

/// The text entry screen's state: what the user typed and its style, and its rendering into a transparent
/// image for the canvas.
class TextImageViewModel : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged)
    Q_PROPERTY(bool isUppercase READ isUppercase WRITE setUppercase NOTIFY isUppercaseChanged)
    Q_PROPERTY(bool isBold READ isBold WRITE setBold NOTIFY isBoldChanged)
    Q_PROPERTY(bool isItalic READ isItalic WRITE setItalic NOTIFY isItalicChanged)
    /// Points, kept between minimumTextSize and maximumTextSize; a value that is not finite is ignored.
    Q_PROPERTY(qreal textSize READ textSize WRITE setTextSize NOTIFY textSizeChanged)
    Q_PROPERTY(QColor selectedColor READ selectedColor WRITE setSelectedColor NOTIFY selectedColorChanged)
    Q_PROPERTY(qreal minimumTextSize READ minimumTextSize CONSTANT)
    Q_PROPERTY(qreal maximumTextSize READ maximumTextSize CONSTANT)
    /// The widest the text may be, in points: it wraps at word boundaries within it, and a word longer than
    /// that anywhere. The canvas's width, so that the placed text is never cut. 0 (or less) for no limit.
    Q_PROPERTY(qreal maximumWidth READ maximumWidth WRITE setMaximumWidth NOTIFY maximumWidthChanged)
    /// The tallest the text may be, in points: text that would wrap taller is drawn smaller until it fits
    /// (down to minimumTextSize). The canvas's height, so that no line is cut. 0 (or less) for no limit.
    Q_PROPERTY(qreal maximumHeight READ maximumHeight WRITE setMaximumHeight NOTIFY maximumHeightChanged)
    /// What textToImage() gives now: the preview shows the very pixels the canvas will get.
    Q_PROPERTY(QImage image READ textToImage NOTIFY imageChanged)

public:
    explicit TextImageViewModel(QObject* parent = nullptr);

    QString text() const { return m_text; }
    void setText(const QString& text);
    bool isUppercase() const { return m_isUppercase; }
    void setUppercase(bool uppercase);
    bool isBold() const { return m_isBold; }
    void setBold(bool bold);
    bool isItalic() const { return m_isItalic; }
    void setItalic(bool italic);
    qreal textSize() const { return m_textSize; }
    void setTextSize(qreal size);
    QColor selectedColor() const { return m_selectedColor; }
    void setSelectedColor(const QColor& color);
    qreal maximumWidth() const { return m_maximumWidth; }
    void setMaximumWidth(qreal width);
    qreal maximumHeight() const { return m_maximumHeight; }
    void setMaximumHeight(qreal height);
    static constexpr qreal minimumTextSize() { return 5.0; }
    static constexpr qreal maximumTextSize() { return 50.0; }

    /// The styled text, centred, on a transparent image just large enough for it, at the screen's scale.
    QImage textToImage() const;
    /// What textToImage() draws: the style, and the size it is drawn at once shrunk to fit.
    Overlay::TextShape textShape() const;
    /// The size the plain text (no traits, no case change) needs, in points.
    QSizeF getTextImageSize() const;
    /// The styled text centred in \a initialSize points over \a backgroundColor.
    QImage convertTextToImage(QSizeF initialSize, const QColor& backgroundColor) const;

    /// The font a given style renders with (for checks of the traits).
    QFont font(bool withTraits) const;
    QString displayedText() const;

signals:
    void textChanged();
    void isUppercaseChanged();
    void isBoldChanged();
    void isItalicChanged();
    void textSizeChanged();
    void selectedColorChanged();
    void maximumWidthChanged();
    void maximumHeightChanged();
    void imageChanged();

private:
    QString m_text;
    bool m_isUppercase = false;
    bool m_isBold = false;
    bool m_isItalic = false;
    qreal m_textSize = 20.0;
    QColor m_selectedColor = Qt::white;
    qreal m_maximumWidth = 0;
    qreal m_maximumHeight = 0;
};
