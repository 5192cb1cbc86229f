#pragma once

#include <QByteArray>
#include <QStringList>
#include <QVariantMap>

/// exiftool, an independent reader and writer of photo metadata, on real files.
namespace ExifTool {

/// exiftool's standard output for \a arguments.
QByteArray run(const QStringList& arguments);

/// Every tag of the file at \a path as "Group:Name" → value, numbers as numbers, with exiftool's verdict on
/// its structure as "ExifTool:Validate" ("0 0 0": no errors, warnings or minor warnings).
QVariantMap tagsOf(const QString& path);

/// The keys of \a tags that contain \a part.
QStringList keysContaining(const QVariantMap& tags, QStringView part);

} // namespace ExifTool
