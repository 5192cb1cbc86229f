#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

/// Why the error screen is shown, and the message it shows.
class ErrorType : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("ErrorType only names error kinds.")

public:
    enum Value { unloadedImage };
    Q_ENUM(Value)

    using QObject::QObject;

    /// The message of \a type; not localised.
    static QString text(Value type);
};
