#pragma once

#include "Editor/Filters/Engine/FiltersManager.h"
#include "Editor/QuorvaneSdkImageMetadataPolicy.h"
#include "Editor/QuorvaneSdkImageOutputFormat.h"

#include <QRect>
#include <QSizeF>
#include <QString>
#include <QStringList>
#include <QTextStream>
#include <array>
#include <optional>
#include <variant>

/// `quorvane-image edit INPUT [--crop X,Y,W,H] [--rotate DEGREES] [--flip-horizontal] [--flip-vertical]
///                       [--color WARM,LUMINOSITY,EXPOSURE,SATURATION,TINT [--engine cpu|gpu]]
///                       [--resize WxH] [--format jpg[:QUALITY]|png] [--output PATH]
///                       [--keep-location | --strip-metadata] [--write-recipe FILE]`
struct EditOptions
{
    QString input;
    /// Points of the loaded, upright image.
    std::optional<QRect> crop;
    double rotateDegrees = 0.0;
    bool flipHorizontal = false;
    bool flipVertical = false;
    /// testMatrix of these five values, in its parameter order, applied after the geometry.
    std::optional<ColorMatrix> color;
    std::array<double, 5> colorValues{};
    /// Where the colour matrix runs; picked as FiltersManager picks it when absent.
    std::optional<FiltersManager::Engine> engine;
    std::optional<QSizeF> resize;
    QuorvaneSdkImageOutputFormat format = QuorvaneSdkImageOutputFormat::jpg(100);
    std::optional<QString> output;
    QuorvaneSdkImageMetadataPolicy metadata;
    /// Where to write the edit as a recipe, which `apply` replays.
    std::optional<QString> recipe;
};

struct UsageError
{
    QString sentence;
};

/// --help or --version: the text to print before leaving successfully.
struct InfoRequest
{
    QString text;
};

constexpr int kExitUsage = 64;
/// A recipe that cannot be read or applied (EX_DATAERR).
constexpr int kExitBadRecipe = 65;
/// The colour engine failed on the image (no memory, or the GPU refused the work).
constexpr int kExitColorFailed = 70;

/// \a arguments without the program name.
std::variant<EditOptions, UsageError, InfoRequest> parseEditCommand(const QStringList& arguments);

/// Runs the edit; prints the written file's path on \a out, one sentence on \a err on failure. Returns the
/// process exit code: 0, the QuorvaneSdkImageError code of the failure, kExitUsage when --engine gpu finds
/// no GPU, or kExitColorFailed.
int runEditCommand(const EditOptions& options, QTextStream& out, QTextStream& err);

QString usageText();
