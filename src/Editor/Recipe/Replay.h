#pragma once

#include "EditRecipe.h"
#include "Editor/Canvas/Scene/Overlay.h"
#include "Editor/Cropper/Engine/QuorvaneSdkImageCropInput.h"

#include <QByteArray>
#include <QImage>
#include <QString>
#include <variant>

/// Recipes made from an editing session and applied to photos again.
namespace EditRecipe {

/// An overlay item as a recipe keeps it: \a box in frame points, normalised to \a frame.
Item recipeItem(const Overlay::Shape& shape, QRectF box, qreal degrees, qreal magnification, QSizeF frame);

/// The picture a recipe's item draws, placed in its frame.
Overlay::Placement placement(const Item& item, QSizeF frame, qreal pixelRatio);

/// Overlay::flattened() with the pictures the step's items draw.
std::optional<QImage> flattened(const QImage& base, const Overlays& overlays);

/// Why a recipe made for \a made cannot be applied to the photo \a photo; empty when it can. A recipe made
/// from pixels rather than a file names no bytes, and then the size alone must agree.
QString mismatch(const Fingerprint& made, const Fingerprint& photo);

/// The step a crop request of the cropper makes.
Crop cropStep(const QuorvaneSdkImageCropInput& input);

/// The step the request \a input makes of a picture of \a size points, whatever image it holds.
Crop cropStep(QSizeF size, const QuorvaneSdkImageCropInput& input);

/// The crop request \a crop makes of \a image: the same request cropStep() was made from, for the same image.
QuorvaneSdkImageCropInput cropInput(const QImage& image, const Crop& crop);

/// \a image with \a step applied as the editor's page did it; a sentence saying why not otherwise.
std::variant<QImage, QString> applied(const QImage& image, const Step& step);

/// \a image with every step applied in turn.
std::variant<QImage, QString> replayed(QImage image, const QList<Step>& steps);

} // namespace EditRecipe
