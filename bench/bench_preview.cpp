// What a quarter turn costs on screen with a big photo: the preview fits the turned frame again. The photo
// comes from QUORVANE_BENCH_PHOTO (bench/big-photos prepares a 48-megapixel one).
#include "Editor/Common/ImagePreview.h"
#include "Editor/Helpers/ImageLoader.h"

#include <QGuiApplication>
#include <QQuickItem>
#include <QQuickWindow>
#include <benchmark/benchmark.h>

namespace {

void refitAfterTurn(benchmark::State& state)
{
    const ImageLoadResult loaded = loadImageFile(qEnvironmentVariable("QUORVANE_BENCH_PHOTO"), 100'000'000);
    if (!loaded.image)
        qFatal("cannot load the benchmark photo: %s", qPrintable(loaded.failure));
    QQuickWindow window;
    window.resize(390, 844);
    auto* preview = new ImagePreview(window.contentItem());
    preview->setImage(*loaded.image);
    preview->setSize(QSizeF(374, 500));
    window.show();
    window.grabWindow(); // the first frame reduces the photo once
    bool turned = false;
    for (auto _ : state) {
        turned = !turned;
        preview->setSize(turned ? QSizeF(500, 374) : QSizeF(374, 500));
        const QImage frame = window.grabWindow();
        benchmark::DoNotOptimize(frame.constBits());
    }
    state.counters["uploaded px"] =
        double(preview->previewPixelSize().width()) * preview->previewPixelSize().height();
}

} // namespace

BENCHMARK(refitAfterTurn)->Unit(benchmark::kMillisecond)->MinTime(2.0);

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
