#include "ColorMatrices.h"

#include <QJSEngine>
#include <algorithm>

namespace {

QList<qreal> toList(const ColorMatrix& m)
{
    QList<qreal> list;
    list.reserve(16);
    for (const float v : m)
        list.append(v);
    return list;
}

ColorMatrix fromList(const QList<qreal>& list)
{
    ColorMatrix m;
    std::transform(list.cbegin(), list.cbegin() + 16, m.begin(), [](qreal v) { return float(v); });
    return m;
}

} // namespace

QList<qreal> ColorMatrices::warmMatrix(float intensity)
{
    return toList(::warmMatrix(intensity));
}

QList<qreal> ColorMatrices::luminosityMatrix(float lum)
{
    return toList(::luminosityMatrix(lum));
}

QList<qreal> ColorMatrices::saturate(float sat)
{
    return toList(::saturate(sat));
}

QList<qreal> ColorMatrices::exposureMatrix(float exposure)
{
    return toList(::exposureMatrix(exposure));
}

QList<qreal> ColorMatrices::tintMatrix(float intensity)
{
    return toList(::tintMatrix(intensity));
}

QList<qreal> ColorMatrices::concat(const QList<qreal>& matrix1, const QList<qreal>& matrix2)
{
    if (matrix1.size() < 16 || matrix2.size() < 16) {
        if (QJSEngine* engine = qjsEngine(this))
            engine->throwError(QJSValue::RangeError, QStringLiteral("concat takes two lists of 16 numbers"));
        return {};
    }
    return toList(::concat(fromList(matrix1), fromList(matrix2)));
}

QList<qreal> ColorMatrices::testMatrix(float intensity, float luminosity, float exposure, float saturation,
                                       float tint)
{
    return toList(::testMatrix(intensity, luminosity, exposure, saturation, tint));
}
