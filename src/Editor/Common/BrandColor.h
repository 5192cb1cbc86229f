#pragma once

#include <QColor>

/// The brand's colours, shared by C++ models and (through them) the screens.
namespace BrandColor {

inline QColor ambar()
{
    return QColor(0xFF, 0xB3, 0x00);
}

inline QColor gray()
{
    return QColor(0x3A, 0x3A, 0x3C);
}

} // namespace BrandColor
