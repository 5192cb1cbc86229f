#pragma once

#include <QtMath>
#include <cmath>

/// An angle held in degrees; positive angles turn clockwise on screen (y points down).
class Angle
{
public:
    constexpr Angle() = default;
    static constexpr Angle degrees(double value) { return Angle(value); }
    static Angle radians(double value) { return Angle(qRadiansToDegrees(value)); }

    constexpr double degrees() const { return m_degrees; }
    double radians() const { return m_degrees * M_PI / 180.0; }

    /// True for 0°, ±180°, ±360°...: the remainder of the degrees divided by 180 is exactly zero.
    bool isPortrait() const { return std::fmod(m_degrees, 180.0) == 0.0; }

    friend constexpr Angle operator+(Angle a, Angle b) { return Angle(a.m_degrees + b.m_degrees); }
    friend constexpr bool operator==(Angle a, Angle b) { return a.m_degrees == b.m_degrees; }

private:
    constexpr explicit Angle(double degrees)
        : m_degrees(degrees)
    {}

    double m_degrees = 0.0;
};

/// Which way a picture is mirrored, along the screen's axes or along the image's own.
struct Mirroring
{
    bool leftRight = false;
    bool topBottom = false;

    friend constexpr bool operator==(Mirroring, Mirroring) = default;
};

/// The image's own flips (horizontal, vertical) as they are seen once the image is turned by \a rotation, or
/// the other way round: at a quarter turn the axes trade places on screen, and so do the flips. The mapping
/// is its own inverse.
inline Mirroring seenMirroring(Angle rotation, Mirroring flips)
{
    return rotation.isPortrait() ? flips : Mirroring{flips.topBottom, flips.leftRight};
}
