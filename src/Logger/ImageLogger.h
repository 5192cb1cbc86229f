#pragma once

#include <SharedQuorvaneSdkCommon.h>

#include <QString>

/// The component's one logging entry: stamps each event with the image module and its version and hands it
/// to the shared library's log service.
class ImageLogger
{
public:
    /// Where the shared library keeps its "version" properties resource.
    static constexpr char kVersionResourcePath[] = ":/com.quorvane.sdk.shared/version.properties";
    static constexpr char kDefaultModuleVersion[] = "0.0.01";

    /// Created on first use, thread-safely, and never released.
    static ImageLogger& shared();

    explicit ImageLogger(const QString& versionResourcePath = QString::fromLatin1(kVersionResourcePath));
    virtual ~ImageLogger() = default;
    ImageLogger(const ImageLogger&) = delete;
    ImageLogger& operator=(const ImageLogger&) = delete;

    virtual void log(const QString& tag, const QString& message,
                     SharedQuorvaneSdkLogSeverity severity = SharedQuorvaneSdkLogSeverity::info);

    QString moduleVersion() const { return m_moduleVersion; }

    /// The value of the last line that reads exactly "version=VALUE", or \a fallback.
    static QString parseModuleVersion(const QString& properties, const QString& fallback);

private:
    static QString getModuleVersion(const QString& resourcePath);

    SharedQuorvaneSdkCommon& m_sdk;
    QString m_moduleVersion;
};
