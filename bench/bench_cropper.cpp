// Cut, quarter turn and flip, and a free-angle turn, of a decoded 12-megapixel photo: the crop tool's own
// work, without decoding or encoding. QUORVANE_BENCH_PHOTO names the photo (bench/run prepares it).
#include "Editor/Cropper/Engine/ImageCropperImp.h"
#include "SharedQuorvaneSdkCommon.h"

#include "BenchPhoto.h"

#include <QTransform>
#include <benchmark/benchmark.h>

namespace {

class SilentLog final : public SharedQuorvaneSdkLogService
{
public:
    void addLog(const SharedQuorvaneSdkLog&) override {}
};

// The cut keeps nearly the whole 4032 × 3024 photo, as a typical crop does.
void cropTurnFlip(benchmark::State& state)
{
    ImageCropperImp cropper;
    for (auto _ : state) {
        const QImage result =
            cropper.crop({benchPhoto(), 100, 100, 3800, 2800, Angle::degrees(90), true, false});
        benchmark::DoNotOptimize(result.constBits());
    }
}

// A free-angle turn of the same cut: drawn smoothly on its turned bounding box.
void cropFreeTurn(benchmark::State& state)
{
    ImageCropperImp cropper;
    for (auto _ : state) {
        const QImage result =
            cropper.crop({benchPhoto(), 100, 100, 3800, 2800, Angle::degrees(30), false, false});
        benchmark::DoNotOptimize(result.constBits());
    }
}

// The same work as three separate Qt operations, for comparison.
void cropTurnFlipInSteps(benchmark::State& state)
{
    for (auto _ : state) {
        const QImage result = benchPhoto()
                                  .copy(100, 100, 3800, 2800)
                                  .transformed(QTransform().rotate(90))
                                  .mirrored(false, true);
        benchmark::DoNotOptimize(result.constBits());
    }
}

} // namespace

BENCHMARK(cropTurnFlip)->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK(cropTurnFlipInSteps)->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK(cropFreeTurn)->Unit(benchmark::kMillisecond)->MinTime(2.0);

int main(int argc, char** argv)
{
    SharedQuorvaneSdkCommonKt::sdk_common().log().install(std::make_shared<SilentLog>());
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
