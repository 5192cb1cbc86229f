#pragma once

#include "ErrorType.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

/// Backs ErrorView: the message for its error type.
class ErrorViewModel : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(ErrorType::Value errorType READ errorType WRITE setErrorType NOTIFY errorTypeChanged)
    Q_PROPERTY(QString text READ text NOTIFY errorTypeChanged)

public:
    using QObject::QObject;

    ErrorType::Value errorType() const { return m_errorType; }
    void setErrorType(ErrorType::Value errorType)
    {
        if (errorType == m_errorType)
            return;
        m_errorType = errorType;
        emit errorTypeChanged();
    }
    QString text() const { return ErrorType::text(m_errorType); }

signals:
    void errorTypeChanged();

private:
    ErrorType::Value m_errorType = ErrorType::unloadedImage;
};
