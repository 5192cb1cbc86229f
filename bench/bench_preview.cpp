// What a quarter turn costs on screen with a big photo: the preview fits the turned frame again; how long
// the screen stops drawing while CROP makes its result, off the GUI thread and, as the peer, on it; and what
// CONTINUE writes after the last page. The photo comes from QUORVANE_BENCH_PHOTO (bench/big-photos prepares a
// 48-megapixel one).
#include "BenchPhoto.h"
#include "Editor/Common/ImagePreview.h"
#include "Editor/Cropper/CropperViewModel.h"
#include "Editor/Cropper/Engine/ImageCropperImp.h"
#include "Editor/ImageSaver/ImageSaverImp.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QQuickItem>
#include <QQuickView>
#include <QQuickWindow>
#include <benchmark/benchmark.h>

namespace {

void refitAfterTurn(benchmark::State& state)
{
    QQuickWindow window;
    window.resize(390, 844);
    auto* preview = new ImagePreview(window.contentItem());
    preview->setImage(benchPhoto());
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

// Arg 1: CROP as the screen calls it (acceptInBackground); arg 0: the same crop made on the GUI thread.
void longestFrameGapDuringCrop(benchmark::State& state)
{
    QQuickView view;
    view.resize(390, 844);
    // Something that moves on every frame, as the spinner does.
    view.setSource(QUrl(QStringLiteral("data:text/plain,import QtQuick\nRectangle { width: 40; height: 40; "
                                       "NumberAnimation on rotation { from: 0; to: 360; loops: -1 } }")));
    if (view.status() != QQuickView::Ready)
        qFatal("cannot load the benchmark scene");
    view.show();
    QElapsedTimer clock;
    qint64 lastFrame = 0;
    qint64 longestGap = 0;
    QObject::connect(&view, &QQuickWindow::frameSwapped, &view, [&] {
        const qint64 now = clock.nsecsElapsed();
        longestGap = std::max(longestGap, now - lastFrame);
        lastFrame = now;
    });
    const bool inBackground = state.range(0) == 1;
    double gaps = 0;
    double work = 0;
    for (auto _ : state) {
        bool done = false;
        // The result is shown as the base page shows it: the preview reduces it to the window's size.
        auto* preview = new ImagePreview(view.contentItem());
        preview->setSize(QSizeF(374, 500));
        CropperViewModel cropper(benchPhoto(), std::make_shared<ImageCropperImp>(),
                                 [&](std::optional<QImage> image) {
                                     done = true;
                                     preview->setImage(image.value_or(QImage()));
                                 });
        cropper.rotateRight(true);
        clock.start();
        lastFrame = 0;
        longestGap = 0;
        if (inBackground)
            cropper.acceptInBackground();
        else
            cropper.accept();
        while (!done)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
        work += double(clock.nsecsElapsed()) / 1e6;
        // The frame that shows the result ends the last gap.
        const qint64 end = clock.nsecsElapsed();
        while (lastFrame < end && clock.nsecsElapsed() - end < 1'000'000'000)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
        gaps += double(longestGap) / 1e6;
        delete preview;
    }
    state.counters["longest frame gap ms"] = gaps / double(state.iterations());
    state.counters["crop ms"] = work / double(state.iterations());
}

// CONTINUE's work on the pool thread: the edited picture encoded as JPEG q90, streamed into its file.
void continueWritesJpeg(benchmark::State& state)
{
    const QUrl url =
        QUrl::fromLocalFile(qEnvironmentVariable("QUORVANE_BENCH_OUT") + QStringLiteral("/continue.jpg"));
    ImageSaverImp saver;
    for (auto _ : state)
        saver.save(benchPhoto(), QuorvaneSdkImageOutputFormat::jpg(90), url);
}

} // namespace

BENCHMARK(continueWritesJpeg)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(longestFrameGapDuringCrop)->Arg(1)->Arg(0)->Unit(benchmark::kMillisecond)->Iterations(3);
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
