#pragma once

#include "Editor/QuorvaneSdkImageOutputFormat.h"
#include "Error/QuorvaneSdkImageError.h"

#include <QString>
#include <QTextStream>
#include <QUrl>
#include <optional>

/// The most pixels an input may hold: the editor's own default.
constexpr qint64 kMaxInputPixels = 100'000'000;

/// The format a name's extension promises, when it is one of ours.
std::optional<QuorvaneSdkImageOutputFormat::Kind> formatNamedBy(const QString& path);

/// The saver writes a new file beside the destination and renames it over the destination when complete:
/// the folder must take a new file, and what is there must be a file that may be replaced. Empty when the
/// write can be tried.
QString destinationProblem(const QString& path);

/// "Cannot write the output file ..." with the system's \a reason.
QString writeFailure(const QUrl& url, const QString& reason);
