// Loading and saving a photograph as the editor does. The photo comes from QUORVANE_BENCH_PHOTO (bench/run
// prepares a 12-megapixel JPEG); peers are measured beside it by bench/run.
#include "Editor/Helpers/ImageHelpers.h"
#include "Editor/Helpers/ImageLoader.h"
#include "Editor/ImageSaver/ImageSaverImp.h"

#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <benchmark/benchmark.h>

namespace {

QString photoPath()
{
    return qEnvironmentVariable("QUORVANE_BENCH_PHOTO");
}

QString outputPath(const char* name)
{
    return QDir(qEnvironmentVariable("QUORVANE_BENCH_OUT", QDir::tempPath()))
        .filePath(QString::fromLatin1(name));
}

// The image as the editor holds it: upright, redrawn non-opaque at the screen's scale.
const QImage& editorImage()
{
    static const QImage image = [] {
        const ImageLoadResult loaded = loadImageFile(photoPath(), 100'000'000);
        if (!loaded.image)
            qFatal("cannot load the benchmark photo: %s", qPrintable(loaded.failure));
        return *ImageHelpers::redrawnAtScreenScale(*loaded.image);
    }();
    return image;
}

void loadJpeg(benchmark::State& state)
{
    for (auto _ : state) {
        const ImageLoadResult loaded = loadImageFile(photoPath(), 100'000'000);
        benchmark::DoNotOptimize(loaded.image->constBits());
    }
}

void save(benchmark::State& state, QuorvaneSdkImageOutputFormat format, const char* name)
{
    const QImage& image = editorImage();
    ImageSaverImp saver;
    const QUrl url = QUrl::fromLocalFile(outputPath(name));
    for (auto _ : state)
        saver.save(image, format, url);
    state.counters["bytes"] = double(QFileInfo(url.toLocalFile()).size());
}

void saveJpeg90(benchmark::State& state)
{
    save(state, QuorvaneSdkImageOutputFormat::jpg(90), "ours-q90.jpg");
}
void saveJpeg100(benchmark::State& state)
{
    save(state, QuorvaneSdkImageOutputFormat::jpg(100), "ours-q100.jpg");
}
void savePng(benchmark::State& state)
{
    save(state, QuorvaneSdkImageOutputFormat::png(), "ours.png");
}

} // namespace

BENCHMARK(loadJpeg)->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK(saveJpeg90)->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK(saveJpeg100)->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK(savePng)->Unit(benchmark::kMillisecond)->MinTime(2.0);

int main(int argc, char** argv)
{
    QGuiApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
