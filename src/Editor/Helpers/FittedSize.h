#pragma once

#include <QSizeF>
#include <algorithm>

/// The largest size of \a picture's aspect that fits in \a space, touching its width on a tie of aspects. A
/// sliver of a picture (4000 × 1) still gets a point across, or nobody could see or take hold of it.
inline QSizeF fittedSize(QSizeF picture, QSizeF space)
{
    const qreal r = picture.width() / picture.height();
    const qreal container = space.width() / space.height();
    const QSizeF fitted =
        r < container ? QSizeF(space.height() * r, space.height()) : QSizeF(space.width(), space.width() / r);
    return fitted.expandedTo(QSizeF(std::min(1.0, space.width()), std::min(1.0, space.height())));
}
