#include "LogRecorder.h"

#include <mutex>

class LogRecorder::Service final : public SharedQuorvaneSdkLogService
{
public:
    void addLog(const SharedQuorvaneSdkLog& record) override
    {
        const std::lock_guard lock(mutex);
        records.append(record);
    }

    std::mutex mutex;
    QList<SharedQuorvaneSdkLog> records;
};

LogRecorder::LogRecorder()
    : m_service(std::make_shared<Service>())
{
    SharedQuorvaneSdkCommonKt::sdk_common().log().install(m_service);
}

LogRecorder::~LogRecorder()
{
    SharedQuorvaneSdkCommonKt::sdk_common().log().install(nullptr);
}

QList<SharedQuorvaneSdkLog> LogRecorder::records() const
{
    const std::lock_guard lock(m_service->mutex);
    return m_service->records;
}

QStringList LogRecorder::lines() const
{
    QStringList lines;
    for (const auto& record : records())
        lines.append(record.tag + QStringLiteral(": ") + record.message);
    return lines;
}

void LogRecorder::clear()
{
    const std::lock_guard lock(m_service->mutex);
    m_service->records.clear();
}
