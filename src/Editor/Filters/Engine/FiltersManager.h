#pragma once

#include "ColorMatrix.h"
#include "Filter.h"
#include "GpuColorEngine.h"

#include <QColor>
#include <QList>
#include <QObject>
#include <QSizeF>
#include <memory>
#include <optional>

/// Applies colour matrices to images, on the GPU where there is a hardware one and on the CPU otherwise, and
/// builds the filter picker's catalogue. Every call is synchronous.
class FiltersManager : public QObject
{
    Q_OBJECT
    Q_PROPERTY(Engine engine READ engine CONSTANT)
    Q_PROPERTY(QString backendName READ backendName CONSTANT)

public:
    enum class Engine { Cpu, Gpu };
    Q_ENUM(Engine)

    /// Picks the engine: the GPU when one with compute shaders can be made and is not a software rasteriser
    /// (on those the CPU engine is several times faster), else the CPU. QUORVANE_FILTER_ENGINE=cpu or gpu
    /// forces one; a forced GPU that cannot be made leaves the CPU engine.
    explicit FiltersManager(QObject* parent = nullptr);
    /// Uses \a engine if this machine has it, software rasterisers included; else the CPU engine.
    explicit FiltersManager(Engine engine, QObject* parent = nullptr);
    ~FiltersManager() override;

    Engine engine() const;
    /// "CPU", or the GPU backend: "Vulkan", "OpenGL", "Metal", "D3D11".
    QString backendName() const;

    /// The image with testMatrix(0.5, 0.5, 0.5, 0.5, 0.5) applied; \a type does not change the result.
    std::optional<QImage> applyFilter(const QImage& image, FilterType type);
    /// Each pixel's premultiplied bytes times \a matrix (a row vector), saturated to 8 bits. The result has
    /// the bitmap's pixel size at scale 1, in Format_RGBA8888_Premultiplied. Empty for a null image, a
    /// matrix holding infinity or NaN, or when the work fails; images beyond the GPU's texture size run on
    /// the CPU.
    std::optional<QImage> applyColorMatrix(const QImage& image, const ColorMatrix& matrix);

    /// Threadgroups of 8×8 of the last run on the GPU: (⌈w / 8⌉, ⌈h / 8⌉, 1). Zero before any.
    GpuColorEngine::Dispatch lastDispatch() const;

    /// The original, then nine solid swatches of the image's size in points, as the catalogue's entries.
    QList<Filter> loadFilters(const QImage& image) const;
    /// The same catalogue with swatches of  swatchSize points: thumbnails that stand for full-size ones.
    QList<Filter> loadFilters(const QImage& image, QSizeF swatchSize) const;
    /// The colour of the catalogue's swatch at  index; none for the original and past the end.
    static std::optional<QColor> swatchColor(qint64 index);
    /// A solid image of \a color and \a size points at the screen's scale; a null image when it cannot be
    /// made.
    static QImage imageWithColorAndSize(const QColor& color, QSizeF size);

private:
    std::unique_ptr<GpuColorEngine> m_gpu;
};
