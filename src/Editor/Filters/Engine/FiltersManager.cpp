#include "FiltersManager.h"

#include "CpuColorEngine.h"
#include "Editor/Helpers/ImageHelpers.h"
#include "Logger/ModuleLog.h"

#include <QtGlobal>

namespace {

std::optional<FiltersManager::Engine> engineFromEnvironment()
{
    const QByteArray forced = qgetenv("QUORVANE_FILTER_ENGINE").toLower();
    if (forced == "cpu")
        return FiltersManager::Engine::Cpu;
    if (forced == "gpu")
        return FiltersManager::Engine::Gpu;
    if (!forced.isEmpty())
        qCWarning(quorvaneSdkImage,
                  "QUORVANE_FILTER_ENGINE takes cpu or gpu, not \"%s\"; the engine is picked as usual",
                  forced.constData());
    return std::nullopt;
}

struct CatalogueEntry
{
    const char* name;
    QColor color;
};

// The platform's standard colours the catalogue names, in its order. The names stay English here; the
// screen shows them translated.
const CatalogueEntry catalogue[] = {
    {QT_TRANSLATE_NOOP("Filter", "Blue"), QColor::fromRgbF(0, 0, 1)},
    {QT_TRANSLATE_NOOP("Filter", "Green"), QColor::fromRgbF(0, 1, 0)},
    {QT_TRANSLATE_NOOP("Filter", "Gray"), QColor::fromRgbF(0.5, 0.5, 0.5)},
    {QT_TRANSLATE_NOOP("Filter", "Pink"), QColor(255, 45, 85)},
    {QT_TRANSLATE_NOOP("Filter", "Yellow"), QColor::fromRgbF(1, 1, 0)},
    {QT_TRANSLATE_NOOP("Filter", "Orange"), QColor::fromRgbF(1, 0.5, 0)},
    {QT_TRANSLATE_NOOP("Filter", "Red"), QColor::fromRgbF(1, 0, 0)},
    {QT_TRANSLATE_NOOP("Filter", "Brown"), QColor::fromRgbF(0.6, 0.4, 0.2)},
    {QT_TRANSLATE_NOOP("Filter", "White"), QColor::fromRgbF(1, 1, 1)},
};

} // namespace

FiltersManager::FiltersManager(QObject* parent)
    : QObject(parent)
{
    if (const auto forced = engineFromEnvironment()) {
        if (*forced == Engine::Gpu)
            m_gpu = GpuColorEngine::create();
        return;
    }
    m_gpu = GpuColorEngine::create();
    if (m_gpu && m_gpu->isSoftware())
        m_gpu.reset();
}

FiltersManager::FiltersManager(Engine engine, QObject* parent)
    : QObject(parent)
{
    if (engine == Engine::Gpu)
        m_gpu = GpuColorEngine::create();
}

FiltersManager::~FiltersManager() = default;

FiltersManager::Engine FiltersManager::engine() const
{
    return m_gpu ? Engine::Gpu : Engine::Cpu;
}

QString FiltersManager::backendName() const
{
    return m_gpu ? m_gpu->backendName() : QStringLiteral("CPU");
}

std::optional<QImage> FiltersManager::applyFilter(const QImage& image, FilterType)
{
    return applyColorMatrix(image, testMatrix(0.5f, 0.5f, 0.5f, 0.5f, 0.5f));
}

std::optional<QImage> FiltersManager::applyColorMatrix(const QImage& image, const ColorMatrix& matrix)
{
    // What an 8-bit texture makes of NaN differs between GPUs: no answer is better than an arbitrary one.
    if (image.isNull() || !staysFinite(matrix))
        return std::nullopt;
    std::optional<QImage> result;
    if (m_gpu && image.width() <= m_gpu->maxTextureSize() && image.height() <= m_gpu->maxTextureSize()) {
        const auto input = m_gpu->loadTexture(image);
        const auto output = input ? m_gpu->applyColorMatrix(input, matrix) : nullptr;
        result = output ? m_gpu->textureTo(output) : std::nullopt;
        // A GPU that refuses the work (out of memory, device lost) must not cost the user the edit.
    }
    if (!result) {
        QImage computed = applyColorMatrixOnCpu(image, matrix);
        if (computed.isNull())
            return std::nullopt;
        result = std::move(computed);
    }
    // A matrix changes colours, not how many pixels go to an inch.
    result->setDotsPerMeterX(image.dotsPerMeterX());
    result->setDotsPerMeterY(image.dotsPerMeterY());
    return result;
}

GpuColorEngine::Dispatch FiltersManager::lastDispatch() const
{
    return m_gpu ? m_gpu->lastDispatch() : GpuColorEngine::Dispatch{};
}

QList<Filter> FiltersManager::loadFilters(const QImage& image) const
{
    return loadFilters(image, image.deviceIndependentSize());
}

QList<Filter> FiltersManager::loadFilters(const QImage& image, QSizeF swatchSize) const
{
    QList<Filter> filters{{image, 0, QStringLiteral(QT_TRANSLATE_NOOP("Filter", "Original"))}};
    qint64 index = 1;
    for (const CatalogueEntry& entry : catalogue)
        filters.append(
            {imageWithColorAndSize(entry.color, swatchSize), index++, QString::fromLatin1(entry.name)});
    return filters;
}

std::optional<QColor> FiltersManager::swatchColor(qint64 index)
{
    if (index < 1 || index > qint64(std::size(catalogue)))
        return std::nullopt;
    return catalogue[index - 1].color;
}

QImage FiltersManager::imageWithColorAndSize(const QColor& color, QSizeF size)
{
    return ImageHelpers::filledCanvas(size, color);
}
