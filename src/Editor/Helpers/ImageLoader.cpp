#include "ImageLoader.h"

#include "ImageHelpers.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <cstring>

namespace {

constexpr uchar kMarker = 0xFF;
constexpr uchar kStartOfImage = 0xD8;
constexpr uchar kEndOfImage = 0xD9;
constexpr uchar kStartOfScan = 0xDA;

bool isStandaloneMarker(uchar marker)
{
    return (marker >= 0xD0 && marker <= 0xD7) || marker == 0x01;
}

// Returns the position of the marker that ends the entropy-coded data starting at pos, or -1.
qsizetype endOfScan(const uchar* data, qsizetype size, qsizetype pos)
{
    while (pos < size) {
        const void* found = std::memchr(data + pos, kMarker, static_cast<size_t>(size - pos));
        if (!found)
            return -1;
        const qsizetype at = static_cast<const uchar*>(found) - data;
        if (at + 1 >= size)
            return -1;
        const uchar next = data[at + 1];
        if (next != 0x00 && next != kMarker && !isStandaloneMarker(next))
            return at;
        pos = at + 1;
    }
    return -1;
}

QString sentence(const QString& path, const QString& what)
{
    return QStringLiteral("\"%1\" %2").arg(path, what);
}

} // namespace

bool jpegStreamIsComplete(QByteArrayView bytes)
{
    const auto* data = reinterpret_cast<const uchar*>(bytes.data());
    const qsizetype size = bytes.size();
    if (size < 4 || data[0] != kMarker || data[1] != kStartOfImage)
        return false;
    qsizetype pos = 2;
    while (pos < size) {
        if (data[pos] != kMarker) {
            // Stray bytes between segments: decoders skip them, so do we.
            ++pos;
            continue;
        }
        while (pos < size && data[pos] == kMarker)
            ++pos;
        if (pos >= size)
            return false;
        const uchar marker = data[pos++];
        if (marker == kEndOfImage)
            return true;
        if (isStandaloneMarker(marker))
            continue;
        if (pos + 2 > size)
            return false;
        const qsizetype length = (qsizetype(data[pos]) << 8) | data[pos + 1];
        if (length < 2)
            return false;
        pos += length;
        if (pos > size)
            return false;
        if (marker == kStartOfScan) {
            pos = endOfScan(data, size, pos);
            if (pos < 0)
                return false;
        }
    }
    return false;
}

ImageLoadResult loadImageFile(const QString& path, qint64 maxPixels)
{
    if (maxPixels < 1)
        return {std::nullopt, QStringLiteral("No image fits a pixel limit of %1.").arg(maxPixels)};
    // Far beyond any bitmap, and keeps the byte arithmetic below within range.
    maxPixels = std::min<qint64>(maxPixels, qint64(1) << 40);
    const QFileInfo info(path);
    if (!info.exists())
        return {std::nullopt, sentence(path, QStringLiteral("does not exist."))};
    if (!info.isFile())
        return {std::nullopt, sentence(path, QStringLiteral("is not a regular file."))};
    if (info.size() == 0)
        return {std::nullopt, sentence(path, QStringLiteral("is empty."))};

    // Read, not mapped: a file cut short by another process while it is decoded must fail the load, not
    // bring the host down. No honest file of the allowed size is larger than its pixels at 8 bytes each.
    const qint64 maxFileBytes = maxPixels * 8 + 16 * 1024 * 1024;
    if (info.size() > maxFileBytes)
        return {std::nullopt,
                sentence(path, QStringLiteral("is larger than any image within the pixel limit."))};
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {std::nullopt, sentence(path, QStringLiteral("cannot be read: %1.").arg(file.errorString()))};
    const QByteArray bytes = file.read(info.size());
    if (bytes.isEmpty())
        return {std::nullopt, sentence(path, QStringLiteral("cannot be read: %1.").arg(file.errorString()))};

    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    reader.setAutoTransform(true);
    reader.setDecideFormatFromContent(true);
    if (!reader.canRead())
        return {std::nullopt,
                sentence(path, QStringLiteral("is not an image in a format that can be read."))};

    const QSize declared = reader.size();
    if (declared.isValid() && qint64(declared.width()) * declared.height() > maxPixels) {
        return {std::nullopt,
                sentence(path, QStringLiteral("declares %1×%2 pixels, more than the limit of %3.")
                                   .arg(declared.width())
                                   .arg(declared.height())
                                   .arg(maxPixels))};
    }
    // Guards the decoders whose header does not tell the size: the limit's pixels in the format the decoder
    // announces (4 bytes when it does not say).
    // Some decoders answer with an undefined value for a damaged header: only known formats are asked about.
    const int format = int(reader.imageFormat());
    const int bytesPerPixel =
        format <= int(QImage::Format_Invalid) || format >= int(QImage::NImageFormats)
            ? 4
            : std::max(1, QImage::toPixelFormat(QImage::Format(format)).bitsPerPixel() / 8);
    const qint64 limitMiB = (maxPixels * bytesPerPixel) / (1024 * 1024) + 1;
    reader.setAllocationLimit(static_cast<int>(qMin<qint64>(limitMiB, std::numeric_limits<int>::max())));

    if (reader.format() == "jpeg" && !jpegStreamIsComplete(bytes))
        return {std::nullopt, sentence(path, QStringLiteral("is a truncated or damaged JPEG file."))};

    // Decoders fill an image of the right size and format that they are handed, so a photo lands straight in
    // a buffer that is cheap to fault in; a turned photo is replaced by its upright copy, so it gets none.
    QImage image;
    if (declared.isValid() && format > int(QImage::Format_Invalid) && format < int(QImage::NImageFormats) &&
        reader.transformation() == QImageIOHandler::TransformationNone)
        image = ImageHelpers::newImage(declared, QImage::Format(format));
    if (!reader.read(&image) || image.isNull()) {
        return {std::nullopt,
                sentence(path, QStringLiteral("could not be decoded: %1.").arg(reader.errorString()))};
    }
    return {std::move(image), QString()};
}
