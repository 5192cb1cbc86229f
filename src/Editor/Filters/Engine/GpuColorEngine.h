#pragma once

#include "ColorMatrix.h"

#include <QImage>
#include <QString>
#include <functional>
#include <memory>
#include <optional>

class QRhi;
class QRhiTexture;
class QRhiBuffer;
class QRhiCommandBuffer;
class QRhiComputePipeline;
class QRhiSampler;
class QRhiResourceUpdateBatch;
class QVulkanInstance;
class QRhiShaderResourceBindings;
class QOffscreenSurface;

/// The colour engine on the GPU through Qt's RHI, one compute pass of "colorMatrixKernel" per image, each
/// step synchronous. Its own device, made without a window, lives as long as the engine.
class GpuColorEngine
{
public:
    struct TextureDeleter
    {
        void operator()(QRhiTexture* texture) const;
    };
    using Texture = std::unique_ptr<QRhiTexture, TextureDeleter>;

    struct Dispatch
    {
        int x = 0;
        int y = 0;
        int z = 0;
        friend bool operator==(const Dispatch&, const Dispatch&) = default;
    };

    /// The first backend of this platform that runs compute shaders (QSG_RHI_BACKEND picks one, as it does
    /// for Qt Quick; QSG_RHI_DEBUG_LAYER=1 when the first engine is made turns Vulkan's validation on). Null
    /// when none can be made: no GUI application, a platform without GPU access such as "offscreen", or no
    /// driver.
    static std::unique_ptr<GpuColorEngine> create();
    ~GpuColorEngine();
    GpuColorEngine(const GpuColorEngine&) = delete;
    GpuColorEngine& operator=(const GpuColorEngine&) = delete;

    /// "Vulkan", "OpenGL", "Metal", "D3D11".
    QString backendName() const;
    /// The device is a rasteriser running on the CPU (lavapipe, llvmpipe, WARP).
    bool isSoftware() const;
    /// The widest and tallest image a texture holds.
    int maxTextureSize() const;

    /// The image's pixels as RGBA8, premultiplied, without sRGB decoding; null when it cannot be uploaded.
    Texture loadTexture(const QImage& image);
    /// Runs the kernel over \a input into a new texture; null when the GPU refused the work.
    Texture applyColorMatrix(const Texture& input, const ColorMatrix& matrix);
    /// Reads \a texture back as Format_RGBA8888_Premultiplied at scale 1.
    std::optional<QImage> textureTo(const Texture& texture);

    /// The threadgroups of the last applyColorMatrix.
    Dispatch lastDispatch() const { return m_lastDispatch; }

private:
    GpuColorEngine() = default;
    bool createPipeline();
    bool runFrame(QRhiResourceUpdateBatch* batch, const std::function<void(QRhiCommandBuffer*)>& record);

    // Declared first so that they outlive the device that uses them.
    std::shared_ptr<QVulkanInstance> m_vulkanInstance;
    std::unique_ptr<QOffscreenSurface> m_fallbackSurface;
    std::unique_ptr<QRhi> m_rhi;
    std::unique_ptr<QRhiSampler> m_sampler;
    // The pipeline is built once against stand-ins of the resources each call binds.
    Texture m_layoutTexture;
    std::unique_ptr<QRhiBuffer> m_layoutBuffer;
    std::unique_ptr<QRhiShaderResourceBindings> m_layout;
    std::unique_ptr<QRhiComputePipeline> m_pipeline;
    Dispatch m_lastDispatch;
};
