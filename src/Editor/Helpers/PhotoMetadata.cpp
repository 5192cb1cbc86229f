#include "PhotoMetadata.h"

#include "ExifReader.h"

#include <QColorSpace>
#include <QtEndian>

#include <zlib.h>

#include <array>
#include <cstring>

namespace {

const QByteArrayView kExifHeader("Exif\0\0", 6);
const QByteArrayView kIccHeader("ICC_PROFILE\0", 12);

QByteArray inflatedIccProfile(QByteArrayView packed, bool& damaged)
{
    z_stream stream{};
    if (inflateInit(&stream) != Z_OK) {
        damaged = true;
        return {};
    }
    QByteArray profile;
    std::array<Bytef, 16384> chunk{};
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(packed.data()));
    stream.avail_in = uInt(packed.size());
    int status = Z_OK;
    while (status == Z_OK) {
        stream.next_out = chunk.data();
        stream.avail_out = uInt(chunk.size());
        status = inflate(&stream, Z_NO_FLUSH);
        profile.append(reinterpret_cast<const char*>(chunk.data()),
                       qsizetype(chunk.size() - stream.avail_out));
        // A small chunk may unpack to gigabytes: stop at the largest profile worth keeping.
        if (profile.size() > kMaxIccProfileBytes) {
            status = Z_DATA_ERROR;
            break;
        }
        if (status == Z_BUF_ERROR && stream.avail_in == 0)
            break;
    }
    inflateEnd(&stream);
    if (status != Z_STREAM_END) {
        damaged = true;
        return {};
    }
    return profile;
}

PhotoMetadata readPng(QByteArrayView file)
{
    PhotoMetadata metadata;
    const auto* data = reinterpret_cast<const uchar*>(file.data());
    qsizetype at = 8;
    while (at + 8 <= file.size()) {
        const qsizetype length = qFromBigEndian<quint32>(data + at);
        const QByteArrayView type = file.sliced(at + 4, 4);
        if (length > file.size() - at - 12) {
            // A chunk that runs past the file: the pixels are damaged too, and the decoder says so.
            break;
        }
        const QByteArrayView body = file.sliced(at + 8, length);
        if (type == "IDAT" || type == "IEND")
            break;
        if (type == "eXIf" && metadata.exif.isEmpty()) {
            metadata.exif = body.toByteArray();
        } else if (type == "iCCP" && metadata.iccProfile.isEmpty()) {
            const qsizetype nameEnd = body.indexOf('\0');
            if (nameEnd < 1 || nameEnd > 79 || nameEnd + 2 > body.size() || body[nameEnd + 1] != 0)
                metadata.damaged = true;
            else
                metadata.iccProfile = inflatedIccProfile(body.sliced(nameEnd + 2), metadata.damaged);
        }
        at += length + 12;
    }
    return metadata;
}

PhotoMetadata readJpeg(QByteArrayView file)
{
    PhotoMetadata metadata;
    const auto* data = reinterpret_cast<const uchar*>(file.data());
    // Profile pieces by their sequence number (1 to 255), as the segments number them.
    std::array<QByteArrayView, 256> pieces{};
    int pieceCount = 0;
    qsizetype at = 2;
    while (at + 4 <= file.size()) {
        if (data[at] != 0xFF) {
            ++at;
            continue;
        }
        const uchar marker = data[at + 1];
        if (marker == 0xFF) {
            ++at;
            continue;
        }
        if (marker == 0xD9 || marker == 0xDA)
            break;
        if ((marker >= 0xD0 && marker <= 0xD7) || marker == 0x01) {
            at += 2;
            continue;
        }
        const qsizetype length = qFromBigEndian<quint16>(data + at + 2);
        if (length < 2 || at + 2 + length > file.size())
            break;
        const QByteArrayView body = file.sliced(at + 4, length - 2);
        if (marker == 0xE1 && body.startsWith(kExifHeader) && metadata.exif.isEmpty()) {
            metadata.exif = body.sliced(kExifHeader.size()).toByteArray();
        } else if (marker == 0xE2 && body.startsWith(kIccHeader) && body.size() > kIccHeader.size() + 2) {
            const int sequence = uchar(body[kIccHeader.size()]);
            const int count = uchar(body[kIccHeader.size() + 1]);
            if (sequence < 1 || count < 1 || sequence > count || (pieceCount != 0 && count != pieceCount) ||
                !pieces[size_t(sequence)].isNull()) {
                metadata.damaged = true;
            } else {
                pieceCount = count;
                pieces[size_t(sequence)] = body.sliced(kIccHeader.size() + 2);
            }
        }
        at += 2 + length;
    }
    if (pieceCount > 0) {
        QByteArray profile;
        for (int sequence = 1; sequence <= pieceCount; ++sequence) {
            if (pieces[size_t(sequence)].isNull()) {
                metadata.damaged = true;
                return metadata;
            }
            profile.append(pieces[size_t(sequence)]);
        }
        metadata.iccProfile = std::move(profile);
    }
    return metadata;
}

} // namespace

PhotoMetadata readPhotoMetadata(QByteArrayView file)
{
    if (file.startsWith(QByteArrayView("\x89PNG\r\n\x1a\n", 8)))
        return readPng(file);
    if (file.size() >= 4 && uchar(file[0]) == 0xFF && uchar(file[1]) == 0xD8)
        return readJpeg(file);
    return {};
}

int exifOrientation(QByteArrayView exif)
{
    constexpr quint16 kOrientation = 0x0112;
    const auto reader = ExifReader::open(exif);
    if (!reader)
        return 1;
    bool damaged = false;
    const auto entries = reader->directory(
        reader->firstDirectory(), [](quint16 tag) { return tag == kOrientation; }, damaged);
    const quint32 value = reader->number(entries, kOrientation).value_or(1);
    return value >= 1 && value <= 8 ? int(value) : 1;
}

PhotoMetadata photoMetadataOf(const QImage& image)
{
    PhotoMetadata metadata;
    if (image.colorSpace().isValid())
        metadata.iccProfile = image.colorSpace().iccProfile();
    return metadata;
}

bool iccProfileFits(QByteArrayView profile, bool grey)
{
    // The header is 128 bytes and a tag count; its first field is the profile's own length.
    if (profile.size() < 132 || profile.size() > kMaxIccProfileBytes)
        return false;
    const auto* data = reinterpret_cast<const uchar*>(profile.data());
    if (qFromBigEndian<quint32>(data) != quint32(profile.size()) || profile.sliced(36, 4) != "acsp")
        return false;
    const QByteArrayView space = profile.sliced(16, 4);
    return grey ? space == "GRAY" : space == "RGB ";
}
