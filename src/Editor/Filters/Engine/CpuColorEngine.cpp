#include "CpuColorEngine.h"

#include "Editor/Helpers/ImageHelpers.h"

#include <QSysInfo>
#include <algorithm>
#include <system_error>
#include <thread>

namespace {

// Branch-free so that the compiler vectorises it: bytes in, floats through the matrix, clamped, rounded half
// up. R, G, B and A are the byte offsets of the channels in a pixel.
template <int R, int G, int B, int A>
Q_ALWAYS_INLINE void transformRow(const uchar* in, uchar* out, int width, const float* m, uchar alphaMask)
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

// One copy of the loop per vector width, picked when the program loads (GCC on ELF x86-64).
#if defined(__x86_64__) && defined(__GNUC__) && !defined(__clang__) && defined(__ELF__) &&                   \
    !defined(__SANITIZE_ADDRESS__)
#define QUORVANE_VECTOR_CLONES __attribute__((target_clones("arch=x86-64-v4", "avx2", "default")))
#else
#define QUORVANE_VECTOR_CLONES
#endif

using RowFunction = void (*)(const uchar*, uchar*, int, const float*, uchar);

QUORVANE_VECTOR_CLONES void rowsRgba(const uchar* in, uchar* out, int width, const float* m, uchar alphaMask)
{
    transformRow<0, 1, 2, 3>(in, out, width, m, alphaMask);
}

QUORVANE_VECTOR_CLONES void rowsBgra(const uchar* in, uchar* out, int width, const float* m, uchar alphaMask)
{
    transformRow<2, 1, 0, 3>(in, out, width, m, alphaMask);
}

QUORVANE_VECTOR_CLONES void rowsArgb(const uchar* in, uchar* out, int width, const float* m, uchar alphaMask)
{
    transformRow<1, 2, 3, 0>(in, out, width, m, alphaMask);
}

// Photos are split between two threads, which halves the time on two cores; the call stays synchronous.
// Both threads get raw row pointers: QImage's own accessors are not safe to call from two threads.
void transform(RowFunction row, const QImage& in, QImage& out, const ColorMatrix& matrix, uchar alphaMask)
{
    const uchar* inBits = in.constBits();
    uchar* outBits = out.bits();
    const qsizetype inStride = in.bytesPerLine();
    const qsizetype outStride = out.bytesPerLine();
    const int width = in.width();
    const auto rows = [=, &matrix](int from, int to) {
        for (int y = from; y < to; ++y)
            row(inBits + y * inStride, outBits + y * outStride, width, matrix.data(), alphaMask);
    };
    const int height = in.height();
    if (qint64(width) * height < (1 << 20) || std::thread::hardware_concurrency() < 2) {
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

bool applyColorMatrixOnCpu(const QImage& image, const ColorMatrix& matrix, QImage& out)
{
    if (image.isNull() || out.size() != image.size() || out.format() != QImage::Format_RGBA8888_Premultiplied)
        return false;
    // The 32-bit formats photos arrive in are read where they lie; anything else is first brought to the
    // bytes the GPU is given.
    QImage in = image;
    const QImage::Format format = image.format();
    const bool argb32 = format == QImage::Format_RGB32 || format == QImage::Format_ARGB32_Premultiplied;
    const bool rgba8888 =
        format == QImage::Format_RGBX8888 || format == QImage::Format_RGBA8888_Premultiplied;
    if (!argb32 && !rgba8888) {
        in = image.convertToFormat(QImage::Format_RGBA8888_Premultiplied);
        if (in.isNull())
            return false;
    }
    // The unused byte of an opaque format is whatever the host left there: read as opaque.
    const uchar alphaMask = format == QImage::Format_RGB32 || format == QImage::Format_RGBX8888 ? 0xFF : 0;
    const RowFunction row = !argb32                                         ? rowsRgba
                            : QSysInfo::ByteOrder == QSysInfo::LittleEndian ? rowsBgra
                                                                            : rowsArgb;
    transform(row, in, out, matrix, alphaMask);
    return true;
}

QImage applyColorMatrixOnCpu(const QImage& image, const ColorMatrix& matrix)
{
    if (image.isNull())
        return {};
    QImage out = ImageHelpers::newImage(image.size(), QImage::Format_RGBA8888_Premultiplied);
    if (out.isNull() || !applyColorMatrixOnCpu(image, matrix, out))
        return {};
    return out;
}
