#include "PngEncoder.h"

#include "HuffmanDeflate.h"

#include <QColorSpace>
#include <QtEndian>

#include <zlib.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <vector>

namespace {

// With the Paeth filter, a photograph's bytes cluster near zero, which Huffman codes alone compress well:
// a fifth smaller than with the "up" filter, and as small as zlib's level 1 after "up".
constexpr uchar kFilterPaeth = 4;
constexpr qsizetype kBlockBytes = qsizetype(1) << 17;
constexpr uchar kColourGrey = 0;
constexpr uchar kColourRgb = 2;
constexpr uchar kColourRgba = 6;

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
    quint32 crc = quint32(crc32_z(0, header.data() + 4, 4));
    // A null buffer would restart the checksum rather than extend it.
    if (length > 0)
        crc = quint32(crc32_z(crc, data, length));
    std::array<uchar, 4> trailer{};
    putBigEndian(trailer.data(), crc);
    png.append(reinterpret_cast<const char*>(trailer.data()), 4);
}

void appendIccProfile(QByteArray& png, QByteArrayView profile)
{
    static constexpr char kName[] = "ICC profile";
    constexpr size_t kHeader = sizeof(kName) + 1; // the name, its terminating zero, the method byte
    uLongf packed = compressBound(uLong(profile.size()));
    std::vector<uchar> chunk(kHeader + packed);
    std::memcpy(chunk.data(), kName, sizeof(kName));
    chunk[sizeof(kName)] = 0; // zlib
    if (compress2(chunk.data() + kHeader, &packed, reinterpret_cast<const Bytef*>(profile.data()),
                  uLong(profile.size()), Z_BEST_COMPRESSION) != Z_OK)
        return;
    appendChunk(png, "iCCP", chunk.data(), quint32(kHeader + packed));
}

// Tags the pixels with their colour space, so a wide-gamut photo keeps its colours in colour-managed viewers.
void appendColourSpace(QByteArray& png, const QColorSpace& space)
{
    if (!space.isValid())
        return;
    if (space == QColorSpace(QColorSpace::SRgb)) {
        const uchar perceptual = 0;
        appendChunk(png, "sRGB", &perceptual, 1);
        return;
    }
    const QByteArray profile = space.iccProfile();
    if (!profile.isEmpty())
        appendIccProfile(png, profile);
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

bool isOpaque64(const QImage& image)
{
    for (int y = 0; y < image.height(); ++y) {
        const auto* row = reinterpret_cast<const QRgba64*>(image.constScanLine(y));
        quint16 all = 0xFFFF;
        for (int x = 0; x < image.width(); ++x)
            all &= row[x].alpha();
        if (all != 0xFFFF)
            return false;
    }
    return true;
}

bool isFormat32(QImage::Format format)
{
    return format == QImage::Format_RGB32 || format == QImage::Format_ARGB32 ||
           format == QImage::Format_ARGB32_Premultiplied;
}

bool isFormat64(QImage::Format format)
{
    return format == QImage::Format_RGBX64 || format == QImage::Format_RGBA64 ||
           format == QImage::Format_RGBA64_Premultiplied;
}

// Yields each row as packed PNG samples: 8-bit grey, RGB or RGBA, or their 16-bit forms (big-endian) for
// 16-bit images. Other formats are converted a band of rows at a time: a converted copy of the whole picture
// would cost as much memory as the picture.
class RowSource
{
public:
    explicit RowSource(ImageBands& bands)
        : m_bands(bands)
        , m_width(bands.shape().size.width())
        , m_height(bands.shape().size.height())
    {
        const QImage::Format format = bands.shape().format;
        const qsizetype bytesPerLine =
            std::max<qsizetype>(1, qsizetype(m_width) * QImage::toPixelFormat(format).bitsPerPixel() / 8);
        m_bandRows = int(std::clamp<qsizetype>(kBandBytes / bytesPerLine, 1, std::max(1, m_height)));
        const QList<QRgb>& table = bands.shape().colorTable;
        const bool hasAlpha =
            table.isEmpty()
                ? QImage::toPixelFormat(format).alphaUsage() == QPixelFormat::UsesAlpha
                : std::any_of(table.cbegin(), table.cend(), [](QRgb c) { return qAlpha(c) != 255; });
        if (format == QImage::Format_Grayscale8 || format == QImage::Format_Grayscale16) {
            m_channels = 1;
            m_bytesPerSample = format == QImage::Format_Grayscale16 ? 2 : 1;
            return;
        }
        if (isFormat64(format)) {
            m_bytesPerSample = 2;
            // A premultiplied pixel has the alpha of its straight one.
            if (!hasAlpha || allBands(QImage::Format_Invalid, isOpaque64)) {
                m_unpack64 = true;
            } else {
                m_channels = 4;
                if (format != QImage::Format_RGBA64)
                    m_bandFormat = QImage::Format_RGBA64;
            }
            return;
        }
        const bool is32 = isFormat32(format);
        const bool opaque =
            !hasAlpha || allBands(is32 ? QImage::Format_Invalid : QImage::Format_ARGB32, isOpaque32);
        if (is32 && opaque) {
            m_unpack32 = true;
        } else if (!hasAlpha) {
            m_bandFormat = QImage::Format_RGB888;
        } else if (opaque) {
            m_bandFormat = QImage::Format_ARGB32;
            m_unpack32 = true;
        } else {
            m_bandFormat = QImage::Format_RGBA8888;
            m_channels = 4;
        }
    }

    int channels() const { return m_channels; }
    int bitDepth() const { return 8 * m_bytesPerSample; }
    qsizetype rowBytes() const { return qsizetype(m_width) * m_channels * m_bytesPerSample; }

    // Rows are asked for top to bottom; false when a band cannot be made.
    bool row(int y, uchar* out)
    {
        if (y < m_bandTop || y >= m_bandTop + m_band.height()) {
            m_bandTop = y;
            m_band = band(y, m_bandFormat);
            if (m_band.isNull())
                return false;
        }
        const uchar* in = m_band.constScanLine(y - m_bandTop);
        if (m_unpack32) {
            const auto* pixels = reinterpret_cast<const QRgb*>(in);
            for (int x = 0; x < m_width; ++x) {
                out[3 * x] = uchar(qRed(pixels[x]));
                out[3 * x + 1] = uchar(qGreen(pixels[x]));
                out[3 * x + 2] = uchar(qBlue(pixels[x]));
            }
        } else if (m_unpack64) {
            const auto* pixels = reinterpret_cast<const QRgba64*>(in);
            for (int x = 0; x < m_width; ++x) {
                qToBigEndian(pixels[x].red(), out + 6 * x);
                qToBigEndian(pixels[x].green(), out + 6 * x + 2);
                qToBigEndian(pixels[x].blue(), out + 6 * x + 4);
            }
        } else if (m_bytesPerSample == 2) {
            qToBigEndian<quint16>(in, rowBytes() / 2, out);
        } else {
            std::memcpy(out, in, size_t(rowBytes()));
        }
        return true;
    }

private:
    static constexpr qsizetype kBandBytes = qsizetype(1) << 20;

    // Rows from top in format, or in the bands' own format when it is Format_Invalid.
    QImage band(int top, QImage::Format format)
    {
        const QImage rows = m_bands.band(top, std::min(m_bandRows, m_height - top));
        return format == QImage::Format_Invalid || rows.isNull() ? rows : convertedBand(rows, format);
    }

    // Whether every band, in format, passes test: a look at the whole picture before its first row is
    // written, one band at a time.
    bool allBands(QImage::Format format, bool (*test)(const QImage&))
    {
        for (int top = 0; top < m_height; top += m_bandRows) {
            const QImage rows = band(top, format);
            if (rows.isNull() || !test(rows))
                return false;
        }
        return true;
    }

    ImageBands& m_bands;
    int m_width = 0;
    int m_height = 0;
    int m_bandRows = 1;
    QImage::Format m_bandFormat = QImage::Format_Invalid;
    QImage m_band;
    int m_bandTop = 0;
    bool m_unpack32 = false;
    bool m_unpack64 = false;
    int m_channels = 3;
    int m_bytesPerSample = 1;
};

// Each byte less the Paeth prediction from its left, upper and upper-left neighbours. The encoder predicts
// from the raw bytes, so no byte waits for another and the loop vectorises.
void paethFiltered(const uchar* __restrict current, const uchar* __restrict previous, uchar* __restrict out,
                   qsizetype size, int pixelBytes)
{
    // No left neighbour: the prediction is the byte above.
    const qsizetype first = std::min<qsizetype>(pixelBytes, size);
    for (qsizetype i = 0; i < first; ++i)
        out[i] = uchar(current[i] - previous[i]);
    const uchar* left = current;
    const uchar* upperLeft = previous;
    current += first, previous += first, out += first;
    for (qsizetype i = 0; i < size - first; ++i) {
        // Sixteen bits hold every sum here, and twice as many lanes fit a vector as with int.
        const short a = left[i];
        const short b = previous[i];
        const short c = upperLeft[i];
        const short pa = short(std::abs(b - c));
        const short pb = short(std::abs(a - c));
        const short pc = short(std::abs(a + b - 2 * c));
        const short prediction = (pa <= pb) & (pa <= pc) ? a : pb <= pc ? b : c;
        out[i] = uchar(current[i] - prediction);
    }
}

uchar colourType(int channels)
{
    switch (channels) {
    case 1:
        return kColourGrey;
    case 4:
        return kColourRgba;
    default:
        return kColourRgb;
    }
}

bool encode(ImageBands& bands, const std::function<void(QByteArray&)>& ancillary, ByteSink& sink)
{
    const QSize size = bands.shape().size;
    if (size.isEmpty())
        return false;
    RowSource source(bands);

    std::array<uchar, 13> header{};
    putBigEndian(header.data(), quint32(size.width()));
    putBigEndian(header.data() + 4, quint32(size.height()));
    header[8] = uchar(source.bitDepth());
    header[9] = colourType(source.channels());

    static constexpr char kSignature[] = "\x89PNG\r\n\x1a\n";
    QByteArray head(kSignature, 8);
    appendChunk(head, "IHDR", header.data(), quint32(header.size()));
    ancillary(head);
    // The IDAT chunk's length is known only at its end: written as a placeholder, filled in then.
    const qint64 idatStart = sink.position() + head.size();
    head.append(8, '\0');
    std::memcpy(head.data() + head.size() - 4, "IDAT", 4);
    if (!sink.write(head))
        return false;
    quint32 crc = quint32(crc32_z(0, reinterpret_cast<const uchar*>("IDAT"), 4));
    qint64 idatLength = 0;
    QByteArray compressed;
    HuffmanZlibStream stream(compressed);
    const auto drain = [&] {
        const QByteArrayView done = stream.take();
        crc = quint32(crc32_z(crc, reinterpret_cast<const uchar*>(done.data()), size_t(done.size())));
        idatLength += done.size();
        return sink.write(done);
    };

    // Filtered rows gather into blocks of about kBlockBytes; each block gets its own Huffman tables, which
    // follow the picture as it changes from sky to foliage.
    const qsizetype rowBytes = source.rowBytes();
    const int pixelBytes = source.channels() * source.bitDepth() / 8;
    const qsizetype stride = rowBytes + 1;
    const int rowsPerBlock = int(std::max<qsizetype>(1, kBlockBytes / stride));
    std::vector<uchar> block(static_cast<size_t>(stride * rowsPerBlock));
    std::vector<uchar> previous(static_cast<size_t>(rowBytes), 0);
    std::vector<uchar> current(static_cast<size_t>(rowBytes));
    int rowsInBlock = 0;
    for (int y = 0; y < size.height(); ++y) {
        if (!source.row(y, current.data()))
            return false;
        uchar* out = block.data() + qsizetype(rowsInBlock) * stride;
        out[0] = kFilterPaeth;
        paethFiltered(current.data(), previous.data(), out + 1, rowBytes, pixelBytes);
        std::swap(current, previous);
        if (++rowsInBlock == rowsPerBlock || y + 1 == size.height()) {
            stream.addBlock(block.data(), size_t(rowsInBlock * stride), y + 1 == size.height());
            rowsInBlock = 0;
            if (!drain())
                return false;
        }
    }
    stream.finish();
    if (!drain() || idatLength > 0x7FFFFFFF)
        return false;

    std::array<uchar, 4> field{};
    putBigEndian(field.data(), quint32(idatLength));
    if (!sink.overwrite(idatStart, reinterpret_cast<const char*>(field.data()), 4))
        return false;
    putBigEndian(field.data(), crc);
    QByteArray tail(reinterpret_cast<const char*>(field.data()), 4);
    appendChunk(tail, "IEND", nullptr, 0);
    return sink.write(tail);
}

} // namespace

bool writePng(ImageBands& bands, ByteSink& sink)
{
    const QColorSpace space = bands.shape().colorSpace;
    return encode(
        bands, [&space](QByteArray& png) { appendColourSpace(png, space); }, sink);
}

bool writePng(ImageBands& bands, QByteArrayView iccProfile, QByteArrayView exif, ByteSink& sink)
{
    return encode(
        bands,
        [iccProfile, exif](QByteArray& png) {
            if (!iccProfile.isEmpty())
                appendIccProfile(png, iccProfile);
            if (!exif.isEmpty())
                appendChunk(png, "eXIf", reinterpret_cast<const uchar*>(exif.data()), quint32(exif.size()));
        },
        sink);
}

std::optional<QByteArray> encodePng(const QImage& image)
{
    WholeImageBands bands(image);
    BufferSink sink;
    if (image.isNull() || !writePng(bands, sink))
        return std::nullopt;
    return sink.take();
}
