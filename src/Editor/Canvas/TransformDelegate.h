#pragma once

#include "Editor/Helpers/Angle.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

/// Where an item is placed by the alignment buttons, within the canvas frame.
namespace CanvasAlignment {
Q_NAMESPACE
QML_NAMED_ELEMENT(CanvasAlignment)

// Of int, so that whatever number a host's QML passes is a value of the type; align() refuses the unknown.
enum Alignment : int {
    topLeading,
    top,
    topTrailing,
    leading,
    center,
    trailing,
    bottomLeading,
    bottom,
    bottomTrailing,
    // QML reads only enum keys that start with a capital letter: the same values, for screens.
    TopLeading = topLeading,
    Top = top,
    TopTrailing = topTrailing,
    Leading = leading,
    Center = center,
    Trailing = trailing,
    BottomLeading = bottomLeading,
    Bottom = bottom,
    BottomTrailing = bottomTrailing
};
Q_ENUM_NS(Alignment)
} // namespace CanvasAlignment

using Alignment = CanvasAlignment::Alignment;

/// What the transform toolbar asks of the canvas, always about the selected item.
class TransformDelegate
{
public:
    virtual ~TransformDelegate() = default;

    /// Deselects the item.
    virtual void close() = 0;
    /// Deletes the item (`delete` is a C++ keyword).
    virtual void deleteItem() = 0;
    /// Turns the item by \a angle, or to \a angle when \a overridePrevious.
    virtual void rotate(Angle angle, bool overridePrevious = false) = 0;
    /// × 1.25.
    virtual void increaseScale() = 0;
    /// × 0.75: deliberately not the inverse of increaseScale().
    virtual void decreaseScale() = 0;
    virtual void scale(qreal factor) = 0;
    virtual void align(Alignment alignment) = 0;
};
