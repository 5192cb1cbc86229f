#include "JpegMetadata.h"

#include <QtEndian>

#include <algorithm>

namespace {

constexpr qsizetype kMaxSegmentBody = 65'533;

void appendSegment(QByteArray& out, uchar marker, QByteArrayView header, QByteArrayView body)
{
    const qsizetype length = 2 + header.size() + body.size();
    const char prefix[4] = {char(0xFF), char(marker), char(length >> 8), char(length & 0xFF)};
    out.append(prefix, 4);
    out.append(header);
    out.append(body);
}

} // namespace

QByteArray withJpegMetadata(const QByteArray& jpeg, QByteArrayView exif, QByteArrayView iccProfile)
{
    const auto* data = reinterpret_cast<const uchar*>(jpeg.constData());
    if (jpeg.size() < 4 || data[0] != 0xFF || data[1] != 0xD8)
        return jpeg;
    QByteArray out;
    out.reserve(jpeg.size() + exif.size() + iccProfile.size() + 4096);
    out.append(jpeg.first(2));
    qsizetype at = 2;
    bool inserted = false;
    const auto insert = [&] {
        inserted = true;
        if (!exif.isEmpty() && exif.size() + 6 <= kMaxSegmentBody)
            appendSegment(out, 0xE1, QByteArrayView("Exif\0\0", 6), exif);
        constexpr qsizetype kPiece = kMaxSegmentBody - 14;
        const qsizetype pieces = (iccProfile.size() + kPiece - 1) / kPiece;
        if (pieces > 255)
            return;
        for (qsizetype piece = 0; piece < pieces; ++piece) {
            const QByteArray header = QByteArray("ICC_PROFILE\0", 12) + char(piece + 1) + char(pieces);
            appendSegment(
                out, 0xE2, header,
                iccProfile.sliced(piece * kPiece, std::min(kPiece, iccProfile.size() - piece * kPiece)));
        }
    };
    // The encoder writes only whole segments up to the first scan; everything from there on is copied.
    while (at + 4 <= jpeg.size() && data[at] == 0xFF) {
        const uchar marker = data[at + 1];
        if (marker == 0xDA)
            break;
        const qsizetype length = qFromBigEndian<quint16>(data + at + 2);
        if (at + 2 + length > jpeg.size())
            break;
        if (marker != 0xE0 && !inserted)
            insert();
        // Comments, EXIF, XMP, profiles and IPTC are the source's business, not the encoder's.
        const bool metadata = marker == 0xFE || (marker >= 0xE1 && marker <= 0xEF);
        if (!metadata)
            out.append(jpeg.sliced(at, 2 + length));
        at += 2 + length;
    }
    if (!inserted)
        insert();
    out.append(jpeg.sliced(at));
    return out;
}
