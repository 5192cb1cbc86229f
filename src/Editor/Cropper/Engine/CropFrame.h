#pragma once

#include "Editor/Helpers/Angle.h"

#include <QList>
#include <QPointF>
#include <QRectF>
#include <QSizeF>

/// The crop page's geometry as a value: the picture fitted to the screen (in the image's own axes, both
/// unturned and turned a quarter), the crop rectangle as fractions of the frame shown, the turn and the
/// flips. Lengths are points of the screen. No rule here knows about undo, colours or signals.
struct CropFrame
{
    /// The handle a touch grabs.
    enum class Edge {
        top,
        topLeading,
        topTrailing,
        leading,
        trailing,
        bottomLeading,
        bottomTrailing,
        bottom,
        center,
        none
    };

    /// How far from an edge or corner a touch still takes hold of it.
    static constexpr qreal kHandleRadius = 20.0;
    /// The least distance between opposite edges.
    static constexpr qreal kMinimumEdgesSeparation = 80.0;

    QSizeF portraitSize;
    QSizeF landscapeSize;
    QSizeF frameSize;
    qreal topFactor = 0.0;
    qreal bottomFactor = 1.0;
    qreal leadingFactor = 0.0;
    qreal trailingFactor = 1.0;
    Angle rotation;
    /// In the image's own axes.
    Mirroring flips;

    /// Fits a picture of \a picture points into \a available for both turns; the frame shown follows the
    /// turn. Sizes that are not finite are ignored (false).
    bool fit(QSizeF picture, QSizeF available);

    qreal top() const { return frameSize.height() * topFactor; }
    qreal bottom() const { return frameSize.height() * bottomFactor; }
    qreal leading() const { return frameSize.width() * leadingFactor; }
    qreal trailing() const { return frameSize.width() * trailingFactor; }
    QPointF centre() const { return {(leading() + trailing()) / 2, (top() + bottom()) / 2}; }

    /// Which handle a touch at \a location grabs: the centre first, then top, bottom, leading, trailing.
    Edge edgeAt(QPointF location) const;
    /// Strictly inside the frame fitted for the current turn.
    bool isValidLocation(QPointF location) const;
    /// Where a touch is taken: along a side too short for its edges to move apart, on the side's middle line,
    /// so that a sliver of a picture, thinner than any finger, can still be cut along its length.
    QPointF touchLocation(QPointF location) const;
    /// One change of a drag at \a location: moves what edgeAt() grabs, never closer than the minimum
    /// separation, never past the frame. A location that is not finite, or not valid, changes nothing.
    void drag(QPointF location);

    /// The points a drag from \a from to \a to passes, \a from excluded: never further apart than half a
    /// handle's reach, so that a quick finger keeps hold of what it took.
    static QList<QPointF> pathBetween(QPointF from, QPointF to);

    /// Adds \a angle to the turn; the rectangle keeps its place on the image and the frame fits the new turn.
    void turn(Angle angle);
    /// Toggles the mirroring along the screen's axes named in \a change, whatever the turn.
    void mirrorAsSeen(Mirroring change);
    Mirroring seenFlips() const { return seenMirroring(rotation, flips); }

    /// Everything a drag or an edit changed comes back from \a earlier; the fit stays the current one.
    void restoreEdit(const CropFrame& earlier);

    /// The crop rectangle in the points of a picture of \a picture points.
    QRectF cropRect(QSizeF picture) const;

    friend bool operator==(const CropFrame&, const CropFrame&) = default;

private:
    void dragTop(qreal y);
    void dragBottom(qreal y);
    void dragLeading(qreal x);
    void dragTrailing(qreal x);
    void moveCentre(QPointF location);
};
