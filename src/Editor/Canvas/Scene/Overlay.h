#pragma once

#include <QColor>
#include <QFont>
#include <QImage>
#include <QList>
#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <optional>
#include <variant>

/// The canvas's items as values: what a stroke or a text is, the picture drawn from it, and the pictures laid
/// over a photo. The page, the saved photo and a replayed recipe all draw through these.
namespace Overlay {

/// A finished stroke: points in its own box, in canvas points.
struct StrokeShape
{
    QList<QPointF> points;
    QColor color;
    qreal width = 0;

    friend bool operator==(const StrokeShape&, const StrokeShape&) = default;
};

/// A text as the text screen left it: the font size after any shrinking to fit, the width it wraps at in
/// whole points (0 for none).
struct TextShape
{
    QString text;
    QString family;
    int pixelSize = 20;
    bool bold = false;
    bool italic = false;
    bool uppercase = false;
    QColor color = Qt::white;
    int wrapWidth = 0;

    QString shown() const { return uppercase ? text.toUpper() : text; }
    QFont font() const;

    friend bool operator==(const TextShape&, const TextShape&) = default;
};

/// What an item is; none for a picture handed over without saying what it shows.
using Shape = std::variant<std::monostate, StrokeShape, TextShape>;

/// How a text is laid out: measured and drawn with the same width and flags, so that it wraps the same way
/// in both.
struct TextLayout
{
    QSizeF size;
    qreal width = 0;
    int flags = 0;

    /// The text's rectangle on a picture of `size`: lines are centred within `width`.
    QRectF drawingRect() const;
};

/// \a text in \a font, wrapped at words within \a maximumWidth points (anywhere for a longer word); no limit
/// for 0 or less.
TextLayout layOut(const QFont& font, const QString& text, qreal maximumWidth);

/// The stroke through \a points on a transparent picture of \a size points; null without room.
QImage strokePicture(QSizeF size, const StrokeShape& stroke, qreal pixelRatio);

/// The text centred on a transparent picture just large enough for it; null without room.
QImage textPicture(const TextShape& text, qreal pixelRatio);

/// One picture over the photo: its rectangle in frame points, and the turn (degrees) and scale it takes about
/// the rectangle's centre.
struct Placement
{
    QImage picture;
    QRectF rect;
    qreal degrees = 0;
    qreal magnification = 1;
};

/// \a base with each picture mapped from a frame of \a frame points onto it, at the base's own resolution,
/// the first lowest. Pictures chosen in sRGB are converted into the base's colour space. None when the copy
/// cannot be allocated.
std::optional<QImage> flattened(const QImage& base, QSizeF frame, const QList<Placement>& placements);

} // namespace Overlay
