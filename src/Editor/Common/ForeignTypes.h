#pragma once

#include <QImage>
#include <QList>
#include <QObject>
#include <QtQml/qqmlregistration.h>

// Types that cross into QML without a meta-object of their own. Registered so that the QML tools know them:
// qmllint and the compiler check every binding that carries one.

/// QImage, passed from the view models to ImagePreview untouched.
struct ForeignImage
{
    Q_GADGET
    QML_FOREIGN(QImage)
    QML_ANONYMOUS
};

/// A list of QObjects, as a Repeater's model.
struct ForeignObjectList
{
    Q_GADGET
    QML_FOREIGN(QList<QObject*>)
    QML_ANONYMOUS
    QML_SEQUENTIAL_CONTAINER(QObject*)
};
