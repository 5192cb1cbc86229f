#pragma once

#include "EditRecipe.h"
#include "Editor/ImageSaver/ImageBands.h"
#include "Error/QuorvaneSdkImageError.h"

#include <QImage>
#include <memory>
#include <optional>
#include <variant>

/// Recipes rendered straight into the saver, for the tool.
namespace EditRecipe {

/// A decoded photo in the pixel order its file stores, and the EXIF orientation (1 to 8) that turns it
/// upright.
struct StoredPhoto
{
    QImage pixels;
    int orientation = 1;
};

/// The upright photo's size in pixels.
QSize uprightSize(const StoredPhoto& photo);

/// What \a steps, then a resize to \a resize points, make of \a photo upright: the same picture replayed()
/// and the editor's resize make, as bands for the saver. Turning upright, cuts, quarter turns, flips and
/// colour are made a band at a time as the encoder asks, with no photo-sized picture besides the photo; a
/// free turn, overlays and a resize are made whole, and then the photo is let go as soon as it is read. An
/// error (invalidCropRange, unableToCropImage, unableToCompressImage) whose reason says why not otherwise.
std::variant<std::unique_ptr<ImageBands>, QuorvaneSdkImageError>
rendered(StoredPhoto photo, const QList<Step>& steps, std::optional<QSizeF> resize = std::nullopt);

/// All of \a bands in one image; null when it cannot be made.
QImage whole(ImageBands& bands);

} // namespace EditRecipe
