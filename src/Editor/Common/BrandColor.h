#pragma once

#include <QColor>
#include <QObject>
#include <QtQml/qqmlregistration.h>

/// The brand's colours, for C++ models and, as a singleton, for the screens.
class BrandColor : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(QColor ambar READ ambar CONSTANT)
    Q_PROPERTY(QColor gray READ gray CONSTANT)

public:
    using QObject::QObject;

    static QColor ambar() { return QColor(0xFF, 0xB3, 0x00); }
    static QColor gray() { return QColor(0x3A, 0x3A, 0x3C); }
};
