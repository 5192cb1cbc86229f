#include "GpuColorEngine.h"

#include <QFile>
#include <QGuiApplication>
#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QtGui/private/qrhi_p.h>
#include <QtGui/private/qshader_p.h>
#if QT_CONFIG(vulkan)
#include <QVulkanInstance>
#include <QtGui/private/qrhivulkan_p.h>
#endif
#if QT_CONFIG(opengl)
#include <QtGui/private/qrhigles2_p.h>
#endif
#if defined(Q_OS_MACOS) || defined(Q_OS_IOS)
#include <QtGui/private/qrhimetal_p.h>
#endif
#ifdef Q_OS_WIN
#include <QtGui/private/qrhid3d11_p.h>
#endif

namespace {

const char* const kernelResource = ":/quorvane/sdkimage/shaders/colorMatrixKernel.comp.qsb";

QShader loadKernel()
{
    QFile file(QString::fromLatin1(kernelResource));
    const QShader shader =
        file.open(QIODevice::ReadOnly) ? QShader::fromSerialized(file.readAll()) : QShader();
    if (!shader.isValid())
        qFatal("The compute shader \"colorMatrixKernel\" is missing from the component's resources (%s): the "
               "build did not bake it",
               kernelResource);
    return shader;
}

std::vector<QRhi::Implementation> backendsToTry()
{
    const QByteArray requested = qgetenv("QSG_RHI_BACKEND").toLower();
    if (requested == "vulkan")
        return {QRhi::Vulkan};
    if (requested == "opengl" || requested == "gl")
        return {QRhi::OpenGLES2};
    if (requested == "metal")
        return {QRhi::Metal};
    if (requested == "d3d11")
        return {QRhi::D3D11};
#if defined(Q_OS_MACOS) || defined(Q_OS_IOS)
    return {QRhi::Metal};
#elif defined(Q_OS_WIN)
    return {QRhi::D3D11, QRhi::Vulkan, QRhi::OpenGLES2};
#else
    return {QRhi::Vulkan, QRhi::OpenGLES2};
#endif
}

#if QT_CONFIG(vulkan)
// Engines alive at the same time share one Vulkan instance: Qt 6.4's Vulkan backend routes its memory
// allocator through the instance of the device made last, so a device whose own instance was destroyed first
// crashed the next one to be used.
std::shared_ptr<QVulkanInstance> sharedVulkanInstance()
{
    static std::weak_ptr<QVulkanInstance> shared;
    if (auto instance = shared.lock())
        return instance;
    auto instance = std::make_shared<QVulkanInstance>();
    if (qEnvironmentVariableIntValue("QSG_RHI_DEBUG_LAYER"))
        instance->setLayers({"VK_LAYER_KHRONOS_validation"});
    instance->setExtensions(QRhiVulkanInitParams::preferredInstanceExtensions());
    if (!instance->create())
        return nullptr;
    shared = instance;
    return instance;
}
#endif

} // namespace

void GpuColorEngine::TextureDeleter::operator()(QRhiTexture* texture) const
{
    delete texture;
}

std::unique_ptr<GpuColorEngine> GpuColorEngine::create()
{
    if (!qobject_cast<QGuiApplication*>(QCoreApplication::instance()))
        return nullptr;
    // These platforms reach no GPU; asking would only print warnings.
    const QString platform = QGuiApplication::platformName();
    if (platform == u"offscreen" || platform == u"minimal")
        return nullptr;
    std::unique_ptr<GpuColorEngine> engine(new GpuColorEngine);
    for (const QRhi::Implementation backend : backendsToTry()) {
        engine->m_pipeline.reset();
        engine->m_layout.reset();
        engine->m_layoutBuffer.reset();
        engine->m_layoutTexture.reset();
        engine->m_sampler.reset();
        engine->m_rhi.reset();
        engine->m_fallbackSurface.reset();
        engine->m_vulkanInstance.reset();
        switch (backend) {
#if QT_CONFIG(vulkan)
        case QRhi::Vulkan: {
            engine->m_vulkanInstance = sharedVulkanInstance();
            if (!engine->m_vulkanInstance)
                continue;
            QRhiVulkanInitParams params;
            params.inst = engine->m_vulkanInstance.get();
            engine->m_rhi.reset(QRhi::create(QRhi::Vulkan, &params));
            break;
        }
#endif
#if QT_CONFIG(opengl)
        case QRhi::OpenGLES2: {
            QRhiGles2InitParams params;
            params.format = QSurfaceFormat::defaultFormat();
            // Compute shaders need OpenGL 4.3 or OpenGL ES 3.1.
            if (QOpenGLContext::openGLModuleType() == QOpenGLContext::LibGLES) {
                params.format.setVersion(3, 1);
            } else {
                params.format.setVersion(4, 3);
                params.format.setProfile(QSurfaceFormat::CoreProfile);
            }
            engine->m_fallbackSurface.reset(QRhiGles2InitParams::newFallbackSurface(params.format));
            params.fallbackSurface = engine->m_fallbackSurface.get();
            engine->m_rhi.reset(QRhi::create(QRhi::OpenGLES2, &params));
            break;
        }
#endif
#if defined(Q_OS_MACOS) || defined(Q_OS_IOS)
        case QRhi::Metal: {
            QRhiMetalInitParams params;
            engine->m_rhi.reset(QRhi::create(QRhi::Metal, &params));
            break;
        }
#endif
#ifdef Q_OS_WIN
        case QRhi::D3D11: {
            QRhiD3D11InitParams params;
            engine->m_rhi.reset(QRhi::create(QRhi::D3D11, &params));
            break;
        }
#endif
        default:
            continue;
        }
        // A backend that cannot build the pipeline gives way to the next one.
        if (engine->m_rhi && engine->m_rhi->isFeatureSupported(QRhi::Compute) && engine->createPipeline())
            return engine;
    }
    return nullptr;
}

bool GpuColorEngine::createPipeline()
{
    m_sampler.reset(m_rhi->newSampler(QRhiSampler::Nearest, QRhiSampler::Nearest, QRhiSampler::None,
                                      QRhiSampler::ClampToEdge, QRhiSampler::ClampToEdge));
    m_layoutTexture.reset(
        m_rhi->newTexture(QRhiTexture::RGBA8, QSize(1, 1), 1, QRhiTexture::UsedWithLoadStore));
    m_layoutBuffer.reset(
        m_rhi->newBuffer(QRhiBuffer::Dynamic, QRhiBuffer::UniformBuffer, sizeof(ColorMatrix)));
    if (!m_sampler->create() || !m_layoutTexture->create() || !m_layoutBuffer->create())
        return false;
    m_layout.reset(m_rhi->newShaderResourceBindings());
    m_layout->setBindings({
        QRhiShaderResourceBinding::sampledTexture(0, QRhiShaderResourceBinding::ComputeStage,
                                                  m_layoutTexture.get(), m_sampler.get()),
        QRhiShaderResourceBinding::imageStore(1, QRhiShaderResourceBinding::ComputeStage,
                                              m_layoutTexture.get(), 0),
        QRhiShaderResourceBinding::uniformBuffer(2, QRhiShaderResourceBinding::ComputeStage,
                                                 m_layoutBuffer.get()),
    });
    if (!m_layout->create())
        return false;
    m_pipeline.reset(m_rhi->newComputePipeline());
    m_pipeline->setShaderStage({QRhiShaderStage::Compute, loadKernel()});
    m_pipeline->setShaderResourceBindings(m_layout.get());
    return m_pipeline->create();
}

GpuColorEngine::~GpuColorEngine() = default;

QString GpuColorEngine::backendName() const
{
    return QString::fromLatin1(m_rhi->backendName());
}

bool GpuColorEngine::isSoftware() const
{
    const QRhiDriverInfo info = m_rhi->driverInfo();
    if (info.deviceType == QRhiDriverInfo::CpuDevice)
        return true;
    const QByteArray name = info.deviceName.toLower();
    return name.contains("llvmpipe") || name.contains("softpipe") || name.contains("swiftshader") ||
           name.contains("software") || name.contains("basic render");
}

int GpuColorEngine::maxTextureSize() const
{
    return m_rhi->resourceLimit(QRhi::TextureSizeMax);
}

bool GpuColorEngine::runFrame(QRhiResourceUpdateBatch* batch,
                              const std::function<void(QRhiCommandBuffer*)>& record)
{
    if (!batch)
        return false;
    QRhiCommandBuffer* commands = nullptr;
    if (m_rhi->beginOffscreenFrame(&commands) != QRhi::FrameOpSuccess) {
        // The device keeps only so many batches: one left unsubmitted is given back.
        batch->release();
        return false;
    }
    record(commands);
    // Waits for the GPU: every step is synchronous.
    return m_rhi->endOffscreenFrame() == QRhi::FrameOpSuccess;
}

GpuColorEngine::Texture GpuColorEngine::loadTexture(const QImage& image)
{
    const int limit = maxTextureSize();
    if (image.isNull() || image.width() > limit || image.height() > limit)
        return nullptr;
    QImage bytes = image.format() == QImage::Format_RGBA8888_Premultiplied
                       ? image
                       : image.convertToFormat(QImage::Format_RGBA8888_Premultiplied);
    if (bytes.isNull())
        return nullptr;
    // The unused byte of an opaque format is whatever the host left there: opaque, as the CPU engine reads
    // it.
    if (!image.hasAlphaChannel()) {
        for (int y = 0; y < bytes.height(); ++y) {
            uchar* row = bytes.scanLine(y);
            for (int x = 0; x < bytes.width(); ++x)
                row[4 * x + 3] = 0xFF;
        }
    }
    Texture texture(m_rhi->newTexture(QRhiTexture::RGBA8, bytes.size()));
    if (!texture->create())
        return nullptr;
    QRhiResourceUpdateBatch* upload = m_rhi->nextResourceUpdateBatch();
    if (upload)
        upload->uploadTexture(texture.get(), bytes);
    if (!runFrame(upload, [&](QRhiCommandBuffer* commands) { commands->resourceUpdate(upload); }))
        return nullptr;
    return texture;
}

GpuColorEngine::Texture GpuColorEngine::applyColorMatrix(const Texture& input, const ColorMatrix& matrix)
{
    const QSize size = input->pixelSize();
    Texture output(m_rhi->newTexture(QRhiTexture::RGBA8, size, 1,
                                     QRhiTexture::UsedWithLoadStore | QRhiTexture::UsedAsTransferSource));
    std::unique_ptr<QRhiBuffer> matrixBuffer(
        m_rhi->newBuffer(QRhiBuffer::Dynamic, QRhiBuffer::UniformBuffer, sizeof(ColorMatrix)));
    if (!output->create() || !matrixBuffer->create())
        return nullptr;
    std::unique_ptr<QRhiShaderResourceBindings> bindings(m_rhi->newShaderResourceBindings());
    bindings->setBindings({
        QRhiShaderResourceBinding::sampledTexture(0, QRhiShaderResourceBinding::ComputeStage, input.get(),
                                                  m_sampler.get()),
        QRhiShaderResourceBinding::imageStore(1, QRhiShaderResourceBinding::ComputeStage, output.get(), 0),
        QRhiShaderResourceBinding::uniformBuffer(2, QRhiShaderResourceBinding::ComputeStage,
                                                 matrixBuffer.get()),
    });
    if (!bindings->create())
        return nullptr;
    QRhiResourceUpdateBatch* update = m_rhi->nextResourceUpdateBatch();
    if (update)
        update->updateDynamicBuffer(matrixBuffer.get(), 0, sizeof(ColorMatrix), matrix.data());
    const Dispatch dispatch{(size.width() + 7) / 8, (size.height() + 7) / 8, 1};
    const bool ran = runFrame(update, [&](QRhiCommandBuffer* commands) {
        commands->beginComputePass(update);
        commands->setComputePipeline(m_pipeline.get());
        commands->setShaderResources(bindings.get());
        commands->dispatch(dispatch.x, dispatch.y, dispatch.z);
        commands->endComputePass();
    });
    if (!ran)
        return nullptr;
    m_lastDispatch = dispatch;
    return output;
}

std::optional<QImage> GpuColorEngine::textureTo(const Texture& texture)
{
    QRhiReadbackResult readback;
    QRhiResourceUpdateBatch* read = m_rhi->nextResourceUpdateBatch();
    if (read)
        read->readBackTexture(QRhiReadbackDescription(texture.get()), &readback);
    if (!runFrame(read, [&](QRhiCommandBuffer* commands) { commands->resourceUpdate(read); }))
        return std::nullopt;
    const QSize size = readback.pixelSize;
    if (size.isEmpty() || readback.data.size() < qsizetype(size.width()) * size.height() * 4)
        return std::nullopt;
    // The image takes the read-back bytes over instead of copying them.
    auto* bytes = new QByteArray(std::move(readback.data));
    QImage image(
        reinterpret_cast<uchar*>(bytes->data()), size.width(), size.height(), qsizetype(size.width()) * 4,
        QImage::Format_RGBA8888_Premultiplied, [](void* data) { delete static_cast<QByteArray*>(data); },
        bytes);
    return image;
}
