#pragma once

#include "SharedQuorvaneSdkExport.h"

#include <QString>

enum class SharedQuorvaneSdkLogSeverity { debug, info, warning, error };

enum class SharedQuorvaneSdkLogModule { common, image };

QUORVANE_SHARED_EXPORT QString toString(SharedQuorvaneSdkLogSeverity severity);
QUORVANE_SHARED_EXPORT QString toString(SharedQuorvaneSdkLogModule module);

/// One log record of a Quorvane SDK module.
struct QUORVANE_SHARED_EXPORT SharedQuorvaneSdkLog
{
    QString tag;
    QString message;
    SharedQuorvaneSdkLogSeverity severity = SharedQuorvaneSdkLogSeverity::info;
    SharedQuorvaneSdkLogModule module = SharedQuorvaneSdkLogModule::common;
    QString moduleVersion;

    /// "image 0.1.0 info ImageSaverImp: compress image failed"
    QString toLine() const;
};

/// Receives every record of every Quorvane SDK module. Implementations must be thread-safe.
class QUORVANE_SHARED_EXPORT SharedQuorvaneSdkLogService
{
public:
    virtual ~SharedQuorvaneSdkLogService() = default;
    virtual void addLog(const SharedQuorvaneSdkLog& record) = 0;
};

/// The default service: one line per record on the Qt logging category "quorvane.sdk" (stderr unless the
/// host installs a Qt message handler).
class QUORVANE_SHARED_EXPORT SharedQuorvaneSdkDefaultLogService final : public SharedQuorvaneSdkLogService
{
public:
    void addLog(const SharedQuorvaneSdkLog& record) override;
};
