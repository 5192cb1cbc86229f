#include "ExifExport.h"

#include "Editor/Helpers/ExifReader.h"

#include <QtEndian>

#include <algorithm>
#include <array>
#include <vector>

namespace {

enum Tag : quint16 {
    kOrientation = 0x0112,
    kXResolution = 0x011A,
    kYResolution = 0x011B,
    kResolutionUnit = 0x0128,
    kSoftware = 0x0131,
    kExifPointer = 0x8769,
    kGpsPointer = 0x8825,
    kYCbCrPositioning = 0x0213,
    kExifVersion = 0x9000,
    kComponentsConfiguration = 0x9101,
    kFlashpixVersion = 0xA000,
    kColorSpace = 0xA001,
    kPixelXDimension = 0xA002,
    kPixelYDimension = 0xA003,
};

// The GPS directory's tags run from its version (0) to its differential correction (31).
constexpr quint16 kLastGpsTag = 0x001F;

enum Type : quint16 { kAscii = 2, kShort = 3, kLong = 4, kRational = 5, kUndefined = 7 };

// What the copy keeps: when and with what it was taken, and who holds its rights. Serial numbers, the owner's
// name, the unique image id, the maker note, user comments and the thumbnail's directory are not here.
constexpr std::array<quint16, 10> kKeptInImage = {
    0x010E, // ImageDescription
    0x010F, // Make
    0x0110, // Model
    kXResolution, kYResolution, kResolutionUnit,
    0x0132, // DateTime
    0x013B, // Artist
    0x8298, // Copyright
    kExifPointer,
};

constexpr std::array<quint16, 42> kKeptInExif = {
    0x829A, // ExposureTime
    0x829D, // FNumber
    0x8822, // ExposureProgram
    0x8827, // ISO
    0x8830, // SensitivityType
    0x8831, // StandardOutputSensitivity
    0x8832, // RecommendedExposureIndex
    0x8833, // ISOSpeed
    0x8834, // ISOSpeedLatitudeyyy
    0x8835, // ISOSpeedLatitudezzz
    kExifVersion,
    0x9003, // DateTimeOriginal
    0x9004, // DateTimeDigitized
    0x9010, // OffsetTime
    0x9011, // OffsetTimeOriginal
    0x9012, // OffsetTimeDigitized
    0x9201, // ShutterSpeedValue
    0x9202, // ApertureValue
    0x9203, // BrightnessValue
    0x9204, // ExposureBiasValue
    0x9205, // MaxApertureValue
    0x9206, // SubjectDistance
    0x9207, // MeteringMode
    0x9208, // LightSource
    0x9209, // Flash
    0x920A, // FocalLength
    0x9290, // SubSecTime
    0x9291, // SubSecTimeOriginal
    0x9292, // SubSecTimeDigitized
    kFlashpixVersion, kColorSpace,
    0xA402, // ExposureMode
    0xA403, // WhiteBalance
    0xA404, // DigitalZoomRatio
    0xA405, // FocalLengthIn35mmFilm
    0xA406, // SceneCaptureType
    0xA408, // Contrast
    0xA409, // Saturation
    0xA40A, // Sharpness
    0xA432, // LensSpecification
    0xA433, // LensMake
    0xA434, // LensModel
};

template <size_t N> bool isAmong(const std::array<quint16, N>& tags, quint16 tag)
{
    return std::find(tags.begin(), tags.end(), tag) != tags.end();
}

class Writer
{
public:
    explicit Writer(bool bigEndian)
        : m_bigEndian(bigEndian)
    {}

    QByteArray u16(quint16 value) const
    {
        QByteArray bytes(2, '\0');
        auto* p = reinterpret_cast<uchar*>(bytes.data());
        m_bigEndian ? qToBigEndian(value, p) : qToLittleEndian(value, p);
        return bytes;
    }
    QByteArray u32(quint32 value) const
    {
        QByteArray bytes(4, '\0');
        auto* p = reinterpret_cast<uchar*>(bytes.data());
        m_bigEndian ? qToBigEndian(value, p) : qToLittleEndian(value, p);
        return bytes;
    }

    // The directories one after another, then the values that do not fit in their entries.
    QByteArray tiff(std::vector<std::vector<ExifEntry>> directories) const
    {
        QByteArray out = m_bigEndian ? QByteArray("MM\0*", 4) : QByteArray("II*\0", 4);
        out += u32(8);
        std::vector<quint32> starts;
        quint32 at = 8;
        for (auto& entries : directories) {
            std::sort(entries.begin(), entries.end(),
                      [](const ExifEntry& a, const ExifEntry& b) { return a.tag < b.tag; });
            starts.push_back(at);
            at += quint32(2 + 12 * entries.size() + 4);
        }
        // Each directory's pointer to the next one (if it has one) is filled in here.
        for (size_t d = 0; d < directories.size(); ++d) {
            for (ExifEntry& entry : directories[d]) {
                if (entry.tag == kExifPointer && d + 1 < directories.size())
                    entry.value = u32(starts[1]);
                if (entry.tag == kGpsPointer)
                    entry.value = u32(starts.back());
            }
        }
        QByteArray data;
        for (const auto& entries : directories) {
            out += u16(quint16(entries.size()));
            for (const ExifEntry& entry : entries) {
                out += u16(entry.tag) + u16(entry.type) + u32(entry.count);
                if (entry.value.size() <= 4) {
                    out += entry.value + QByteArray(4 - entry.value.size(), '\0');
                } else {
                    out += u32(at + quint32(data.size()));
                    data += entry.value;
                    if (data.size() % 2 == 1)
                        data += '\0';
                }
            }
            out += u32(0);
        }
        return out + data;
    }

private:
    bool m_bigEndian;
};

qsizetype valueBytes(const std::vector<std::vector<ExifEntry>>& directories)
{
    qsizetype bytes = 8;
    for (const auto& entries : directories) {
        bytes += 6;
        for (const ExifEntry& entry : entries)
            bytes += 12 + (entry.value.size() > 4 ? entry.value.size() + 1 : 0);
    }
    return bytes;
}

// Drops the largest of the source's values until the block fits one JPEG segment: a long description gives
// way before the date and the camera do.
void fit(std::vector<std::vector<ExifEntry>>& directories)
{
    while (valueBytes(directories) > kMaxExifBytes) {
        ExifEntry* largest = nullptr;
        for (auto& entries : directories) {
            for (ExifEntry& entry : entries) {
                if (!largest || entry.value.size() > largest->value.size())
                    largest = &entry;
            }
        }
        if (!largest || largest->value.size() <= 4)
            return;
        for (auto& entries : directories)
            std::erase_if(entries, [largest](const ExifEntry& entry) { return &entry == largest; });
    }
}

} // namespace

ExifExport exportedExif(QByteArrayView source, const QuorvaneSdkImageMetadataPolicy& policy, QSize written,
                        QByteArrayView software, bool jpeg)
{
    ExifExport result;
    if (source.isEmpty() || policy.stripAll)
        return result;
    const auto reader = ExifReader::open(source);
    if (!reader) {
        result.damaged = true;
        return result;
    }
    const Writer writer(reader->bigEndian());

    std::vector<ExifEntry> image = reader->directory(
        reader->firstDirectory(),
        [](quint16 tag) { return isAmong(kKeptInImage, tag) || tag == kGpsPointer; }, result.damaged);
    if (result.damaged && image.empty())
        return result;
    std::vector<ExifEntry> exif;
    if (const auto offset = reader->number(image, kExifPointer))
        exif = reader->directory(
            *offset, [](quint16 tag) { return isAmong(kKeptInExif, tag); }, result.damaged);
    std::vector<ExifEntry> gps;
    if (const auto offset = reader->number(image, kGpsPointer); offset && policy.keepLocation)
        gps = reader->directory(
            *offset, [](quint16 tag) { return tag <= kLastGpsTag; }, result.damaged);
    std::erase_if(
        image, [](const ExifEntry& entry) { return entry.tag == kExifPointer || entry.tag == kGpsPointer; });

    QByteArray softwareText = software.toByteArray();
    softwareText += '\0';
    image.push_back({kSoftware, kAscii, quint32(softwareText.size()), softwareText});
    image.push_back({kOrientation, kShort, 1, writer.u16(1)});
    image.push_back({kExifPointer, kLong, 1, writer.u32(0)});
    if (!gps.empty())
        image.push_back({kGpsPointer, kLong, 1, writer.u32(0)});
    if (jpeg) {
        // What the encoder writes: YCbCr, chroma samples centred.
        image.push_back({kYCbCrPositioning, kShort, 1, writer.u16(1)});
        exif.push_back({kComponentsConfiguration, kUndefined, 4, QByteArray("\1\2\3\0", 4)});
    }
    // What every EXIF block must hold, for sources that left it out.
    const auto addMissing = [](std::vector<ExifEntry>& entries, ExifEntry entry) {
        if (std::none_of(entries.begin(), entries.end(),
                         [&entry](const ExifEntry& e) { return e.tag == entry.tag; }))
            entries.push_back(std::move(entry));
    };
    const QByteArray seventyTwo = writer.u32(72) + writer.u32(1);
    addMissing(image, {kXResolution, kRational, 1, seventyTwo});
    addMissing(image, {kYResolution, kRational, 1, seventyTwo});
    addMissing(image, {kResolutionUnit, kShort, 1, writer.u16(2)});
    addMissing(exif, {kExifVersion, kUndefined, 4, QByteArray("0232")});
    addMissing(exif, {kFlashpixVersion, kUndefined, 4, QByteArray("0100")});
    addMissing(exif, {kColorSpace, kShort, 1, writer.u16(0xFFFF)});
    exif.push_back({kPixelXDimension, kLong, 1, writer.u32(quint32(written.width()))});
    exif.push_back({kPixelYDimension, kLong, 1, writer.u32(quint32(written.height()))});

    std::vector<std::vector<ExifEntry>> directories{std::move(image), std::move(exif)};
    if (!gps.empty())
        directories.push_back(std::move(gps));
    fit(directories);
    result.tiff = writer.tiff(std::move(directories));
    return result;
}
