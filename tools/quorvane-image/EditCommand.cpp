#include "EditCommand.h"
#include "ToolCommon.h"

#include "Editor/Helpers/ImageHelpers.h"
#include "Editor/Helpers/ImageLoader.h"
#include "Editor/ImageSaver/ImageSaverImp.h"
#include "Editor/Recipe/Rendering.h"
#include "Editor/Recipe/Replay.h"
#include "Error/QuorvaneSdkImageError.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSaveFile>
#include <cmath>

namespace {

std::optional<QSizeF> parseSize(const QString& text)
{
    static const QRegularExpression pattern(QStringLiteral("^([0-9]{1,6})x([0-9]{1,6})$"));
    const auto match = pattern.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    const int width = match.captured(1).toInt();
    const int height = match.captured(2).toInt();
    if (width <= 0 || height <= 0)
        return std::nullopt;
    return QSizeF(width, height);
}

std::optional<QRect> parseRect(const QString& text)
{
    static const QRegularExpression pattern(
        QStringLiteral("^(-?[0-9]{1,9}),(-?[0-9]{1,9}),(-?[0-9]{1,9}),(-?[0-9]{1,9})$"));
    const auto match = pattern.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    return QRect(match.captured(1).toInt(), match.captured(2).toInt(), match.captured(3).toInt(),
                 match.captured(4).toInt());
}

std::optional<QuorvaneSdkImageOutputFormat> parseFormat(const QString& text)
{
    if (text == u"png")
        return QuorvaneSdkImageOutputFormat::png();
    if (text == u"jpg")
        return QuorvaneSdkImageOutputFormat::jpg(100);
    static const QRegularExpression pattern(QStringLiteral("^jpg:([0-9]{1,3})$"));
    const auto match = pattern.match(text);
    if (!match.hasMatch() || match.captured(1).toInt() > 100)
        return std::nullopt;
    return QuorvaneSdkImageOutputFormat::jpg(match.captured(1).toInt());
}

std::optional<ColorMatrix> parseColor(const QString& text, std::array<double, 5>& given)
{
    const QStringList parts = text.split(u',');
    if (parts.size() != 5)
        return std::nullopt;
    float values[5];
    for (int i = 0; i < 5; ++i) {
        bool ok = false;
        values[i] = parts[i].toFloat(&ok);
        if (!ok || !std::isfinite(values[i]))
            return std::nullopt;
        given[std::size_t(i)] = values[i];
    }
    const ColorMatrix matrix = testMatrix(values[0], values[1], values[2], values[3], values[4]);
    if (!staysFinite(matrix))
        return std::nullopt;
    return matrix;
}

// The edit as the steps a recipe keeps, in the order they are made, for an upright photo of size pixels.
QList<EditRecipe::Step> stepsOf(const EditOptions& options, QSize size)
{
    QList<EditRecipe::Step> steps;
    if (options.crop || options.rotateDegrees != 0.0 || options.flipHorizontal || options.flipVertical) {
        const QRect rect = options.crop.value_or(QRect(QPoint(0, 0), size));
        steps.append(EditRecipe::cropStep(QSizeF(size), {QImage(), rect.x(), rect.y(), rect.width(),
                                                         rect.height(), Angle::degrees(options.rotateDegrees),
                                                         options.flipHorizontal, options.flipVertical}));
    }
    if (options.color) {
        EditRecipe::Color color;
        color.values = options.colorValues;
        std::copy(options.color->cbegin(), options.color->cend(), color.matrix.begin());
        steps.append(color);
    }
    return steps;
}

} // namespace

QString usageText()
{
    return QStringLiteral(
        "usage: quorvane-image edit INPUT [--crop X,Y,W,H] [--rotate DEGREES] [--flip-horizontal]\n"
        "                           [--flip-vertical]\n"
        "                           [--color WARM,LUMINOSITY,EXPOSURE,SATURATION,TINT [--engine cpu|gpu]]\n"
        "                           [--resize WxH] [--format jpg[:QUALITY]|png] [--output PATH]\n"
        "                           [--keep-location | --strip-metadata] [--write-recipe FILE]\n"
        "       quorvane-image apply RECIPE IMAGE... --output-dir DIR [--any-photo]\n"
        "       quorvane-image --help | --version\n");
}

std::variant<EditOptions, UsageError, InfoRequest> parseEditCommand(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Edits one image as the editor would, headless, and prints the written file's path."));
    const QCommandLineOption help = parser.addHelpOption();
    const QCommandLineOption version = parser.addVersionOption();
    parser.addPositionalArgument(QStringLiteral("edit"),
                                 QStringLiteral("Edits INPUT; \"apply\" replays a recipe (apply --help)."));
    parser.addPositionalArgument(QStringLiteral("INPUT"), QStringLiteral("The image to edit."));
    const QCommandLineOption crop(QStringLiteral("crop"),
                                  QStringLiteral("Cuts the rectangle, in whole points of the upright image."),
                                  QStringLiteral("X,Y,W,H"));
    const QCommandLineOption rotate(QStringLiteral("rotate"),
                                    QStringLiteral("Turns the cut-out clockwise by DEGREES."),
                                    QStringLiteral("DEGREES"));
    const QCommandLineOption flipHorizontal(QStringLiteral("flip-horizontal"),
                                            QStringLiteral("Mirrors left and right."));
    const QCommandLineOption flipVertical(QStringLiteral("flip-vertical"),
                                          QStringLiteral("Mirrors top and bottom."));
    const QCommandLineOption color(
        QStringLiteral("color"),
        QStringLiteral("Applies the colour matrix of warmth, luminosity, exposure, saturation and tint."),
        QStringLiteral("W,L,E,S,T"));
    const QCommandLineOption engine(QStringLiteral("engine"),
                                    QStringLiteral("Where --color runs: cpu or gpu (picked when absent)."),
                                    QStringLiteral("cpu|gpu"));
    const QCommandLineOption resize(
        QStringLiteral("resize"),
        QStringLiteral("Resizes the result to WxH points, %1 pixels at most.").arg(ImageHelpers::kMaxPixels),
        QStringLiteral("WxH"));
    const QCommandLineOption format(
        QStringLiteral("format"),
        QStringLiteral("Encoding: jpg, jpg:QUALITY (0 to 100) or png. When absent, an output named .png is "
                       "PNG and any other jpg:100; a format that contradicts a .png, .jpg or .jpeg name is "
                       "refused."),
        QStringLiteral("FORMAT"));
    const QCommandLineOption output(QStringLiteral("output"),
                                    QStringLiteral("Where to write; a new file in Documents when absent. Its "
                                                   "folder must exist and take a new file, and a file "
                                                   "already there is replaced."),
                                    QStringLiteral("PATH"));
    const QCommandLineOption keepLocation(
        QStringLiteral("keep-location"),
        QStringLiteral("Keeps the photo's GPS location, which is left out by default (date, camera, lens and "
                       "exposure are kept)."));
    const QCommandLineOption stripMetadata(
        QStringLiteral("strip-metadata"),
        QStringLiteral("Writes no EXIF at all; the colour profile is still kept."));
    const QCommandLineOption writeRecipe(
        QStringLiteral("write-recipe"),
        QStringLiteral("Also writes the edit as a recipe (JSON) to FILE, which \"apply\" replays."),
        QStringLiteral("FILE"));
    parser.addOptions({crop, rotate, flipHorizontal, flipVertical, color, engine, resize, format, output,
                       keepLocation, stripMetadata, writeRecipe});

    // The program's name is not among the arguments; the parser expects it first.
    if (!parser.parse(QStringList{QStringLiteral("quorvane-image")} + arguments))
        return UsageError{parser.errorText()};
    if (parser.isSet(help))
        return InfoRequest{parser.helpText()};
    if (parser.isSet(version))
        return InfoRequest{QStringLiteral("quorvane-image %1\n").arg(QCoreApplication::applicationVersion())};

    const QStringList positional = parser.positionalArguments();
    if (positional.isEmpty() || positional.first() != u"edit")
        return UsageError{QStringLiteral("The commands are \"edit\" and \"apply\".")};
    if (positional.size() < 2)
        return UsageError{QStringLiteral("INPUT is missing.")};
    if (positional.size() > 2)
        return UsageError{
            QStringLiteral("Only one INPUT is taken; \"%1\" is one too many.").arg(positional[2])};

    EditOptions options;
    options.input = positional[1];
    options.flipHorizontal = parser.isSet(flipHorizontal);
    options.flipVertical = parser.isSet(flipVertical);
    if (parser.isSet(crop)) {
        options.crop = parseRect(parser.value(crop));
        if (!options.crop)
            return UsageError{
                QStringLiteral("--crop takes X,Y,WIDTH,HEIGHT in whole points, e.g. 0,0,800,600.")};
    }
    if (parser.isSet(rotate)) {
        bool ok = false;
        options.rotateDegrees = parser.value(rotate).toDouble(&ok);
        if (!ok || !std::isfinite(options.rotateDegrees))
            return UsageError{QStringLiteral("--rotate takes a number of degrees, e.g. 90 or -12.5.")};
    }
    if (parser.isSet(resize)) {
        options.resize = parseSize(parser.value(resize));
        if (!options.resize)
            return UsageError{QStringLiteral("--resize takes WIDTHxHEIGHT in whole points, e.g. 1200x800.")};
        // The session would quietly keep the picture's own size.
        if (!ImageHelpers::fitsPixelLimit(*options.resize))
            return UsageError{
                QStringLiteral("--resize %1 asks for more than the %2 pixels an image can hold.")
                    .arg(parser.value(resize))
                    .arg(ImageHelpers::kMaxPixels)};
    }
    if (parser.isSet(format)) {
        const auto parsed = parseFormat(parser.value(format));
        if (!parsed)
            return UsageError{QStringLiteral("--format takes jpg, jpg:QUALITY (0 to 100) or png.")};
        options.format = *parsed;
    }
    if (parser.isSet(color)) {
        options.color = parseColor(parser.value(color), options.colorValues);
        if (!options.color)
            return UsageError{QStringLiteral(
                "--color takes five numbers WARM,LUMINOSITY,EXPOSURE,SATURATION,TINT, "
                "e.g. 0.1,0,0,1,0; exposure and saturation so large that the matrix overflows are refused.")};
    }
    if (parser.isSet(engine)) {
        const QString value = parser.value(engine);
        if (value != u"cpu" && value != u"gpu")
            return UsageError{QStringLiteral("--engine takes cpu or gpu.")};
        if (!options.color)
            return UsageError{QStringLiteral("--engine chooses where --color runs; give --color too.")};
        options.engine = value == u"cpu" ? FiltersManager::Engine::Cpu : FiltersManager::Engine::Gpu;
    }
    if (parser.isSet(output)) {
        options.output = parser.value(output);
        if (const auto named = formatNamedBy(*options.output)) {
            if (!parser.isSet(format))
                options.format = *named == QuorvaneSdkImageOutputFormat::Kind::png
                                     ? QuorvaneSdkImageOutputFormat::png()
                                     : QuorvaneSdkImageOutputFormat::jpg(100);
            else if (options.format.kind() != *named)
                return UsageError{
                    QStringLiteral("--format %1 contradicts the output's name \"%2\"; leave --format out or "
                                   "make them agree.")
                        .arg(parser.value(format), *options.output)};
        }
    }
    if (parser.isSet(keepLocation) && parser.isSet(stripMetadata))
        return UsageError{
            QStringLiteral("--keep-location and --strip-metadata contradict each other; give one.")};
    options.metadata = {parser.isSet(keepLocation), parser.isSet(stripMetadata)};
    if (parser.isSet(writeRecipe))
        options.recipe = parser.value(writeRecipe);
    return options;
}

int runEditCommand(const EditOptions& options, QTextStream& out, QTextStream& err)
{
    // Named here rather than by the saver, so that every failure can name it.
    const QUrl outputURL = options.output ? QUrl::fromLocalFile(QFileInfo(*options.output).absoluteFilePath())
                                          : ImageSaverImp::getOutputURL(options.format);
    if (const QString problem = destinationProblem(outputURL.toLocalFile()); !problem.isEmpty()) {
        err << writeFailure(outputURL, problem) << "\n";
        return QuorvaneSdkImageError::unableToSaveCroppedImage;
    }
    if (const QString problem = options.recipe ? destinationProblem(*options.recipe) : QString();
        !problem.isEmpty()) {
        err << "Cannot write the recipe \"" << QFileInfo(*options.recipe).absoluteFilePath()
            << "\": " << problem << ".\n";
        return QuorvaneSdkImageError::unableToSaveCroppedImage;
    }
    std::unique_ptr<FiltersManager> filters;
    if (options.color) {
        filters = options.engine ? std::make_unique<FiltersManager>(*options.engine)
                                 : std::make_unique<FiltersManager>();
        if (options.engine == FiltersManager::Engine::Gpu &&
            filters->engine() != FiltersManager::Engine::Gpu) {
            err << "No GPU can run the colour matrix here; leave --engine out or use --engine cpu.\n";
            return kExitUsage;
        }
    }
    // As stored: the turn upright is made in the same pass as the cut.
    ImageLoadResult loaded = loadImageFile(QFileInfo(options.input).absoluteFilePath(), kMaxInputPixels,
                                           PixelOrder::AsStored, Fingerprint::WhenAsked);
    if (!loaded.image) {
        err << "Cannot load the input image: " << loaded.failure << "\n";
        return QuorvaneSdkImageError::invalidFile;
    }
    // Handed on whole: a free turn lets the photo go once it has read it.
    EditRecipe::StoredPhoto photo{std::move(*loaded.image), loaded.orientation};
    loaded.image.reset();
    const QSize upright = EditRecipe::uprightSize(photo);
    const QList<EditRecipe::Step> steps = stepsOf(options, upright);
    // The recipe's own steps make the edit, so that replaying the recipe makes the same picture. A GPU
    // colours the picture whole; the CPU's engine colours it a band at a time.
    const bool onGpu = filters && filters->engine() == FiltersManager::Engine::Gpu;
    const QList<EditRecipe::Step> banded = onGpu ? steps.first(steps.size() - 1) : steps;
    auto made = EditRecipe::rendered(std::move(photo), banded, onGpu ? std::nullopt : options.resize);
    if (const auto* error = std::get_if<QuorvaneSdkImageError>(&made)) {
        if (error->code() == QuorvaneSdkImageError::invalidCropRange)
            err << "The crop rectangle does not lie inside the " << upright.width() << "×" << upright.height()
                << " point image.\n";
        else if (error->code() == QuorvaneSdkImageError::unableToCropImage)
            err << "The crop rectangle holds no pixels.\n";
        else
            err << error->reason() << "\n";
        return error->code();
    }
    std::unique_ptr<ImageBands> bands = std::get<std::unique_ptr<ImageBands>>(std::move(made));
    if (onGpu) {
        std::optional<QImage> image = filters->applyColorMatrix(EditRecipe::whole(*bands), *options.color);
        if (!image) {
            err << "The colour matrix could not be applied to the image.\n";
            return kExitColorFailed;
        }
        if (options.resize) {
            if (auto resized = ImageHelpers::resized(*image, *options.resize))
                image = std::move(*resized);
        }
        bands = std::make_unique<WholeImageBands>(*image);
    }
    try {
        ImageSaverImp().save(*bands, options.format, outputURL, loaded.metadata, options.metadata);
    } catch (const QuorvaneSdkImageError& error) {
        if (error.code() == QuorvaneSdkImageError::unableToCompressImage)
            err << "Cannot encode the image in the requested format.\n";
        else
            err << writeFailure(outputURL, error.reason()) << "\n";
        return error.code();
    }
    if (options.recipe) {
        EditRecipe::Output output{options.format.kind() == QuorvaneSdkImageOutputFormat::Kind::png
                                      ? QStringLiteral("png")
                                      : QStringLiteral("jpg"),
                                  options.format.compressionQuality(), options.resize};
        QSaveFile file(*options.recipe);
        if (!file.open(QIODevice::WriteOnly) ||
            file.write(EditRecipe::toJson({{upright, loaded.sha256.get()}, steps, output})) < 0 ||
            !file.commit()) {
            err << "Cannot write the recipe \"" << QFileInfo(*options.recipe).absoluteFilePath()
                << "\": " << file.errorString() << ".\n";
            return QuorvaneSdkImageError::unableToSaveCroppedImage;
        }
    }
    out << outputURL.toLocalFile() << "\n";
    return 0;
}
