#include "ApplyCommand.h"

#include "Editor/Helpers/ImageLoader.h"
#include "Editor/ImageSaver/ImageSaverImp.h"
#include "Editor/Recipe/Rendering.h"
#include "Editor/Recipe/Replay.h"
#include "ToolCommon.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QThread>
#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

namespace {

struct Outcome
{
    int code = 0;
    QString sentence;
    QString written;
};

Outcome applyTo(const EditRecipe::Recipe& recipe, const QString& input, const QString& output, bool anyPhoto)
{
    const QuorvaneSdkImageOutputFormat format =
        recipe.output.format == u"png" ? QuorvaneSdkImageOutputFormat::png()
                                       : QuorvaneSdkImageOutputFormat::jpg(recipe.output.quality);
    const QUrl outputURL = QUrl::fromLocalFile(output);
    if (const QString problem = destinationProblem(output); !problem.isEmpty())
        return {QuorvaneSdkImageError::unableToSaveCroppedImage, writeFailure(outputURL, problem), {}};
    ImageLoadResult loaded = loadImageFile(QFileInfo(input).absoluteFilePath(), kMaxInputPixels,
                                           PixelOrder::AsStored, Fingerprint::WhenAsked);
    if (!loaded.image)
        return {QuorvaneSdkImageError::invalidFile, loaded.failure, {}};
    // Handed on whole: a free turn lets the photo go once it has read it.
    EditRecipe::StoredPhoto photo{std::move(*loaded.image), loaded.orientation};
    loaded.image.reset();
    if (const QString refusal =
            anyPhoto
                ? QString()
                : EditRecipe::mismatch(recipe.source, {EditRecipe::uprightSize(photo), loaded.sha256.get()});
        !refusal.isEmpty())
        return {kExitBadRecipe, refusal + QStringLiteral(" Give --any-photo to apply it all the same."), {}};
    auto made = EditRecipe::rendered(std::move(photo), recipe.steps, recipe.output.resize);
    if (const auto* refusal = std::get_if<QuorvaneSdkImageError>(&made))
        return {kExitBadRecipe, refusal->reason(), {}};
    // The session's own way from the editor's picture to the file: encode, metadata, write.
    try {
        ImageSaverImp().save(*std::get<std::unique_ptr<ImageBands>>(made), format, outputURL, loaded.metadata,
                             {});
    } catch (const QuorvaneSdkImageError& error) {
        return {error.code(),
                error.code() == QuorvaneSdkImageError::unableToCompressImage
                    ? QStringLiteral("Cannot encode the image in the recipe's format.")
                    : writeFailure(outputURL, error.reason()),
                {}};
    }
    return {0, {}, output};
}

} // namespace

std::variant<ApplyOptions, UsageError, InfoRequest> parseApplyCommand(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Replays an edit recipe (written by the editor or by \"edit --write-recipe\") over "
                       "photos, several at once, and prints each written file's path."));
    const QCommandLineOption help = parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("apply"), QStringLiteral("The command."));
    parser.addPositionalArgument(QStringLiteral("RECIPE"), QStringLiteral("The recipe, a JSON file."));
    parser.addPositionalArgument(QStringLiteral("IMAGE..."), QStringLiteral("The photos to apply it to."));
    const QCommandLineOption outputDir(
        QStringLiteral("output-dir"),
        QStringLiteral("The folder to write into; each photo keeps its name, with the recipe's extension. A "
                       "file already there is replaced."),
        QStringLiteral("DIR"));
    const QCommandLineOption anyPhoto(
        QStringLiteral("any-photo"),
        QStringLiteral("Applies the recipe to photos other than the one it was made for; its crop and "
                       "overlays are scaled to each."));
    parser.addOptions({outputDir, anyPhoto});
    if (!parser.parse(QStringList{QStringLiteral("quorvane-image")} + arguments))
        return UsageError{parser.errorText()};
    if (parser.isSet(help))
        return InfoRequest{parser.helpText()};
    const QStringList positional = parser.positionalArguments();
    if (positional.size() < 2)
        return UsageError{QStringLiteral("RECIPE is missing.")};
    if (positional.size() < 3)
        return UsageError{QStringLiteral("No IMAGE to apply the recipe to.")};
    if (!parser.isSet(outputDir))
        return UsageError{QStringLiteral("--output-dir is missing: apply writes each photo into a folder.")};
    return ApplyOptions{positional[1], positional.mid(2), parser.value(outputDir), parser.isSet(anyPhoto)};
}

int runApplyCommand(const ApplyOptions& options, QTextStream& out, QTextStream& err, bool showProgress)
{
    QFile file(options.recipe);
    if (!file.open(QIODevice::ReadOnly)) {
        err << "Cannot read the recipe \"" << options.recipe << "\": " << file.errorString() << ".\n";
        return kExitBadRecipe;
    }
    // One byte past the limit is enough to refuse a larger file without reading it all.
    auto read = EditRecipe::fromJson(file.read(EditRecipe::kMaxBytes + 1));
    if (const auto* refusal = std::get_if<QString>(&read)) {
        err << *refusal << "\n";
        return kExitBadRecipe;
    }
    const EditRecipe::Recipe recipe = std::get<EditRecipe::Recipe>(std::move(read));

    const QDir folder(options.outputDir);
    if (!folder.exists()) {
        err << "The output folder \"" << folder.absolutePath() << "\" does not exist.\n";
        return QuorvaneSdkImageError::unableToSaveCroppedImage;
    }
    // Outputs are named up front: two photos must not race for one file, nor a photo be written over.
    QStringList outputs;
    QHash<QString, QString> takenBy;
    for (const QString& input : options.inputs) {
        const QString output =
            folder.absoluteFilePath(QFileInfo(input).completeBaseName() + u'.' + recipe.output.format);
        if (QFileInfo(output) == QFileInfo(input)) {
            err << "\"" << input << "\" would be written over; choose another --output-dir.\n";
            return kExitUsage;
        }
        if (takenBy.contains(output)) {
            err << "\"" << takenBy[output] << "\" and \"" << input << "\" would both be written to \""
                << output << "\".\n";
            return kExitUsage;
        }
        takenBy.insert(output, input);
        outputs.append(output);
    }

    const qsizetype count = options.inputs.size();
    QList<Outcome> outcomes(count);
    std::atomic<qsizetype> next = 0;
    qsizetype done = 0;
    std::mutex mutex;
    std::condition_variable finished;
    const int workers = int(std::clamp<qsizetype>(QThread::idealThreadCount(), 1, count));
    std::vector<std::thread> threads;
    threads.reserve(std::size_t(workers));
    for (int w = 0; w < workers; ++w) {
        threads.emplace_back([&] {
            for (qsizetype i = next++; i < count; i = next++) {
                Outcome outcome = applyTo(recipe, options.inputs[i], outputs[i], options.anyPhoto);
                const std::lock_guard lock(mutex);
                outcomes[i] = std::move(outcome);
                ++done;
                finished.notify_all();
            }
        });
    }
    {
        std::unique_lock lock(mutex);
        while (done < count) {
            if (showProgress)
                err << "\rapplying the recipe: " << done << " of " << count << " photos" << Qt::flush;
            finished.wait_for(lock, std::chrono::milliseconds(200));
        }
    }
    for (std::thread& thread : threads)
        thread.join();
    if (showProgress)
        err << "\r" << QString(60, u' ') << "\r" << Qt::flush;

    int worst = 0;
    qsizetype failed = 0;
    for (qsizetype i = 0; i < count; ++i) {
        const Outcome& outcome = outcomes[i];
        if (outcome.code == 0) {
            out << outcome.written << "\n";
            continue;
        }
        ++failed;
        worst = std::max(worst, outcome.code);
        err << options.inputs[i] << ": " << outcome.sentence << "\n";
    }
    if (failed > 0)
        err << count << " photos: " << count - failed << " written, " << failed << " failed.\n";
    return worst;
}
