#pragma once

#include "Editor/Filters/Engine/ColorMatrix.h"

#include <QList>
#include <QObject>
#include <QtQml/qqmlregistration.h>

/// The same builders for the screens, as lists of 16 numbers row by row (each a float widened exactly).
class ColorMatrices : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    Q_INVOKABLE static QList<qreal> warmMatrix(float intensity = 0.1f);
    Q_INVOKABLE static QList<qreal> luminosityMatrix(float lum);
    Q_INVOKABLE static QList<qreal> saturate(float sat);
    Q_INVOKABLE static QList<qreal> exposureMatrix(float exposure);
    Q_INVOKABLE static QList<qreal> tintMatrix(float intensity);
    /// Numbers beyond 16 are ignored; a list of fewer throws a JavaScript error and gives an empty list.
    Q_INVOKABLE QList<qreal> concat(const QList<qreal>& matrix1, const QList<qreal>& matrix2);
    Q_INVOKABLE static QList<qreal> testMatrix(float intensity, float luminosity, float exposure,
                                               float saturation, float tint);
};
