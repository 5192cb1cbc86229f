// The colour engine on a 12-megapixel photo: the CPU engine, and the GPU path split into its three steps
// (upload, dispatch, read-back) on whichever backend QSG_RHI_BACKEND names. Run under a display for the GPU;
// without one only the CPU figures come out. QUORVANE_BENCH_PHOTO names the photo (bench/run prepares it).
#include "Editor/Adjustment/AdjustImageViewModel.h"
#include "Editor/Filters/Engine/CpuColorEngine.h"
#include "Editor/Filters/Engine/FiltersManager.h"
#include "Editor/Filters/Engine/GpuColorEngine.h"
#include "Editor/Filters/FiltersViewModel.h"

#include "BenchPhoto.h"

#include <QGuiApplication>
#include <benchmark/benchmark.h>

namespace {

const ColorMatrix matrix = testMatrix(0.5f, 0.5f, 0.5f, 0.5f, 0.5f);

void cpuEngine(benchmark::State& state)
{
    for (auto _ : state) {
        const QImage result = applyColorMatrixOnCpu(benchPhoto(), matrix);
        benchmark::DoNotOptimize(result.constBits());
    }
}

// What opening the filters page pays to pick its engine: the GPU probe, dropped again on a software one.
void managerConstruction(benchmark::State& state)
{
    for (auto _ : state) {
        FiltersManager manager;
        benchmark::DoNotOptimize(manager.engine());
    }
}

// Opening the filters page: the catalogue with its thumbnails, the carousel and the ruler.
void filtersPageOpen(benchmark::State& state)
{
    for (auto _ : state) {
        FiltersViewModel page(benchPhoto());
        benchmark::DoNotOptimize(page.availableFilters().size());
    }
}

// ACCEPT on a swatch: the one full-size field the page makes.
void filtersPageAccept(benchmark::State& state)
{
    FiltersViewModel page(benchPhoto());
    page.applyFilter(page.availableFilters()[1]);
    for (auto _ : state) {
        const auto image = page.applyFilters();
        benchmark::DoNotOptimize(image->constBits());
    }
}

// Opening the adjustments page: ten symbols drawn from their SVGs.
void adjustPageOpen(benchmark::State& state)
{
    for (auto _ : state) {
        AdjustImageViewModel page(benchPhoto());
        benchmark::DoNotOptimize(page.availableFilters().size());
    }
}

// Made after the application and destroyed before it, as every engine must be.
std::unique_ptr<GpuColorEngine> gpuEngine;

GpuColorEngine* gpu()
{
    return gpuEngine.get();
}

void gpuUpload(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(gpu()->loadTexture(benchPhoto()).get());
}

void gpuDispatch(benchmark::State& state)
{
    const auto input = gpu()->loadTexture(benchPhoto());
    for (auto _ : state)
        benchmark::DoNotOptimize(gpu()->applyColorMatrix(input, matrix).get());
}

void gpuReadBack(benchmark::State& state)
{
    const auto output = gpu()->applyColorMatrix(gpu()->loadTexture(benchPhoto()), matrix);
    for (auto _ : state) {
        const auto image = gpu()->textureTo(output);
        benchmark::DoNotOptimize(image->constBits());
    }
}

void gpuWhole(benchmark::State& state)
{
    FiltersManager manager(FiltersManager::Engine::Gpu);
    for (auto _ : state) {
        const auto image = manager.applyColorMatrix(benchPhoto(), matrix);
        benchmark::DoNotOptimize(image->constBits());
    }
}

} // namespace

int main(int argc, char** argv)
{
    QGuiApplication app(argc, argv);
    gpuEngine = GpuColorEngine::create();
    benchmark::RegisterBenchmark("cpuEngine", cpuEngine)->Unit(benchmark::kMillisecond)->MinTime(2.0);
    benchmark::RegisterBenchmark("managerConstruction", managerConstruction)
        ->Unit(benchmark::kMillisecond)
        ->MinTime(1.0);
    benchmark::RegisterBenchmark("filtersPageOpen", filtersPageOpen)
        ->Unit(benchmark::kMillisecond)
        ->MinTime(1.0);
    benchmark::RegisterBenchmark("filtersPageAccept", filtersPageAccept)
        ->Unit(benchmark::kMillisecond)
        ->MinTime(1.0);
    benchmark::RegisterBenchmark("adjustPageOpen", adjustPageOpen)
        ->Unit(benchmark::kMillisecond)
        ->MinTime(1.0);
    if (gpu()) {
        qInfo("GPU: %s", qPrintable(gpu()->backendName()));
        benchmark::RegisterBenchmark("gpuUpload", gpuUpload)->Unit(benchmark::kMillisecond)->MinTime(2.0);
        benchmark::RegisterBenchmark("gpuDispatch", gpuDispatch)->Unit(benchmark::kMillisecond)->MinTime(2.0);
        benchmark::RegisterBenchmark("gpuReadBack", gpuReadBack)->Unit(benchmark::kMillisecond)->MinTime(2.0);
        benchmark::RegisterBenchmark("gpuWhole", gpuWhole)->Unit(benchmark::kMillisecond)->MinTime(2.0);
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    gpuEngine.reset();
    return 0;
}
