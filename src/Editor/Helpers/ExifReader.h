#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QtEndian>

#include <algorithm>
#include <optional>
#include <vector>

/// One directory entry of an EXIF block.
struct ExifEntry
{
    quint16 tag = 0;
    quint16 type = 0;
    quint32 count = 0;
    /// Exactly count values, in the block's byte order.
    QByteArray value;
};

/// Reads the directories of an EXIF block (a TIFF structure) from untrusted bytes: nothing outside the block
/// is ever read, and what lies outside it is left out and reported as damage.
class ExifReader
{
public:
    /// A reader for \a tiff, or none when it does not start as a TIFF structure.
    static std::optional<ExifReader> open(QByteArrayView tiff);

    bool bigEndian() const { return m_bigEndian; }
    /// The offset of the first directory, as the header gives it.
    quint32 firstDirectory() const { return u32(4); }

    /// The entries of the directory at \a offset whose tag \a keep accepts, each tag once (the first, as
    /// readers take it). Sets \a damaged when the directory or a value runs past the block.
    template <typename Keep> std::vector<ExifEntry> directory(quint32 offset, Keep keep, bool& damaged) const
    {
        std::vector<ExifEntry> entries;
        if (offset < 8 || qsizetype(offset) + 2 > m_tiff.size()) {
            damaged = true;
            return entries;
        }
        const qsizetype declared = u16(offset);
        const qsizetype fitting = (m_tiff.size() - offset - 2) / 12;
        if (declared > fitting)
            damaged = true;
        const qsizetype count = std::min(declared, fitting);
        for (qsizetype i = 0; i < count; ++i) {
            const qsizetype at = offset + 2 + i * 12;
            const quint16 tag = u16(at);
            if (!keep(tag))
                continue;
            ExifEntry entry{tag, u16(at + 2), u32(at + 4), {}};
            const qint64 bytes = qint64(entry.count) * typeSize(entry.type);
            if (bytes == 0)
                continue;
            const qint64 from = bytes > 4 ? qint64(u32(at + 8)) : qint64(at + 8);
            if (from + bytes > m_tiff.size()) {
                damaged = true;
                continue;
            }
            if (std::any_of(entries.begin(), entries.end(),
                            [tag](const ExifEntry& e) { return e.tag == tag; }))
                continue;
            entry.value = m_tiff.sliced(qsizetype(from), qsizetype(bytes)).toByteArray();
            entries.push_back(std::move(entry));
        }
        return entries;
    }

    /// The single unsigned number (SHORT, LONG or directory offset) that \a tag holds among \a entries.
    std::optional<quint32> number(const std::vector<ExifEntry>& entries, quint16 tag) const;

    /// Bytes per value of an EXIF type; 0 for types that are not defined.
    static int typeSize(quint16 type);

private:
    ExifReader(QByteArrayView tiff, bool bigEndian)
        : m_tiff(tiff)
        , m_bigEndian(bigEndian)
    {}

    quint16 u16(qsizetype at) const
    {
        const auto* p = reinterpret_cast<const uchar*>(m_tiff.data()) + at;
        return m_bigEndian ? qFromBigEndian<quint16>(p) : qFromLittleEndian<quint16>(p);
    }
    quint32 u32(qsizetype at) const
    {
        const auto* p = reinterpret_cast<const uchar*>(m_tiff.data()) + at;
        return m_bigEndian ? qFromBigEndian<quint32>(p) : qFromLittleEndian<quint32>(p);
    }

    QByteArrayView m_tiff;
    bool m_bigEndian;
};
