#include "Replay.h"

#include "Editor/Canvas/Scene/Overlay.h"
#include "Editor/Cropper/Engine/ImageCropperImp.h"
#include "Editor/Filters/Engine/FiltersManager.h"
#include "Error/QuorvaneSdkImageError.h"

#include <cmath>

namespace EditRecipe {

QString mismatch(const Fingerprint& made, const Fingerprint& photo)
{
    if (made.uprightSize != photo.uprightSize)
        return QStringLiteral("The recipe was made for a %1×%2 photo; this one is %3×%4.")
            .arg(made.uprightSize.width())
            .arg(made.uprightSize.height())
            .arg(photo.uprightSize.width())
            .arg(photo.uprightSize.height());
    if (!made.sha256.isEmpty() && made.sha256 != photo.sha256)
        return QStringLiteral(
            "The recipe was made for another photo of the same size (its SHA-256 differs).");
    return {};
}

namespace {

qreal shortSide(QSizeF size)
{
    return std::min(size.width(), size.height());
}

QPointF scaled(QPointF point, QSizeF by)
{
    return {point.x() * by.width(), point.y() * by.height()};
}

QPointF normalised(QPointF point, QSizeF by)
{
    return {point.x() / by.width(), point.y() / by.height()};
}

} // namespace

Item recipeItem(const Overlay::Shape& shape, QRectF box, qreal degrees, qreal magnification, QSizeF frame)
{
    if (const auto* stroke = std::get_if<Overlay::StrokeShape>(&shape)) {
        Stroke item;
        item.box = QRectF(normalised(box.topLeft(), frame),
                          QSizeF(box.width() / frame.width(), box.height() / frame.height()));
        item.points.reserve(stroke->points.size());
        for (const QPointF& point : stroke->points)
            item.points.append(normalised(box.topLeft() + point, frame));
        item.color = stroke->color;
        item.width = stroke->width / shortSide(frame);
        item.degrees = degrees;
        item.scale = magnification;
        return item;
    }
    const Overlay::TextShape& text = std::get<Overlay::TextShape>(shape);
    Text item;
    item.text = text.text;
    item.font = text.family;
    item.size = text.pixelSize / shortSide(frame);
    item.bold = text.bold;
    item.italic = text.italic;
    item.uppercase = text.uppercase;
    item.color = text.color;
    item.centre = normalised(box.center(), frame);
    item.wrapWidth = text.wrapWidth / frame.width();
    item.degrees = degrees;
    item.scale = magnification;
    return item;
}

Overlay::Placement placement(const Item& item, QSizeF frame, qreal pixelRatio)
{
    if (const auto* stroke = std::get_if<Stroke>(&item)) {
        const QRectF box(scaled(stroke->box.topLeft(), frame),
                         QSizeF(stroke->box.width() * frame.width(), stroke->box.height() * frame.height()));
        Overlay::StrokeShape shape{{}, stroke->color, stroke->width * shortSide(frame)};
        shape.points.reserve(stroke->points.size());
        for (const QPointF& point : stroke->points)
            shape.points.append(scaled(point, frame) - box.topLeft());
        return {Overlay::strokePicture(box.size(), shape, pixelRatio), box, stroke->degrees, stroke->scale};
    }
    const auto& text = std::get<Text>(item);
    // Sizes come back as the whole points they were, whatever rounding the division left.
    const Overlay::TextShape shape{
        text.text,      text.font,  int(std::lround(text.size * shortSide(frame))),  text.bold, text.italic,
        text.uppercase, text.color, int(std::lround(text.wrapWidth * frame.width()))};
    QImage picture = Overlay::textPicture(shape, pixelRatio);
    const QSizeF size = picture.deviceIndependentSize();
    const QPointF centre = scaled(text.centre, frame);
    return {std::move(picture), QRectF(centre - QPointF(size.width(), size.height()) / 2, size), text.degrees,
            text.scale};
}

std::optional<QImage> flattened(const QImage& base, const Overlays& overlays)
{
    QList<Overlay::Placement> placements;
    placements.reserve(overlays.items.size());
    for (const Item& item : overlays.items)
        placements.append(placement(item, overlays.frame, overlays.pixelRatio));
    return Overlay::flattened(base, overlays.frame, placements);
}

Crop cropStep(const QuorvaneSdkImageCropInput& input)
{
    return cropStep(input.image.deviceIndependentSize(), input);
}

Crop cropStep(QSizeF size, const QuorvaneSdkImageCropInput& input)
{
    const double degrees = input.rotation.degrees();
    const double quarters = std::round(degrees / 90);
    Crop crop;
    crop.rect = QRectF(input.startXPoint / size.width(), input.startYPoint / size.height(),
                       input.width / size.width(), input.height / size.height());
    crop.quarterTurns = int(std::fmod(std::fmod(quarters, 4) + 4, 4));
    crop.degrees = degrees - quarters * 90;
    crop.flipHorizontal = input.flipHorizontally;
    crop.flipVertical = input.flipVertically;
    return crop;
}

QuorvaneSdkImageCropInput cropInput(const QImage& image, const Crop& crop)
{
    // Whole points: the rectangle's fractions give back the points they were made from.
    const QSizeF size = image.deviceIndependentSize();
    return {image,
            std::llround(crop.rect.x() * size.width()),
            std::llround(crop.rect.y() * size.height()),
            std::llround(crop.rect.width() * size.width()),
            std::llround(crop.rect.height() * size.height()),
            Angle::degrees(crop.quarterTurns * 90 + crop.degrees),
            crop.flipHorizontal,
            crop.flipVertical};
}

std::variant<QImage, QString> applied(const QImage& image, const Step& step)
{
    if (const auto* crop = std::get_if<Crop>(&step)) {
        try {
            return ImageCropperImp().crop(cropInput(image, *crop));
        } catch (const QuorvaneSdkImageError& error) {
            return error.code() == QuorvaneSdkImageError::invalidCropRange
                       ? QStringLiteral("The crop lies outside the picture.")
                       : QStringLiteral("The crop holds no pixels.");
        }
    }
    if (const auto* color = std::get_if<Color>(&step)) {
        ColorMatrix matrix{};
        for (std::size_t i = 0; i < matrix.size(); ++i)
            matrix[i] = float(color->matrix[i]);
        // The CPU's engine: the same bytes on every machine, GPU or none.
        std::optional<QImage> coloured =
            FiltersManager(FiltersManager::Engine::Cpu).applyColorMatrix(image, matrix);
        if (!coloured)
            return QStringLiteral("The colour matrix could not be applied.");
        return *coloured;
    }
    std::optional<QImage> flattened = EditRecipe::flattened(image, std::get<Overlays>(step));
    if (!flattened)
        return QStringLiteral("There is not enough memory to draw the overlays.");
    return *flattened;
}

std::variant<QImage, QString> replayed(QImage image, const QList<Step>& steps)
{
    for (const Step& step : steps) {
        auto next = applied(image, step);
        if (auto* refusal = std::get_if<QString>(&next))
            return *refusal;
        image = std::move(std::get<QImage>(next));
    }
    return image;
}

} // namespace EditRecipe
