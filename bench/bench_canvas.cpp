// The draw tool's costs on a 12-megapixel photo: flattening 20 overlay items into it, and turning a finished
// stroke into an item when the finger lifts. QUORVANE_BENCH_PHOTO names the photo (bench/run prepares it).
#include "Editor/Canvas/CanvasViewModel.h"

#include "BenchPhoto.h"

#include <QFile>
#include <QGuiApplication>
#include <benchmark/benchmark.h>
#include <cmath>

namespace {

// A canvas laid out as on a phone, with \a count strokes spread over it, some turned and scaled.
std::unique_ptr<CanvasViewModel> canvasWithStrokes(int count)
{
    auto canvas = std::make_unique<CanvasViewModel>(benchPhoto());
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

// From the finger lifting to the stroke item existing: bounding box, stroke picture, undo step. Each lift
// is the second stroke of a fresh canvas, so the figure does not grow with the number of iterations.
void fingerLiftToItem(benchmark::State& state)
{
    for (auto _ : state) {
        state.PauseTiming();
        auto canvas = canvasWithStrokes(1);
        const QSizeF frame = canvas->imageFrameSize();
        for (int step = 0; step < 120; ++step)
            canvas->handleNewPoint(QPointF(20 + step * 2.5, 40 + 60 * std::sin(step / 10.0) + 60), frame);
        state.ResumeTiming();
        canvas->addFinalPoint(QPointF(330, 100), frame);
    }
}

// The 20 items as vips composites them: each drawn at the photo's resolution into a PNG of its own, with
// its place in overlays.txt ("x y" a line).
void writeOverlaysForPeers(const QString& folder)
{
    auto canvas = canvasWithStrokes(20);
    const QSizeF frame = canvas->imageFrameSize();
    const qreal toImage = benchPhoto().width() / frame.width();
    QFile places(folder + QStringLiteral("/overlays.txt"));
    if (!places.open(QIODevice::WriteOnly | QIODevice::Truncate))
        qFatal("cannot write %s", qPrintable(places.fileName()));
    int index = 0;
    for (const LineImagePtr& item : canvas->lineImages()) {
        const QSizeF size = item->image().deviceIndependentSize() * toImage;
        const QImage overlay =
            item->image().scaled(size.toSize(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        overlay.save(folder + QStringLiteral("/overlay%1.png").arg(++index));
        places.write(QStringLiteral("%1 %2\n")
                         .arg(qRound(item->offset().width() * toImage))
                         .arg(qRound(item->offset().height() * toImage))
                         .toUtf8());
    }
}

} // namespace

BENCHMARK(flatten20Items)->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK(fingerLiftToItem)->Unit(benchmark::kMicrosecond)->MinTime(1.0);

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    if (qEnvironmentVariableIsSet("QUORVANE_BENCH_OUT"))
        writeOverlaysForPeers(qEnvironmentVariable("QUORVANE_BENCH_OUT"));
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
