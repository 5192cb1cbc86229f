#include "CpuColorEngine.h"

#include "ImageHelpers.h"

#include <QSysInfo>
#include <algorithm>
#include <system_error>
#include <thread>

namespace {

// Branch-free so that the compiler vectorises it: bytes in, floats through the matrix, clamped, rounded half
// up. NaN clamps to 0, as the GPU's conversion to unorm does.
template <int R, int G, int B, int A>
#if defined(__x86_64__) && defined(__GNUC__) && !defined(__SANITIZE_ADDRESS__)
__attribute__((target_clones("arch=x86-64-v4", "avx2", "default")))
#endif
void transformRow(const uchar* in, uchar* out, int width, const float* m, uchar alphaMask)
{
    for (int x = 0; x < width; ++x) {
        const uchar* p = in + 4 * x;
        const float r = p[R];
        const float g = p[G];
        const float b = p[B];
        const float a = uchar(p[A] | alphaMask);
        for (int j = 0; j < 4; ++j) {
            const float v = r * m[j] + g * m[4 + j] + b * m[8 + j] + a * m[12 + j];
            out[4 * x + j] = uchar(int(std::min(std::max(0.0f, v), 255.0f) + 0.5f));
        }
    }
}

// Photos are split between two threads, which halves the time on two cores; the call stays synchronous.
template <int R, int G, int B, int A>
void transform(const QImage& in, QImage& out, const ColorMatrix& matrix, uchar alphaMask)
{
    const auto rows = [&](int from, int to) {
        for (int y = from; y < to; ++y)
            transformRow<R, G, B, A>(in.constScanLine(y), out.scanLine(y), in.width(), matrix.data(),
                                     alphaMask);
    };
    const int height = in.height();
    if (qint64(in.width()) * height < (1 << 20) || std::thread::hardware_concurrency() < 2) {
        rows(0, height);
        return;
    }
    std::thread upper;
    try {
        upper = std::thread(rows, 0, height / 2);
    } catch (const std::system_error&) {
        rows(0, height);
        return;
    }
    rows(height / 2, height);
    upper.join();
}

} // namespace

QImage applyColorMatrixOnCpu(const QImage& image, const ColorMatrix& matrix)
{
    if (image.isNull())
        return {};
    // The 32-bit formats photos arrive in are read where they lie; anything else is first brought to the
    // bytes the GPU is given.
    QImage in = image;
    const QImage::Format format = image.format();
    const bool argb32 = format == QImage::Format_RGB32 || format == QImage::Format_ARGB32_Premultiplied;
    if (!argb32 && format != QImage::Format_RGBA8888_Premultiplied && format != QImage::Format_RGBX8888) {
        in = image.convertToFormat(QImage::Format_RGBA8888_Premultiplied);
        if (in.isNull())
            return {};
    }
    QImage out = ImageHelpers::newImage(in.size(), QImage::Format_RGBA8888_Premultiplied);
    if (out.isNull())
        return {};
    const uchar alphaMask = format == QImage::Format_RGB32 || format == QImage::Format_RGBX8888 ? 0xFF : 0;
    if (!argb32)
        transform<0, 1, 2, 3>(in, out, matrix, alphaMask);
    else if (QSysInfo::ByteOrder == QSysInfo::LittleEndian)
        transform<2, 1, 0, 3>(in, out, matrix, alphaMask);
    else
        transform<1, 2, 3, 0>(in, out, matrix, alphaMask);
    return out;
}
