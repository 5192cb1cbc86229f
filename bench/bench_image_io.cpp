// Loading and saving a photograph as the editor does. The photo comes from QUORVANE_BENCH_PHOTO (bench/run
// prepares a 12-megapixel JPEG); peers are measured beside it by bench/run.
#include "Editor/Helpers/ImageHelpers.h"
#include "Editor/Helpers/ImageLoader.h"
#include "Editor/Helpers/PhotoMetadata.h"
#include "Editor/ImageSaver/ExifExport.h"
#include "Editor/ImageSaver/ImageSaverImp.h"

#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QtEndian>
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

QByteArray bigEndian(quint32 value, int bytes)
{
    QByteArray out(bytes, '\0');
    for (int i = 0; i < bytes; ++i)
        out[i] = char(value >> (8 * (bytes - 1 - i)));
    return out;
}

// The worst EXIF a JPEG can carry: one APP1 segment filled with directory entries (the directory claims
// 65,535), each a camera make that is read and compared.
void readHostileExif(benchmark::State& state)
{
    const QByteArray entry = bigEndian(0x010F, 2) + bigEndian(2, 2) + bigEndian(4, 4) + QByteArray("Cam", 4);
    const QByteArray tiff =
        QByteArray("MM\0*", 4) + bigEndian(8, 4) + bigEndian(65535, 2) + entry.repeated(5400);
    const QByteArray body = QByteArray("Exif\0\0", 6) + tiff;
    const QByteArray file = QByteArray("\xFF\xD8\xFF\xE1", 4) + bigEndian(quint32(body.size() + 2), 2) +
                            body + QByteArray("\xFF\xD9", 2);
    for (auto _ : state) {
        const PhotoMetadata metadata = readPhotoMetadata(file);
        benchmark::DoNotOptimize(
            exportedExif(metadata.exif, {}, QSize(4032, 3024), "bench", true).tiff.size());
    }
}

// A PNG colour profile that unpacks to 64 MB: reading stops at the largest profile a photo can carry.
void readIccBomb(benchmark::State& state)
{
    const QByteArray packed = QByteArray("p\0\0", 3) + qCompress(QByteArray(64 << 20, '\0'), 9).mid(4);
    const QByteArray file = QByteArray("\x89PNG\r\n\x1a\n", 8) + bigEndian(quint32(packed.size()), 4) +
                            "iCCP" + packed + bigEndian(0, 4);
    for (auto _ : state)
        benchmark::DoNotOptimize(readPhotoMetadata(file).damaged);
}

} // namespace

BENCHMARK(readHostileExif)->Unit(benchmark::kMillisecond)->MinTime(1.0);
BENCHMARK(readIccBomb)->Unit(benchmark::kMillisecond)->MinTime(1.0);
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
