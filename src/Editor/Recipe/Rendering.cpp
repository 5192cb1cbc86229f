#include "Rendering.h"

#include "Editor/Cropper/Engine/ImageCropperImp.h"
#include "Editor/Filters/Engine/CpuColorEngine.h"
#include "Editor/Helpers/Angle.h"
#include "Editor/Helpers/ImageGeometry.h"
#include "Editor/Helpers/ImageHelpers.h"
#include "Editor/Helpers/ImageLoader.h"
#include "Replay.h"

#include <cmath>
#include <cstring>

namespace EditRecipe {
namespace {

using ImageHelpers::PixelWalk;

// Whether an opaque pixel stays opaque whatever its colour: the alpha the engine writes for alpha 255.
bool keepsOpaque(const ColorMatrix& m)
{
    return m[3] == 0.0f && m[7] == 0.0f && m[11] == 0.0f &&
           int(std::min(std::max(0.0f, 255.0f * m[15]), 255.0f) + 0.5f) == 255;
}

ColorMatrix matrixOf(const Color& color)
{
    ColorMatrix matrix{};
    for (std::size_t i = 0; i < matrix.size(); ++i)
        matrix[i] = float(color.matrix[i]);
    return matrix;
}

// The photo walked, and coloured, a band at a time into buffers that serve every band.
class WalkedBands final : public ImageBands
{
public:
    WalkedBands(const QImage& photo, const PixelWalk& walk, std::optional<ColorMatrix> colour)
        : ImageBands({walk.size, formatFor(photo, colour), photo.dotsPerMeterX(), photo.dotsPerMeterY(),
                      colour ? QColorSpace() : photo.colorSpace(),
                      colour ? QList<QRgb>() : photo.colorTable()})
        , m_photo(photo)
        , m_walk(walk)
        , m_colour(colour)
    {}

    QImage band(int top, int rows) override
    {
        if (top < 0 || rows < 1 || top + rows > m_walk.size.height())
            return {};
        QImage cut = view(m_cut, rows, m_photo.format());
        if (cut.isNull())
            return {};
        ImageHelpers::cutWalked(m_photo, m_walk, top, cut);
        if (m_photo.colorCount() > 0)
            cut.setColorTable(m_photo.colorTable());
        if (!m_colour)
            return cut;
        QImage coloured = view(m_coloured, rows, QImage::Format_RGBA8888_Premultiplied);
        if (coloured.isNull() || !applyColorMatrixOnCpu(cut, *m_colour, coloured))
            return {};
        if (shape().format == QImage::Format_RGBX8888)
            return view(m_coloured, rows, QImage::Format_RGBX8888);
        return coloured;
    }

private:
    static QImage::Format formatFor(const QImage& photo, const std::optional<ColorMatrix>& colour)
    {
        if (!colour)
            return photo.format();
        // Said up front, so that a PNG's header needs no look at every pixel first.
        return !photo.hasAlphaChannel() && keepsOpaque(*colour) ? QImage::Format_RGBX8888
                                                                : QImage::Format_RGBA8888_Premultiplied;
    }

    // rows of the walk's width over buffer, grown to the most rows asked for.
    QImage view(QImage& buffer, int rows, QImage::Format format) const
    {
        if (buffer.isNull() || buffer.height() < rows) {
            buffer = QImage(m_walk.size.width(), rows, format);
            if (buffer.isNull())
                return {};
        }
        return QImage(buffer.bits(), buffer.width(), rows, buffer.bytesPerLine(), format);
    }

    QImage m_photo;
    PixelWalk m_walk;
    std::optional<ColorMatrix> m_colour;
    QImage m_cut;
    QImage m_coloured;
};

// The cut a crop step asks of a picture of pixels at scale: a walk over whole pixels when it is one, by the
// cropper's own rules; an error when it lies outside the picture or holds no pixels.
std::variant<std::optional<PixelWalk>, QuorvaneSdkImageError> walkFor(const Crop& crop, QSize pixels,
                                                                      qreal scale)
{
    const QSizeF size = QSizeF(pixels) / scale;
    const auto cut = ImageCropperImp::cutPixels(pixels, scale, std::llround(crop.rect.x() * size.width()),
                                                std::llround(crop.rect.y() * size.height()),
                                                std::llround(crop.rect.width() * size.width()),
                                                std::llround(crop.rect.height() * size.height()));
    if (const auto* code = std::get_if<QuorvaneSdkImageError::Code>(&cut))
        return *code == QuorvaneSdkImageError::invalidCropRange
                   ? QuorvaneSdkImageError(*code, QStringLiteral("The crop lies outside the picture."))
                   : QuorvaneSdkImageError(*code, QStringLiteral("The crop holds no pixels."));
    const ImageCropperImp::Cut& pixelsCut = std::get<ImageCropperImp::Cut>(cut);
    if (crop.degrees != 0.0 || QRectF(pixelsCut.whole) != pixelsCut.exact)
        return std::optional<PixelWalk>();
    const Angle turn = Angle::degrees(crop.quarterTurns * 90);
    const Mirroring seen = seenMirroring(turn, {crop.flipHorizontal, crop.flipVertical});
    return std::optional<PixelWalk>(
        ImageHelpers::pixelWalk(pixelsCut.whole, crop.quarterTurns, seen.leftRight, seen.topBottom));
}

} // namespace

QSize uprightSize(const StoredPhoto& photo)
{
    return uprightWalk(photo.pixels.size(), photo.orientation).size;
}

std::variant<std::unique_ptr<ImageBands>, QuorvaneSdkImageError>
rendered(StoredPhoto photo, const QList<Step>& steps, std::optional<QSizeF> resize)
{
    const QImage& pixels = photo.pixels;
    if (pixels.isNull())
        return QuorvaneSdkImageError(QuorvaneSdkImageError::unableToCompressImage,
                                     QStringLiteral("There is no picture."));
    PixelWalk walk = uprightWalk(pixels.size(), photo.orientation);
    std::optional<ColorMatrix> colour;
    qsizetype next = 0;
    // Steps are folded into the walk while they can be; colour ends the walk, as it changes what a cut
    // after it would read.
    for (; next < steps.size() && ImageHelpers::walksWholePixels(pixels) && !colour; ++next) {
        if (const auto* crop = std::get_if<Crop>(&steps[next])) {
            auto cut = walkFor(*crop, walk.size, pixels.devicePixelRatio());
            if (auto* error = std::get_if<QuorvaneSdkImageError>(&cut))
                return *error;
            const auto& cutWalk = std::get<std::optional<PixelWalk>>(cut);
            if (!cutWalk)
                break;
            walk = ImageHelpers::composed(walk, *cutWalk);
        } else if (const auto* color = std::get_if<Color>(&steps[next])) {
            colour = matrixOf(*color);
            if (!staysFinite(*colour))
                return QuorvaneSdkImageError(QuorvaneSdkImageError::unableToCompressImage,
                                             QStringLiteral("The colour matrix could not be applied."));
        } else {
            break;
        }
    }
    const bool banded = ImageHelpers::walksWholePixels(pixels);
    if (banded && next == steps.size() && !resize)
        return std::make_unique<WalkedBands>(pixels, walk, colour);

    // The rest is made whole, as the editor makes it.
    QImage image;
    const bool untouched = walk.origin == QPoint(0, 0) && walk.du == QPoint(1, 0) &&
                           walk.dv == QPoint(0, 1) && walk.size == pixels.size() && !colour;
    if (untouched) {
        image = std::move(photo.pixels);
    } else if (banded) {
        WalkedBands made(pixels, walk, colour);
        image = whole(made);
        // A colour step's picture is the engine's, which keeps only the density.
        if (!colour)
            ImageHelpers::keepMetadata(image, pixels);
    } else {
        image = turnedUpright(pixels, photo.orientation).value_or(QImage());
    }
    photo.pixels = QImage();
    // Qt draws packed pixels a little differently from the format it decodes photos in: the editor's format,
    // for the editor's pictures.
    if (image.format() == QImage::Format_RGB888)
        image = std::move(image).convertToFormat(QImage::Format_RGB32);
    if (image.isNull())
        return QuorvaneSdkImageError(QuorvaneSdkImageError::unableToCompressImage,
                                     QStringLiteral("There is not enough memory for the picture."));
    auto replayedImage = replayed(image, steps.mid(next));
    if (const auto* refusal = std::get_if<QString>(&replayedImage))
        return QuorvaneSdkImageError(QuorvaneSdkImageError::unableToCropImage, *refusal);
    image = std::move(std::get<QImage>(replayedImage));
    if (resize) {
        if (auto resized = ImageHelpers::resized(image, *resize))
            image = std::move(*resized);
    }
    return std::make_unique<WholeImageBands>(image);
}

QImage whole(ImageBands& bands)
{
    const ImageBands::Shape& shape = bands.shape();
    QImage image = ImageHelpers::newImage(shape.size, shape.format);
    if (image.isNull())
        return {};
    constexpr int kRows = 64;
    for (int top = 0; top < shape.size.height(); top += kRows) {
        const QImage band = bands.band(top, std::min(kRows, shape.size.height() - top));
        if (band.isNull())
            return {};
        const auto bytes = size_t(std::min(band.bytesPerLine(), image.bytesPerLine()));
        for (int y = 0; y < band.height(); ++y)
            std::memcpy(image.scanLine(top + y), band.constScanLine(y), bytes);
    }
    image.setColorTable(shape.colorTable);
    image.setColorSpace(shape.colorSpace);
    image.setDotsPerMeterX(shape.dotsPerMeterX);
    image.setDotsPerMeterY(shape.dotsPerMeterY);
    return image;
}

} // namespace EditRecipe
