#include "SharedQuorvaneSdkLog.h"

#include <QLoggingCategory>

Q_LOGGING_CATEGORY(quorvaneSdkLog, "quorvane.sdk", QtInfoMsg)

QString toString(SharedQuorvaneSdkLogSeverity severity)
{
    switch (severity) {
    case SharedQuorvaneSdkLogSeverity::debug:
        return QStringLiteral("debug");
    case SharedQuorvaneSdkLogSeverity::info:
        return QStringLiteral("info");
    case SharedQuorvaneSdkLogSeverity::warning:
        return QStringLiteral("warning");
    case SharedQuorvaneSdkLogSeverity::error:
        return QStringLiteral("error");
    }
    return QStringLiteral("unknown");
}

QString toString(SharedQuorvaneSdkLogModule module)
{
    switch (module) {
    case SharedQuorvaneSdkLogModule::common:
        return QStringLiteral("common");
    case SharedQuorvaneSdkLogModule::image:
        return QStringLiteral("image");
    }
    return QStringLiteral("unknown");
}

QString SharedQuorvaneSdkLog::toLine() const
{
    return QStringLiteral("%1 %2 %3 %4: %5")
        .arg(toString(module), moduleVersion, toString(severity), tag, message);
}

void SharedQuorvaneSdkDefaultLogService::addLog(const SharedQuorvaneSdkLog& record)
{
    const QByteArray line = record.toLine().toUtf8();
    switch (record.severity) {
    case SharedQuorvaneSdkLogSeverity::debug:
        qCDebug(quorvaneSdkLog, "%s", line.constData());
        break;
    case SharedQuorvaneSdkLogSeverity::info:
        qCInfo(quorvaneSdkLog, "%s", line.constData());
        break;
    case SharedQuorvaneSdkLogSeverity::warning:
        qCWarning(quorvaneSdkLog, "%s", line.constData());
        break;
    case SharedQuorvaneSdkLogSeverity::error:
        qCCritical(quorvaneSdkLog, "%s", line.constData());
        break;
    }
}
