#pragma once

#include <QtGlobal>
#include <cmath>

/// \a value truncated toward zero to a signed 64-bit integer. A value that is not finite or does not fit is a
/// programming error, as a conversion that traps: the program stops with a message naming \a what.
inline qint64 truncatedToInt64(double value, const char* what)
{
    // 2^63 as a double; anything at or beyond it does not fit a signed 64-bit integer.
    constexpr double kLimit = 9223372036854775808.0;
    if (!std::isfinite(value) || value <= -kLimit || value >= kLimit)
        qFatal("%s %f is not a finite 64-bit integer", what, value);
    return qint64(value);
}
