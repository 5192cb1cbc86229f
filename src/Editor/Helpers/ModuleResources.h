#pragma once

#include <QString>
#include <QUrl>

/// Where the QML module's files lie in the resources: under an import path Qt 6.4 searches by default, so
/// that no host has to add one. Must match RESOURCE_PREFIX in src/CMakeLists.txt.
namespace ModuleResources {

/// The resource path of \a file, relative to the module's folder ("Editor/Common/Icons/back.svg").
inline QString path(const QString& file)
{
    return QStringLiteral(":/qt-project.org/imports/Quorvane/SdkImage/") + file;
}

/// The same as a URL, for QML engines.
inline QUrl url(const QString& file)
{
    return QUrl(QStringLiteral("qrc") + path(file));
}

} // namespace ModuleResources
