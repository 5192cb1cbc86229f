#include "TestImages.h"

#include <QBuffer>
#include <QFile>
#include <QImageWriter>
#include <QRandomGenerator>
#include <QtEndian>
#include <zlib.h>

namespace TestImages {

QImage quadrants(QSize size)
{
    QImage image(size, QImage::Format_RGB32);
    const int halfWidth = size.width() / 2;
    const int halfHeight = size.height() / 2;
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            const bool right = x >= halfWidth;
            const bool bottom = y >= halfHeight;
            const QColor colour = !bottom ? (right ? Qt::green : Qt::red) : (right ? Qt::white : Qt::blue);
            image.setPixelColor(x, y, colour);
        }
    }
    return image;
}

QImage noise(QSize size, QImage::Format format, bool opaque)
{
    QImage image(size, QImage::Format_ARGB32);
    QRandomGenerator random(7);
    for (int y = 0; y < size.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < size.width(); ++x)
            row[x] = random.generate() | (opaque ? 0xFF000000u : 0);
    }
    return image.convertToFormat(format);
}

QImage noise16(QSize size, QImage::Format format)
{
    QImage image(size, QImage::Format_RGBA64);
    QRandomGenerator random(7);
    for (int y = 0; y < size.height(); ++y) {
        auto* row = reinterpret_cast<QRgba64*>(image.scanLine(y));
        for (int x = 0; x < size.width(); ++x)
            row[x] = QRgba64::fromRgba64(random.generate64());
    }
    return image.convertToFormat(format);
}

bool near(QColor a, QColor b, int tolerance)
{
    return std::abs(a.red() - b.red()) <= tolerance && std::abs(a.green() - b.green()) <= tolerance &&
           std::abs(a.blue() - b.blue()) <= tolerance && std::abs(a.alpha() - b.alpha()) <= tolerance;
}

namespace {

// The colours of the four quarters, sampled at their centres.
QList<QColor> quarterColours(const QImage& image)
{
    const int w = image.width();
    const int h = image.height();
    return {image.pixelColor(w / 4, h / 4), image.pixelColor(3 * w / 4, h / 4),
            image.pixelColor(w / 4, 3 * h / 4), image.pixelColor(3 * w / 4, 3 * h / 4)};
}

} // namespace

bool quartersMatch(const QImage& actual, const QImage& expected, int tolerance)
{
    const auto a = quarterColours(actual);
    const auto b = quarterColours(expected);
    for (qsizetype quarter = 0; quarter < a.size(); ++quarter) {
        if (!near(a[quarter], b[quarter], tolerance))
            return false;
    }
    return true;
}

QByteArray encode(const QImage& image, const char* format, int quality)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, format);
    writer.setQuality(quality);
    writer.write(image);
    return bytes;
}

QByteArray withJpegSegment(const QByteArray& jpeg, char marker, const QByteArray& body)
{
    QByteArray length(2, '\0');
    qToBigEndian(quint16(body.size() + 2), length.data());
    return jpeg.left(2) + '\xFF' + marker + length + body + jpeg.mid(2);
}

QByteArray withExifOrientation(const QByteArray& jpeg, int orientation)
{
    // Big-endian TIFF header, one IFD with one SHORT entry: 0x0112 Orientation.
    QByteArray tiff = QByteArray::fromHex("4d4d002a00000008"
                                          "0001"
                                          "011200030000000100");
    tiff.append(char(orientation));
    tiff.append(QByteArray::fromHex("0000"
                                    "00000000"));
    return withJpegSegment(jpeg, '\xE1', QByteArray("Exif\0\0", 6) + tiff);
}

QImage displayed(const QImage& stored, int orientation)
{
    const int w = stored.width();
    const int h = stored.height();
    const bool swaps = orientation >= 5;
    QImage out(swaps ? QSize(h, w) : QSize(w, h), stored.format());
    for (int y = 0; y < h; ++y) {
        for (int x = 0; x < w; ++x) {
            QPoint to;
            switch (orientation) {
            case 1:
                to = {x, y};
                break;
            case 2:
                to = {w - 1 - x, y};
                break;
            case 3:
                to = {w - 1 - x, h - 1 - y};
                break;
            case 4:
                to = {x, h - 1 - y};
                break;
            case 5:
                to = {y, x};
                break;
            case 6:
                to = {h - 1 - y, x};
                break;
            case 7:
                to = {h - 1 - y, w - 1 - x};
                break;
            case 8:
                to = {y, w - 1 - x};
                break;
            }
            out.setPixelColor(to, stored.pixelColor(x, y));
        }
    }
    return out;
}

int inverseOrientation(int orientation)
{
    return orientation == 6 ? 8 : orientation == 8 ? 6 : orientation;
}

QByteArray pngChunk(const char* type, const QByteArray& body)
{
    QByteArray out(4, '\0');
    qToBigEndian(quint32(body.size()), out.data());
    const QByteArray typed = QByteArray(type, 4) + body;
    out.append(typed);
    QByteArray crc(4, '\0');
    qToBigEndian(quint32(crc32(0, reinterpret_cast<const Bytef*>(typed.constData()), uInt(typed.size()))),
                 crc.data());
    return out + crc;
}

QByteArray pngDeclaring(quint32 width, quint32 height)
{
    QByteArray header(13, '\0');
    qToBigEndian(width, header.data());
    qToBigEndian(height, header.data() + 4);
    header[8] = 8;
    header[9] = 2;
    QByteArray compressed(64, '\0');
    uLongf size = uLongf(compressed.size());
    const QByteArray row(8, '\0');
    compress(reinterpret_cast<Bytef*>(compressed.data()), &size,
             reinterpret_cast<const Bytef*>(row.constData()), uLong(row.size()));
    compressed.resize(qsizetype(size));
    return QByteArray("\x89PNG\r\n\x1a\n", 8) + pngChunk("IHDR", header) + pngChunk("IDAT", compressed) +
           pngChunk("IEND", {});
}

QByteArray jpegDeclaring(quint16 width, quint16 height)
{
    QByteArray jpeg = encode(quadrants(QSize(16, 16)), "jpeg", 90);
    const qsizetype frame = jpeg.indexOf(QByteArray::fromHex("ffc0"));
    if (frame < 0)
        return {};
    // FFC0, length (2), precision (1), height (2), width (2).
    qToBigEndian(height, jpeg.data() + frame + 5);
    qToBigEndian(width, jpeg.data() + frame + 7);
    return jpeg;
}

QByteArray mngDeclaring(quint32 width, quint32 height)
{
    // Frame width and height, ticks per second, layer count, frame count, play time, simplicity profile.
    QByteArray header(28, '\0');
    qToBigEndian(width, header.data());
    qToBigEndian(height, header.data() + 4);
    qToBigEndian(quint32(1), header.data() + 8);
    qToBigEndian(quint32(1), header.data() + 24);
    return QByteArray("\x8aMNG\r\n\x1a\n", 8) + pngChunk("MHDR", header);
}

QByteArray gifDeclaring(quint16 width, quint16 height)
{
    QByteArray gif("GIF89a");
    QByteArray screen(7, '\0');
    qToLittleEndian(width, screen.data());
    qToLittleEndian(height, screen.data() + 2);
    screen[4] = char(0x80); // a global colour table of two entries
    gif += screen + QByteArray::fromHex("000000ffffff");
    // One 1×1 frame at the origin, its LZW data (minimum code size 2), the trailer.
    gif += QByteArray::fromHex("2c00000000010001000002024401003b");
    return gif;
}

QByteArray iconHolding(const char* format, const QByteArray& png)
{
    if (qstrcmp(format, "icns") == 0) {
        // One 1024×1024 retina entry.
        QByteArray entry("ic10");
        entry.append(4, '\0');
        qToBigEndian(quint32(8 + png.size()), entry.data() + 4);
        QByteArray icns("icns");
        icns.append(4, '\0');
        qToBigEndian(quint32(8 + entry.size() + png.size()), icns.data() + 4);
        return icns + entry + png;
    }
    // Reserved, type 1 (icon), one entry: 256 × 256 (stored as 0), no palette, 1 plane, 32 bits, size,
    // offset.
    QByteArray ico = QByteArray::fromHex("000001000100") + QByteArray::fromHex("0000000001002000");
    QByteArray sizeAndOffset(8, '\0');
    qToLittleEndian(quint32(png.size()), sizeAndOffset.data());
    qToLittleEndian(quint32(6 + 16), sizeAndOffset.data() + 4);
    return ico + sizeAndOffset + png;
}

bool writeFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

QByteArray readFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString photoPath()
{
    return QStringLiteral(QUORVANE_SOURCE_DIR "/examples/demo/assets/Dragonfly_by_Bolly.jpg");
}

} // namespace TestImages
