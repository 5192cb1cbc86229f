#pragma once

#include <SharedQuorvaneSdkCommon.h>

#include <QList>
#include <memory>

/// Installs itself as the shared log service while it lives and keeps every record it receives.
class LogRecorder
{
public:
    LogRecorder();
    ~LogRecorder();
    LogRecorder(const LogRecorder&) = delete;
    LogRecorder& operator=(const LogRecorder&) = delete;

    QList<SharedQuorvaneSdkLog> records() const;
    /// "Tag: message" of each record, for compact comparisons.
    QStringList lines() const;
    void clear();

private:
    class Service;
    std::shared_ptr<Service> m_service;
};
