#include "ToolCommon.h"

#include <QFileInfo>

std::optional<QuorvaneSdkImageOutputFormat::Kind> formatNamedBy(const QString& path)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    if (suffix == u"png")
        return QuorvaneSdkImageOutputFormat::Kind::png;
    if (suffix == u"jpg" || suffix == u"jpeg")
        return QuorvaneSdkImageOutputFormat::Kind::jpg;
    return std::nullopt;
}

QString destinationProblem(const QString& path)
{
    const QFileInfo destination(path);
    const QFileInfo folder(destination.absolutePath());
    if (!folder.exists())
        return QStringLiteral("no such folder \"%1\"").arg(folder.absoluteFilePath());
    if (!folder.isDir())
        return QStringLiteral("\"%1\" is not a folder").arg(folder.absoluteFilePath());
    if (destination.isDir())
        return QStringLiteral("it is a folder");
    if (destination.exists() && !destination.isFile())
        return QStringLiteral("it is not a regular file, and the write would replace it");
    if (!folder.isWritable())
        return QStringLiteral("permission denied to add a file to \"%1\"").arg(folder.absoluteFilePath());
    if (destination.exists() && !destination.isWritable())
        return QStringLiteral("permission denied: the file is read-only");
    return {};
}

QString writeFailure(const QUrl& url, const QString& reason)
{
    return QStringLiteral("Cannot write the output file \"%1\"%2.")
        .arg(url.toLocalFile(), reason.isEmpty() ? QString() : QStringLiteral(": ") + reason);
}
