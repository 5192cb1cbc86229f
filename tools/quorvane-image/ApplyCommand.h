#pragma once

#include "EditCommand.h"

#include <QString>
#include <QStringList>
#include <QTextStream>
#include <variant>

/// `quorvane-image apply RECIPE IMAGE... --output-dir DIR [--any-photo]`
struct ApplyOptions
{
    QString recipe;
    QStringList inputs;
    QString outputDir;
    /// Applies the recipe to photos other than the one it was made for, its geometry scaled to each.
    bool anyPhoto = false;
};

/// \a arguments without the program name, "apply" first.
std::variant<ApplyOptions, UsageError, InfoRequest> parseApplyCommand(const QStringList& arguments);

/// Replays the recipe over every input, several at once, each into DIR under its own name with the
/// recipe's format's extension. Prints each written file's path on \a out, and on \a err one sentence for
/// each photo that failed and a summary; with \a showProgress (a terminal), a line of
/// progress on \a err that redraws itself.
/// A recipe that cannot be read writes nothing. Returns 0 when every photo was written, else the largest
/// exit code among the failures: kExitBadRecipe for a recipe that cannot be read or applied to a photo,
/// kExitUsage for outputs that would collide, the QuorvaneSdkImageError code of a load or write failure.
int runApplyCommand(const ApplyOptions& options, QTextStream& out, QTextStream& err,
                    bool showProgress = false);
