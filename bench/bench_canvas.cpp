// The draw tool's costs on a 12-megapixel photo: flattening 20 overlay items into it, and turning a finished
// stroke into an item when the finger lifts. QUORVANE_BENCH_PHOTO names the photo (bench/run prepares it).
#include "Editor/Canvas/CanvasViewModel.h"
#include "Editor/Helpers/ImageLoader.h"

#include <QGuiApplication>
#include <benchmark/benchmark.h>
#include <cmath>

namespace {

const QImage& photo()
{
    static const QImage image = [] {
        const ImageLoadResult loaded =
            loadImageFile(qEnvironmentVariable("QUORVANE_BENCH_PHOTO"), 100'000'000);
        if (!loaded.image)
            qFatal("cannot load the benchmark photo: %s", qPrintable(loaded.failure));
        return *loaded.image;
    }();
    return image;
}

// A canvas laid out as on a phone, with \a count strokes spread over it, some turned and scaled.
std::unique_ptr<CanvasViewModel> canvasWithStrokes(int count)
{
    auto canvas = std::make_unique<CanvasViewModel>(photo());
    canvas->setupScreenSize(QSizeF(390, 600));
    const QSizeF frame = canvas->imageFrameSize();
    for (int i = 0; i < count; ++i) {
        const qreal x = 20 + (i % 5) * (frame.width() - 80) / 5;
        const qreal y = 20 + (i / 5) * (frame.height() - 80) / 4;
        for (int step = 0; step < 30; ++step)
            canvas->handleNewPoint(QPointF(x + step * 2, y + 20 * std::sin(step / 4.0) + 20), frame);
        canvas->addFinalPoint(QPointF(x + 60, y + 30), frame);
        if (i % 3 == 0) {
            canvas->lineImages().last()->setRotationAngle(Angle::degrees(30));
            canvas->lineImages().last()->setMagnification(1.5);
        }
    }
    return canvas;
}

void flatten20Items(benchmark::State& state)
{
    for (auto _ : state) {
        state.PauseTiming();
        auto canvas = canvasWithStrokes(20);
        state.ResumeTiming();
        const auto merged = canvas->mergeDrawings();
        benchmark::DoNotOptimize(merged->constBits());
    }
}

// From the finger lifting to the stroke item existing: bounding box, stroke picture, undo step.
void fingerLiftToItem(benchmark::State& state)
{
    auto canvas = std::make_unique<CanvasViewModel>(photo());
    canvas->setupScreenSize(QSizeF(390, 600));
    const QSizeF frame = canvas->imageFrameSize();
    for (auto _ : state) {
        state.PauseTiming();
        for (int step = 0; step < 120; ++step)
            canvas->handleNewPoint(QPointF(20 + step * 2.5, 40 + 60 * std::sin(step / 10.0) + 60), frame);
        state.ResumeTiming();
        canvas->addFinalPoint(QPointF(330, 100), frame);
    }
}

} // namespace

BENCHMARK(flatten20Items)->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK(fingerLiftToItem)->Unit(benchmark::kMicrosecond)->MinTime(1.0);

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
