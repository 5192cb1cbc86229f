#pragma once

#include "SharedQuorvaneSdkExport.h"
#include "SharedQuorvaneSdkLog.h"

#include <memory>
#include <mutex>

/// The log service front that every module calls; forwards to the installed service.
class QUORVANE_SHARED_EXPORT SharedQuorvaneSdkLogger
{
public:
    void addLog(const SharedQuorvaneSdkLog& record) const;

    /// Replaces the service; nullptr restores the default one. Records already sent are not replayed.
    void install(std::shared_ptr<SharedQuorvaneSdkLogService> service);

private:
    std::shared_ptr<SharedQuorvaneSdkLogService> current() const;

    mutable std::mutex m_mutex;
    std::shared_ptr<SharedQuorvaneSdkLogService> m_service =
        std::make_shared<SharedQuorvaneSdkDefaultLogService>();
};

/// The shared library's common object.
class QUORVANE_SHARED_EXPORT SharedQuorvaneSdkCommon
{
public:
    SharedQuorvaneSdkLogger& log() { return m_log; }

private:
    SharedQuorvaneSdkLogger m_log;
};

struct QUORVANE_SHARED_EXPORT SharedQuorvaneSdkCommonKt
{
    /// The process-wide common object, created on first use and never released.
    static SharedQuorvaneSdkCommon& sdk_common();
};
