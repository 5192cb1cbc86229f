#include "ExifReader.h"

namespace {

constexpr quint16 kShort = 3;
constexpr quint16 kLong = 4;
constexpr quint16 kIfd = 13;

} // namespace

std::optional<ExifReader> ExifReader::open(QByteArrayView tiff)
{
    if (tiff.size() < 8)
        return std::nullopt;
    if (tiff.startsWith(QByteArrayView("MM\0*", 4)))
        return ExifReader(tiff, true);
    if (tiff.startsWith(QByteArrayView("II*\0", 4)))
        return ExifReader(tiff, false);
    return std::nullopt;
}

std::optional<quint32> ExifReader::number(const std::vector<ExifEntry>& entries, quint16 tag) const
{
    for (const ExifEntry& entry : entries) {
        if (entry.tag != tag || entry.count != 1)
            continue;
        const auto* p = reinterpret_cast<const uchar*>(entry.value.constData());
        if (entry.type == kShort)
            return m_bigEndian ? qFromBigEndian<quint16>(p) : qFromLittleEndian<quint16>(p);
        if (entry.type == kLong || entry.type == kIfd)
            return m_bigEndian ? qFromBigEndian<quint32>(p) : qFromLittleEndian<quint32>(p);
    }
    return std::nullopt;
}

int ExifReader::typeSize(quint16 type)
{
    switch (type) {
    case 1:
    case 2:
    case 6:
    case 7:
        return 1;
    case 3:
    case 8:
        return 2;
    case 4:
    case 9:
    case 11:
    case kIfd:
        return 4;
    case 5:
    case 10:
    case 12:
        return 8;
    default:
        return 0;
    }
}
