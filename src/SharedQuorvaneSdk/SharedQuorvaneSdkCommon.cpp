#include "SharedQuorvaneSdkCommon.h"

void SharedQuorvaneSdkLogger::addLog(const SharedQuorvaneSdkLog& record) const
{
    // The service is called outside the lock so that it may log or reinstall itself.
    current()->addLog(record);
}

void SharedQuorvaneSdkLogger::install(std::shared_ptr<SharedQuorvaneSdkLogService> service)
{
    if (!service)
        service = std::make_shared<SharedQuorvaneSdkDefaultLogService>();
    const std::lock_guard lock(m_mutex);
    m_service = std::move(service);
}

std::shared_ptr<SharedQuorvaneSdkLogService> SharedQuorvaneSdkLogger::current() const
{
    const std::lock_guard lock(m_mutex);
    return m_service;
}

SharedQuorvaneSdkCommon& SharedQuorvaneSdkCommonKt::sdk_common()
{
    static SharedQuorvaneSdkCommon common;
    return common;
}
