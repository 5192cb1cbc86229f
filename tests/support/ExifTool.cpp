#include "ExifTool.h"

#include <QDebug>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

namespace ExifTool {

QByteArray run(const QStringList& arguments)
{
    QProcess process;
    process.start(qEnvironmentVariable("QUORVANE_EXIFTOOL", QStringLiteral("exiftool")), arguments);
    if (!process.waitForFinished(60'000) || process.exitCode() != 0)
        qWarning() << "exiftool" << arguments << process.readAllStandardError();
    return process.readAllStandardOutput();
}

QVariantMap tagsOf(const QString& path)
{
    const QJsonArray files =
        QJsonDocument::fromJson(
            run({QStringLiteral("-j"), QStringLiteral("-a"), QStringLiteral("-G1"), QStringLiteral("-n"),
                 QStringLiteral("-all"), QStringLiteral("-validate"), path}))
            .array();
    return files.isEmpty() ? QVariantMap() : files.first().toObject().toVariantMap();
}

QStringList keysContaining(const QVariantMap& tags, QStringView part)
{
    QStringList found;
    for (auto it = tags.keyBegin(); it != tags.keyEnd(); ++it) {
        if (it->contains(part))
            found << *it;
    }
    return found;
}

} // namespace ExifTool
