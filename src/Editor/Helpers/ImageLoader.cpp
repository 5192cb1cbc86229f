#include "ImageLoader.h"

#include "ImageGeometry.h"
#include "ImageHelpers.h"
#include "JpegDecoder.h"

#include <QBuffer>
#include <QColorSpace>
#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QtEndian>
#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

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

void grow(QSize& size, qint64 width, qint64 height)
{
    constexpr qint64 kMax = std::numeric_limits<int>::max();
    size = QSize(int(std::clamp<qint64>(std::max<qint64>(width, size.width()), 0, kMax)),
                 int(std::clamp<qint64>(std::max<qint64>(height, size.height()), 0, kMax)));
}

// Grows size by the PNG at data, if there is one.
bool growByPng(QSize& size, const uchar* data, qsizetype available)
{
    static constexpr uchar kSignature[] = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n',
                                           0,    0,   0,   13,  'I',  'H',  'D',  'R'};
    if (available < 24 || std::memcmp(data, kSignature, sizeof(kSignature)) != 0)
        return false;
    grow(size, qFromBigEndian<quint32>(data + 16), qFromBigEndian<quint32>(data + 20));
    return true;
}

// Whether the file says how many pixels go to an inch: a JFIF header with a unit, or a PNG's pHYs chunk in
// metres. Where it says nothing, decoders leave the image with whatever their application assumes.
bool declaresDensity(QByteArrayView bytes)
{
    const auto* data = reinterpret_cast<const uchar*>(bytes.data());
    const qsizetype size = bytes.size();
    if (size >= 18 && data[0] == kMarker && data[1] == kStartOfImage && data[2] == kMarker &&
        data[3] == 0xE0 && bytes.sliced(6).startsWith(QByteArrayView("JFIF\0", 5)))
        return (data[13] == 1 || data[13] == 2) && qFromBigEndian<quint16>(data + 14) > 0 &&
               qFromBigEndian<quint16>(data + 16) > 0;
    if (size < 8 || !bytes.startsWith("\x89PNG"))
        return false;
    for (qsizetype at = 8; at + 12 <= size;) {
        const qint64 length = qFromBigEndian<quint32>(data + at);
        const QByteArrayView type = bytes.sliced(at + 4, 4);
        if (type == "IDAT" || length > size - at - 12)
            return false;
        if (type == "pHYs")
            return length == 9 && data[at + 16] == 1;
        at += 12 + qsizetype(length);
    }
    return false;
}

// The largest picture that a file's own headers declare where its decoder allocates more than its reader
// reports: a GIF's logical screen (the reader tells the first frame's), the pictures inside an icon file (the
// reader tells the directory's sizes, or none). Invalid for other files.
QSize sizeInHeaders(QByteArrayView bytes)
{
    const auto* data = reinterpret_cast<const uchar*>(bytes.data());
    const qsizetype size = bytes.size();
    QSize largest(-1, -1);
    if (size >= 10 && (bytes.startsWith("GIF87a") || bytes.startsWith("GIF89a"))) {
        grow(largest, qFromLittleEndian<quint16>(data + 6), qFromLittleEndian<quint16>(data + 8));
    } else if (size >= 8 && bytes.startsWith("icns")) {
        for (qsizetype at = 8; at + 8 <= size;) {
            const qint64 length = qFromBigEndian<quint32>(data + at + 4);
            if (length < 8 || length > size - at)
                break;
            // A raw icon holds at least a bit of data per pixel, and Qt reads none wider than 4096.
            if (!growByPng(largest, data + at + 8, qsizetype(length) - 8)) {
                const auto side =
                    std::min<qint64>(4096, qint64(std::ceil(std::sqrt(double(length - 8) * 8))));
                grow(largest, side, side);
            }
            at += qsizetype(length);
        }
    } else if (size >= 6 && data[0] == 0 && data[1] == 0 && (data[2] == 1 || data[2] == 2) && data[3] == 0) {
        // Icons and cursors: a directory of entries, each a PNG or a bitmap whose height counts its mask too.
        const qint64 count = qFromLittleEndian<quint16>(data + 4);
        for (qint64 entry = 0; entry < count && 6 + (entry + 1) * 16 <= size; ++entry) {
            const uchar* record = data + 6 + entry * 16;
            grow(largest, record[0] == 0 ? 256 : record[0], record[1] == 0 ? 256 : record[1]);
            const qint64 offset = qFromLittleEndian<quint32>(record + 12);
            if (offset + 12 > size)
                continue;
            if (!growByPng(largest, data + offset, size - qsizetype(offset))) {
                const qint64 width = qFromLittleEndian<qint32>(data + offset + 4);
                const qint64 height = qFromLittleEndian<qint32>(data + offset + 8);
                grow(largest, std::abs(width), (std::abs(height) + 1) / 2);
            }
        }
    }
    return largest;
}

// Qt's allocation limit is process-wide: the host's pixel limit holds only while our file is decoded.
class ScopedAllocationLimit
{
public:
    explicit ScopedAllocationLimit(int megabytes)
        : m_previous(QImageReader::allocationLimit())
    {
        QImageReader::setAllocationLimit(megabytes);
    }
    ~ScopedAllocationLimit() { QImageReader::setAllocationLimit(m_previous); }
    Q_DISABLE_COPY_MOVE(ScopedAllocationLimit)

private:
    int m_previous;
};

struct Turn
{
    int quarters;
    bool mirrorLeftRight;
    bool mirrorTopBottom;
};

// What a viewer does to pixels stored with EXIF orientation 1 to 8.
Turn turnFor(int orientation)
{
    static constexpr Turn kTurns[] = {{0, false, false}, {0, true, false}, {2, false, false},
                                      {0, false, true},  {1, true, false}, {1, false, false},
                                      {1, false, true},  {3, false, false}};
    return orientation < 1 || orientation > 8 ? kTurns[0] : kTurns[orientation - 1];
}

// Qt's name for an orientation, as EXIF numbers it.
int exifOrientation(QImageIOHandler::Transformations transformation)
{
    switch (int(transformation)) {
    case QImageIOHandler::TransformationMirror:
        return 2;
    case QImageIOHandler::TransformationRotate180:
        return 3;
    case QImageIOHandler::TransformationFlip:
        return 4;
    case QImageIOHandler::TransformationFlipAndRotate90:
        return 5;
    case QImageIOHandler::TransformationRotate90:
        return 6;
    case QImageIOHandler::TransformationMirrorAndRotate90:
        return 7;
    case QImageIOHandler::TransformationRotate270:
        return 8;
    default:
        return 1;
    }
}

ImageLoadResult failed(QString why)
{
    ImageLoadResult result;
    result.failure = std::move(why);
    return result;
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

ImageHelpers::PixelWalk uprightWalk(QSize stored, int orientation)
{
    const Turn turn = turnFor(orientation);
    return ImageHelpers::pixelWalk(QRect(QPoint(0, 0), stored), turn.quarters, turn.mirrorLeftRight,
                                   turn.mirrorTopBottom);
}

std::optional<QImage> turnedUpright(const QImage& stored, int orientation)
{
    const Turn turn = turnFor(orientation);
    return ImageHelpers::cutTurnedAndMirrored(stored, stored.rect(), turn.quarters, turn.mirrorLeftRight,
                                              turn.mirrorTopBottom);
}

ImageLoadResult loadImageFile(const QString& path, qint64 maxPixels, PixelOrder order,
                              Fingerprint fingerprint)
{
    if (maxPixels < 1)
        return failed(QStringLiteral("No image fits a pixel limit of %1.").arg(maxPixels));
    // Far beyond any bitmap, and keeps the byte arithmetic below within range.
    maxPixels = std::min<qint64>(maxPixels, qint64(1) << 40);
    const QFileInfo info(path);
    if (!info.exists())
        return failed(sentence(path, QStringLiteral("does not exist.")));
    if (!info.isFile())
        return failed(sentence(path, QStringLiteral("is not a regular file.")));
    if (info.size() == 0)
        return failed(sentence(path, QStringLiteral("is empty.")));

    // Read, not mapped: a file cut short by another process while it is decoded must fail the load, not
    // bring the host down. No honest file of the allowed size is larger than its pixels at 8 bytes each.
    const qint64 maxFileBytes = maxPixels * 8 + 16 * 1024 * 1024;
    if (info.size() > maxFileBytes)
        return failed(sentence(path, QStringLiteral("is larger than any image within the pixel limit.")));
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return failed(sentence(path, QStringLiteral("cannot be read: %1.").arg(file.errorString())));
    const QByteArray bytes = file.read(info.size());
    if (bytes.isEmpty())
        return failed(sentence(path, QStringLiteral("cannot be read: %1.").arg(file.errorString())));

    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    // Photos are named by their first bytes: asking every format's plugin whether it reads them would load
    // them all (a tenth of a 1 × 1 edit's time).
    const QByteArray named = bytes.startsWith("\xFF\xD8\xFF")        ? QByteArray("jpeg")
                             : bytes.startsWith("\x89PNG\r\n\x1A\n") ? QByteArray("png")
                                                                     : QByteArray();
    QImageReader reader(&buffer, named);
    // Turned by us, in one pass from the decoded pixels: Qt's turn costs two more photo-sized buffers.
    reader.setAutoTransform(false);
    reader.setDecideFormatFromContent(named.isEmpty());
    reader.setAutoDetectImageFormat(named.isEmpty());
    if (!reader.canRead())
        return failed(sentence(path, QStringLiteral("is not an image in a format that can be read.")));

    // MNG is a language of frames, loops, clones and magnifications that its decoder allocates for outside
    // Qt's allocation limit: no header tells what a file will cost.
    if (reader.format() == "mng")
        return failed(sentence(path, QStringLiteral("is an MNG animation, which is not opened: its "
                                                    "decoder's memory use cannot be bounded.")));
    const QSize declared = reader.size();
    QSize largest = sizeInHeaders(bytes);
    if (declared.isValid())
        grow(largest, declared.width(), declared.height());
    // A file must tell its size before anything is allocated for it.
    if (!largest.isValid())
        return failed(
            sentence(path, QStringLiteral("could not be decoded: its header does not tell its size.")));
    if (qint64(largest.width()) * largest.height() > maxPixels) {
        return failed(sentence(path, QStringLiteral("declares %1×%2 pixels, more than the limit of %3.")
                                         .arg(largest.width())
                                         .arg(largest.height())
                                         .arg(maxPixels)));
    }
    // Against decoders that allocate more than their file declared: the limit's pixels in the format the
    // decoder announces, and never fewer than 4 bytes each, which palette and grey files may still expand to.
    // Some decoders answer with an undefined value for a damaged header: only known formats are asked about.
    const int format = int(reader.imageFormat());
    const bool knownFormat = format > int(QImage::Format_Invalid) && format < int(QImage::NImageFormats);
    const int bytesPerPixel =
        knownFormat ? std::max(4, QImage::toPixelFormat(QImage::Format(format)).bitsPerPixel() / 8) : 4;
    // Rounded up: a picture right at the limit must still fit.
    const qint64 limitMiB = std::max<qint64>(1, (maxPixels * bytesPerPixel + (1 << 20) - 1) >> 20);

    // Asked before reading: the reader forgets the format once it has read.
    const bool isPng = reader.format() == "png";
    const bool isJpeg = reader.format() == "jpeg";
    const QImageIOHandler::Transformations transformation = reader.transformation();
    if (isJpeg && !jpegStreamIsComplete(bytes))
        return failed(sentence(path, QStringLiteral("is a truncated or damaged JPEG file.")));

    // Decoders fill an image of the right size and format that they are handed, so a photo lands straight in
    // a buffer that is cheap to fault in.
    QImage image;
    bool read = false;
    // As stored, a photo is decoded packed: whoever cuts it reads three bytes a pixel as easily as four.
    if (isJpeg && order == PixelOrder::AsStored) {
        image = decodedJpeg(bytes);
        read = !image.isNull();
    }
    if (!read) {
        if (declared.isValid() && knownFormat)
            image = ImageHelpers::newImage(declared, QImage::Format(format));
        const ScopedAllocationLimit limit(int(std::min<qint64>(limitMiB, std::numeric_limits<int>::max())));
        read = reader.read(&image);
    }
    if (!read || image.isNull()) {
        return failed(sentence(path, QStringLiteral("could not be decoded: %1.").arg(reader.errorString())));
    }
    if (qint64(image.width()) * image.height() > maxPixels) {
        return failed(sentence(path, QStringLiteral("holds %1×%2 pixels, more than the limit of %3.")
                                         .arg(image.width())
                                         .arg(image.height())
                                         .arg(maxPixels)));
    }
    PhotoMetadata metadata = readPhotoMetadata(bytes);
    // What Qt's reader takes from the profile it finds.
    if (isJpeg && !image.colorSpace().isValid() && !metadata.iccProfile.isEmpty())
        image.setColorSpace(QColorSpace::fromIccProfile(metadata.iccProfile));
    // Qt reads the orientation of JPEG and TIFF files but not a PNG's eXIf chunk, which says the same.
    const int stored = isPng ? exifOrientation(metadata.exif) : exifOrientation(transformation);
    int orientation = stored >= 1 && stored <= 8 ? stored : 1;
    if (order == PixelOrder::Upright && orientation != 1) {
        std::optional<QImage> upright = turnedUpright(image, orientation);
        if (!upright)
            return failed(sentence(path, QStringLiteral("could not be turned upright: not enough memory.")));
        image = std::move(*upright);
        orientation = 1;
    }
    // 72 pixels an inch, what cameras write, rather than a density that depends on the application: an
    // edit saved by the editor and replayed by the tool must be the same file.
    if (!declaresDensity(bytes)) {
        image.setDotsPerMeterX(2835);
        image.setDotsPerMeterY(2835);
    }
    const auto policy = fingerprint == Fingerprint::InBackground ? std::launch::async : std::launch::deferred;
    std::shared_future<QString> sha256 = std::async(policy, [bytes] {
        return QString::fromLatin1(QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex());
    });
    return {std::move(image), QString(), std::move(metadata), std::move(sha256), orientation};
}
