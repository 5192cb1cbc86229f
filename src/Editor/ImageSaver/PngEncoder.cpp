#include "PngEncoder.h"

#include <libdeflate.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>
#include <vector>

namespace {

// Level 1 with the "up" filter compresses photographs smaller than zlib's default with adaptive filters,
// in a tenth of the time.
constexpr int kDeflateLevel = 1;
constexpr uchar kFilterUp = 2;
constexpr uchar kColourRgb = 2;
constexpr uchar kColourRgba = 6;

struct CompressorDeleter
{
    void operator()(libdeflate_compressor* c) const { libdeflate_free_compressor(c); }
};

void putBigEndian(uchar* at, quint32 value)
{
    at[0] = uchar(value >> 24);
    at[1] = uchar(value >> 16);
    at[2] = uchar(value >> 8);
    at[3] = uchar(value);
}

void appendChunk(QByteArray& png, const char type[4], const uchar* data, quint32 length)
{
    std::array<uchar, 8> header{};
    putBigEndian(header.data(), length);
    std::memcpy(header.data() + 4, type, 4);
    png.append(reinterpret_cast<const char*>(header.data()), 8);
    png.append(reinterpret_cast<const char*>(data), length);
    quint32 crc = libdeflate_crc32(0, header.data() + 4, 4);
    // A null buffer would restart the checksum rather than extend it.
    if (length > 0)
        crc = libdeflate_crc32(crc, data, length);
    std::array<uchar, 4> trailer{};
    putBigEndian(trailer.data(), crc);
    png.append(reinterpret_cast<const char*>(trailer.data()), 4);
}

bool isOpaque32(const QImage& image)
{
    for (int y = 0; y < image.height(); ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        QRgb all = 0xFFFFFFFFu;
        for (int x = 0; x < image.width(); ++x)
            all &= row[x];
        if (qAlpha(all) != 0xFF)
            return false;
    }
    return true;
}

// Yields each row as packed 8-bit RGB or RGBA bytes, converting from whatever the image holds.
class RowSource
{
public:
    explicit RowSource(const QImage& image)
    {
        const QImage::Format format = image.format();
        const bool is32 = format == QImage::Format_RGB32 || format == QImage::Format_ARGB32 ||
                          format == QImage::Format_ARGB32_Premultiplied;
        if (is32 && (!image.hasAlphaChannel() || isOpaque32(image))) {
            m_image = image;
            m_unpack32 = true;
            m_channels = 3;
        } else if (!image.hasAlphaChannel()) {
            m_image = image.convertToFormat(QImage::Format_RGB888);
            m_channels = 3;
        } else {
            const QImage straight = image.convertToFormat(QImage::Format_ARGB32);
            if (isOpaque32(straight)) {
                m_image = straight;
                m_unpack32 = true;
                m_channels = 3;
            } else {
                m_image = image.convertToFormat(QImage::Format_RGBA8888);
                m_channels = 4;
            }
        }
    }

    bool isNull() const { return m_image.isNull(); }
    int channels() const { return m_channels; }
    qsizetype rowBytes() const { return qsizetype(m_image.width()) * m_channels; }

    void row(int y, uchar* out) const
    {
        if (!m_unpack32) {
            std::memcpy(out, m_image.constScanLine(y), size_t(rowBytes()));
            return;
        }
        const auto* in = reinterpret_cast<const QRgb*>(m_image.constScanLine(y));
        for (int x = 0; x < m_image.width(); ++x) {
            out[3 * x] = uchar(qRed(in[x]));
            out[3 * x + 1] = uchar(qGreen(in[x]));
            out[3 * x + 2] = uchar(qBlue(in[x]));
        }
    }

private:
    QImage m_image;
    bool m_unpack32 = false;
    int m_channels = 3;
};

} // namespace

std::optional<QByteArray> encodePng(const QImage& image)
{
    if (image.isNull())
        return std::nullopt;
    const RowSource source(image);
    if (source.isNull())
        return std::nullopt;

    const qsizetype rowBytes = source.rowBytes();
    const qsizetype stride = rowBytes + 1;
    std::vector<uchar> filtered;
    std::vector<uchar> previous(static_cast<size_t>(rowBytes), 0);
    std::vector<uchar> current(static_cast<size_t>(rowBytes));
    try {
        filtered.resize(size_t(stride) * size_t(image.height()));
    } catch (const std::bad_alloc&) {
        return std::nullopt;
    }
    for (int y = 0; y < image.height(); ++y) {
        source.row(y, current.data());
        uchar* out = filtered.data() + qsizetype(y) * stride;
        out[0] = kFilterUp;
        for (qsizetype i = 0; i < rowBytes; ++i)
            out[1 + i] = uchar(current[size_t(i)] - previous[size_t(i)]);
        std::swap(current, previous);
    }

    const std::unique_ptr<libdeflate_compressor, CompressorDeleter> compressor(
        libdeflate_alloc_compressor(kDeflateLevel));
    if (!compressor)
        return std::nullopt;
    const size_t bound = libdeflate_zlib_compress_bound(compressor.get(), filtered.size());
    if (bound > 0x7FFFFFFFu)
        return std::nullopt;
    std::vector<uchar> compressed;
    try {
        compressed.resize(bound);
    } catch (const std::bad_alloc&) {
        return std::nullopt;
    }
    const size_t compressedSize = libdeflate_zlib_compress(compressor.get(), filtered.data(), filtered.size(),
                                                           compressed.data(), compressed.size());
    if (compressedSize == 0)
        return std::nullopt;
    filtered = {};

    std::array<uchar, 13> header{};
    putBigEndian(header.data(), quint32(image.width()));
    putBigEndian(header.data() + 4, quint32(image.height()));
    header[8] = 8;
    header[9] = source.channels() == 4 ? kColourRgba : kColourRgb;

    static constexpr char kSignature[] = "\x89PNG\r\n\x1a\n";
    QByteArray png;
    png.reserve(qsizetype(compressedSize) + 64);
    png.append(kSignature, 8);
    appendChunk(png, "IHDR", header.data(), quint32(header.size()));
    appendChunk(png, "IDAT", compressed.data(), quint32(compressedSize));
    appendChunk(png, "IEND", nullptr, 0);
    return png;
}
