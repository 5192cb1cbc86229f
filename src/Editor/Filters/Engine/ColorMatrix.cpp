#include "ColorMatrix.h"

#include <QtGlobal>
#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr ColorMatrix identity{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};

ColorMatrix diagonal(float r, float g, float b)
{
    ColorMatrix m = identity;
    m[0] = r;
    m[5] = g;
    m[10] = b;
    return m;
}

} // namespace

ColorMatrix warmMatrix(float intensity)
{
    return diagonal(1.0f + intensity, 1.0f, 1.0f - intensity);
}

ColorMatrix luminosityMatrix(float lum)
{
    ColorMatrix m = identity;
    m[12] = lum;
    m[13] = lum;
    m[14] = lum;
    return m;
}

ColorMatrix saturate(float sat)
{
    const float t = 1.0f - sat;
    const float a = 0.2126f * t;
    const float b = 0.7152f * t;
    const float c = 0.0722f * t;
    return {a + sat, b, c, 0, a, b + sat, c, 0, a, b, c + sat, 0, 0, 0, 0, 1};
}

ColorMatrix exposureMatrix(float exposure)
{
    const float p = std::pow(2.0f, exposure);
    return diagonal(p, p, p);
}

ColorMatrix tintMatrix(float intensity)
{
    const float v = intensity / 10.0f;
    const float c = std::max(-0.1f, std::min(0.1f, v));
    const float k = c * 1.2f;
    return diagonal(1.0f + k, 1.0f - k, 1.0f);
}

ColorMatrix concat(const ColorMatrix& a, const ColorMatrix& b)
{
    ColorMatrix c{};
    for (int i = 0; i < 4; ++i) {
        for (int j = 0; j < 4; ++j) {
            float sum = a[4 * i] * b[j];
            sum = sum + a[4 * i + 1] * b[j + 4];
            sum = sum + a[4 * i + 2] * b[j + 8];
            sum = sum + a[4 * i + 3] * b[j + 12];
            c[4 * i + j] = sum;
        }
    }
    return c;
}

ColorMatrix testMatrix(float intensity, float luminosity, float exposure, float saturation, float tint)
{
    const ColorMatrix w = warmMatrix(intensity);
    const ColorMatrix s = saturate(saturation);
    const ColorMatrix l = luminosityMatrix(luminosity);
    const ColorMatrix e = exposureMatrix(exposure);
    const ColorMatrix t = tintMatrix(tint);
    return concat(concat(concat(concat(w, s), l), e), t);
}

bool isFinite(const ColorMatrix& matrix)
{
    return std::all_of(matrix.begin(), matrix.end(), [](float v) { return std::isfinite(v); });
}

bool staysFinite(const ColorMatrix& matrix)
{
    if (!isFinite(matrix))
        return false;
    // The largest magnitude any partial sum of a column can reach, in double, where it cannot overflow;
    // a margin of two covers float's rounding on the way.
    for (int j = 0; j < 4; ++j) {
        double bound = 0;
        for (int k = 0; k < 4; ++k)
            bound += 255.0 * std::abs(double(matrix[std::size_t(4 * k + j)]));
        if (!(bound < double(std::numeric_limits<float>::max()) / 2))
            return false;
    }
    return true;
}
