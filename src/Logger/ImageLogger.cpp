#include "ImageLogger.h"

#include <QFile>

ImageLogger& ImageLogger::shared()
{
    static ImageLogger logger;
    return logger;
}

ImageLogger::ImageLogger(const QString& versionResourcePath)
    : m_sdk(SharedQuorvaneSdkCommonKt::sdk_common())
    , m_moduleVersion(getModuleVersion(versionResourcePath))
{}

void ImageLogger::log(const QString& tag, const QString& message, SharedQuorvaneSdkLogSeverity severity)
{
    m_sdk.log().addLog(
        SharedQuorvaneSdkLog{tag, message, severity, SharedQuorvaneSdkLogModule::image, m_moduleVersion});
}

QString ImageLogger::parseModuleVersion(const QString& properties, const QString& fallback)
{
    QString version = fallback;
    for (const QStringView line : QStringView(properties).split(u'\n')) {
        // Blanks are not trimmed: " version=1" and "version = 1" do not name the key.
        const auto parts = line.split(u'=');
        if (parts.size() == 2 && parts[0] == u"version")
            version = parts[1].toString();
    }
    return version;
}

QString ImageLogger::getModuleVersion(const QString& resourcePath)
{
    const QString fallback = QString::fromLatin1(kDefaultModuleVersion);
    QFile file(resourcePath);
    if (!file.open(QIODevice::ReadOnly))
        return fallback;
    return parseModuleVersion(QString::fromUtf8(file.readAll()), fallback);
}
