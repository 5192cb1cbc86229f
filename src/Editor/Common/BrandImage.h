#pragma once

#include "Editor/Helpers/ModuleResources.h"

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

/// The brand's icons: our own SVG drawings in the module's resources, drawn in white and tinted by BrandIcon.
class BrandImage : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(QString back READ back CONSTANT)
    Q_PROPERTY(QString canvas READ canvas CONSTANT)
    Q_PROPERTY(QString close READ close CONSTANT)
    Q_PROPERTY(QString crop READ crop CONSTANT)
    Q_PROPERTY(QString draw READ draw CONSTANT)
    Q_PROPERTY(QString filters READ filters CONSTANT)
    Q_PROPERTY(QString flip READ flip CONSTANT)
    Q_PROPERTY(QString move READ move CONSTANT)
    Q_PROPERTY(QString resize READ resize CONSTANT)
    Q_PROPERTY(QString rotate READ rotate CONSTANT)
    Q_PROPERTY(QString scaleDown READ scaleDown CONSTANT)
    Q_PROPERTY(QString scaleUp READ scaleUp CONSTANT)
    Q_PROPERTY(QString text READ text CONSTANT)
    Q_PROPERTY(QString undo READ undo CONSTANT)
    // Beyond the brand's set: the draw tool's confirm, delete, align and text size marks.
    Q_PROPERTY(QString checkmark READ checkmark CONSTANT)
    Q_PROPERTY(QString trash READ trash CONSTANT)
    Q_PROPERTY(QString alignCenter READ alignCenter CONSTANT)
    Q_PROPERTY(QString textSize READ textSize CONSTANT)

public:
    using QObject::QObject;

    /// The resource path of the icon \a name.
    static QString path(const char* name)
    {
        return ModuleResources::path(QStringLiteral("Editor/Common/Icons/%1.svg").arg(QLatin1String(name)));
    }

    static QString back() { return path("back"); }
    static QString canvas() { return path("canvas"); }
    static QString close() { return path("close"); }
    static QString crop() { return path("crop"); }
    static QString draw() { return path("draw"); }
    static QString filters() { return path("filters"); }
    static QString flip() { return path("flip"); }
    static QString move() { return path("move"); }
    static QString resize() { return path("resize"); }
    static QString rotate() { return path("rotate"); }
    static QString scaleDown() { return path("scaleDown"); }
    static QString scaleUp() { return path("scaleUp"); }
    static QString text() { return path("text"); }
    static QString undo() { return path("undo"); }
    static QString checkmark() { return path("checkmark"); }
    static QString trash() { return path("trash"); }
    static QString alignCenter() { return path("alignCenter"); }
    static QString textSize() { return path("textSize"); }
};
