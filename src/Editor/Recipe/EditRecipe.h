#pragma once

#include <QByteArray>
#include <QColor>
#include <QList>
#include <QPointF>
#include <QRectF>
#include <QSize>
#include <QString>
#include <array>
#include <optional>
#include <variant>

/// An edit as data: what was done to one photo, as a snapshot of each accepted step, so that it can be kept,
/// opened again and replayed on the same photo. Geometry is relative to the upright source (its EXIF
/// orientation applied), so that it does not depend on the screen the edit was made on.
namespace EditRecipe {

inline constexpr auto kFormatName = "quorvane-edit-recipe";
inline constexpr int kMajorVersion = 1;
/// Limits that keep reading a hostile recipe bounded in time and memory.
inline constexpr qsizetype kMaxBytes = 8 * 1024 * 1024;
inline constexpr int kMaxSteps = 256;
inline constexpr int kMaxItems = 1024;
inline constexpr qsizetype kMaxPoints = 100'000;
inline constexpr qsizetype kMaxTextLength = 10'000;

/// Which photo the recipe belongs to.
struct Fingerprint
{
    QSize uprightSize;
    /// SHA-256 of the file's bytes, lower-case hexadecimal; empty when the photo came as pixels, not a file.
    QString sha256;

    friend bool operator==(const Fingerprint&, const Fingerprint&) = default;
};

/// The crop page's result: a rectangle in 0–1 of the picture it started from, then quarter turns
/// (clockwise), a free angle in degrees, and mirrors as seen once turned.
struct Crop
{
    QRectF rect{0, 0, 1, 1};
    int quarterTurns = 0;
    double degrees = 0;
    bool flipHorizontal = false;
    bool flipVertical = false;

    friend bool operator==(const Crop&, const Crop&) = default;
};

/// The colour step: the five adjustment values (warmth, luminosity, exposure, saturation, tint) and the
/// 4 × 4 matrix they resolved to, as the colour engine takes it.
struct Color
{
    std::array<double, 5> values{};
    std::array<double, 16> matrix{};

    friend bool operator==(const Color&, const Color&) = default;
};

/// A freehand stroke: its box and points in 0–1 of the picture, its width relative to the frame's short
/// side, and the turn and scale the box takes about its centre.
struct Stroke
{
    QRectF box;
    QList<QPointF> points;
    QColor color;
    double width = 0;
    double degrees = 0;
    double scale = 1;

    friend bool operator==(const Stroke&, const Stroke&) = default;
};

/// A text: its centre in 0–1 of the picture, its size relative to the frame's short side, the width it
/// wraps at relative to the frame's width (0 for none), its turn and scale.
struct Text
{
    QString text;
    QString font;
    double size = 0;
    bool bold = false;
    bool italic = false;
    bool uppercase = false;
    QColor color;
    QPointF centre;
    double wrapWidth = 0;
    double degrees = 0;
    double scale = 1;

    friend bool operator==(const Text&, const Text&) = default;
};

using Item = std::variant<Stroke, Text>;

/// The draw page's result: its items, bottom first. Items are pictures drawn in a frame of `frame` points
/// at `pixelRatio` pixels a point, as the page showed them, and then laid over the photo: the frame keeps
/// the pictures (and so the saved photo) the same wherever the recipe is replayed.
struct Overlays
{
    QSizeF frame;
    double pixelRatio = 1;
    QList<Item> items;

    friend bool operator==(const Overlays&, const Overlays&) = default;
};

using Step = std::variant<Crop, Color, Overlays>;

struct Output
{
    /// "jpg" or "png".
    QString format = QStringLiteral("jpg");
    int quality = 100;
    /// In points, as the preset gave it.
    std::optional<QSizeF> resize;

    friend bool operator==(const Output&, const Output&) = default;
};

/// Steps as a type of their own, which headers can name before they know what a step is.
struct StepList
{
    QList<Step> steps;
};

struct Recipe
{
    Fingerprint source;
    QList<Step> steps;
    Output output;

    friend bool operator==(const Recipe&, const Recipe&) = default;
};

/// The recipe as indented JSON.
QByteArray toJson(const Recipe& recipe);

/// The recipe in \a json, or a sentence saying why it is refused. Nothing beyond the limits above is
/// read or allocated.
std::variant<Recipe, QString> fromJson(const QByteArray& json);

} // namespace EditRecipe
