#include "Replay.h"

#include "Editor/Canvas/Overlay.h"
#include "Editor/Cropper/ImageCropperImp.h"
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

Crop cropStep(const QuorvaneSdkImageCropInput& input)
{
    const QSizeF size = input.image.deviceIndependentSize();
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
    std::optional<QImage> flattened = Overlay::flattened(image, std::get<Overlays>(step));
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
