#include "Editor/Helpers/ImageLoader.h"
#include "Editor/ImageSaver/ExifExport.h"
#include "Editor/ImageSaver/ImageSaverImp.h"
#include "Emulation.h"
#include "ExifTool.h"
#include "TestImages.h"

#include <QColorSpace>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <QtEndian>

using namespace TestImages;

namespace {

template <typename T> QByteArray bigEndian(T value)
{
    QByteArray bytes(sizeof(T), '\0');
    qToBigEndian(value, bytes.data());
    return bytes;
}

const auto be16 = bigEndian<quint16>;
const auto be32 = bigEndian<quint32>;

QByteArray entry(quint16 tag, quint16 type, quint32 count, QByteArray valueOrOffset)
{
    return be16(tag) + be16(type) + be32(count) + valueOrOffset.leftJustified(4, '\0');
}

// A big-endian TIFF whose first directory at offset 8 declares `declared` entries and holds `entries`.
QByteArray tiff(quint16 declared, const QByteArray& entries, const QByteArray& after = {})
{
    return QByteArray("MM\0*", 4) + be32(8) + be16(declared) + entries + after;
}

const QByteArray kMake = entry(0x010F, 2, 4, "Cam");

} // namespace

class tst_ExifExport : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;

private slots:
    void hostileBlock_isReadWithinItsBytes_andThePictureStillSaves_data()
    {
        QTest::addColumn<QByteArray>("exif");
        QTest::addColumn<bool>("damaged");
        QTest::addColumn<bool>("keepsMake");

        QTest::newRow("whole") << tiff(1, kMake) << false << true;
        QTest::newRow("directory cut short") << tiff(20, kMake + entry(0x0110, 2, 4, "Mod")) << true << true;
        QTest::newRow("value past the end")
            << tiff(2, entry(0x0110, 2, 100, be32(0xFFFFFF00)) + kMake) << true << true;
        QTest::newRow("count that overflows 32 bits")
            << tiff(2, entry(0x010E, 12, 0xFFFFFFFF, be32(8)) + kMake) << true << true;
        QTest::newRow("directory past the end") << QByteArray("MM\0*", 4) + be32(0xFFFFFFF0) << true << false;
        QTest::newRow("not a TIFF structure") << QByteArray("JUNKJUNKJUNK") << true << false;
        // Sub-directories are followed once, never as a chain: a loop costs one more pass, nothing else.
        QTest::newRow("Exif directory pointing at the first")
            << tiff(2, kMake + entry(0x8769, 4, 1, be32(8))) << false << true;
        QTest::newRow("65,535 entries") << tiff(65535, kMake.repeated(5400)) << true << true;
        QTest::newRow("64 KB maker note")
            << tiff(2, kMake + entry(0x8769, 4, 1, be32(38)),
                    be32(0) + be16(1) + entry(0x927C, 7, 65000, be32(56)) + be32(0) + QByteArray(65000, 'M'))
            << false << true;
    }

    void hostileBlock_isReadWithinItsBytes_andThePictureStillSaves()
    {
        QFETCH(QByteArray, exif);
        QFETCH(bool, damaged);
        QFETCH(bool, keepsMake);

        const ExifExport exported = exportedExif(exif, {}, QSize(40, 30), "us", true);
        QCOMPARE(exported.damaged, damaged);
        QVERIFY(exported.tiff.size() <= 4096);

        // The whole way: a JPEG carrying the block, loaded, saved, read back by exiftool.
        const QString source = m_dir.filePath(QStringLiteral("hostile.jpg"));
        QVERIFY(writeFile(source, withJpegSegment(encode(quadrants(QSize(40, 30)), "jpeg", 90), '\xE1',
                                                  QByteArray("Exif\0\0", 6) + exif)));
        const ImageLoadResult loaded = loadImageFile(source, 1'000'000);
        QVERIFY(loaded.image);
        if (damaged)
            QTest::ignoreMessage(
                QtWarningMsg,
                "Part of the photo's metadata could not be read; the copy is written without it.");
        else
            QTest::failOnWarning(QRegularExpression(QStringLiteral("could not be read")));
        const QUrl written = ImageSaverImp().save(
            *loaded.image, QuorvaneSdkImageOutputFormat::jpg(90),
            QUrl::fromLocalFile(m_dir.filePath(QStringLiteral("out.jpg"))), loaded.metadata, {});
        QUORVANE_SKIP_WITHOUT_PROCESSES();
        const QVariantMap tags = ExifTool::tagsOf(written.toLocalFile());
        QCOMPARE(tags.value(QStringLiteral("File:ImageWidth")).toInt(), 40);
        QCOMPARE(tags.value(QStringLiteral("IFD0:Make")).toString(),
                 keepsMake ? QStringLiteral("Cam") : QString());
        QVERIFY2(ExifTool::keysContaining(tags, u"MakerNote").isEmpty(), "the maker note stays behind");
        if (!exported.tiff.isEmpty())
            QCOMPARE(tags.value(QStringLiteral("ExifTool:Validate")).toString(), QStringLiteral("0 0 0"));
    }

    void hostileProfile_isDroppedWithinBoundedMemory_data()
    {
        QTest::addColumn<QByteArray>("file");

        const QByteArray png = encode(quadrants(QSize(40, 30)), "png");
        // 64 MB of zeros packed into 64 KB: unpacking stops at the largest profile a photo can carry.
        const QByteArray bomb = QByteArray("p\0\0", 3) + qCompress(QByteArray(64 << 20, '\0'), 9).mid(4);
        QTest::newRow("PNG profile that unpacks to 64 MB")
            << png.left(33) + pngChunk("iCCP", bomb) + png.mid(33);
        QTest::newRow("PNG profile that is not zlib")
            << png.left(33) + pngChunk("iCCP", QByteArray("p\0\0junk", 7)) + png.mid(33);

        const QByteArray jpeg = encode(quadrants(QSize(40, 30)), "jpeg", 90);
        const QByteArray piece = QByteArray("ICC_PROFILE\0", 12) + '\2' + '\3' + QByteArray(100, 'x');
        QTest::newRow("JPEG profile missing its first pieces") << withJpegSegment(jpeg, '\xE2', piece);
        const QByteArray header = QColorSpace(QColorSpace::AdobeRgb).iccProfile().left(200);
        const QByteArray liar = QByteArray("ICC_PROFILE\0", 12) + '\1' + '\1' + header;
        QTest::newRow("JPEG profile shorter than its header says") << withJpegSegment(jpeg, '\xE2', liar);
    }

    void hostileProfile_isDroppedWithinBoundedMemory()
    {
        QFETCH(QByteArray, file);
        const QString source = m_dir.filePath(QStringLiteral("profile.img"));
        QVERIFY(writeFile(source, file));
        const ImageLoadResult loaded = loadImageFile(source, 1'000'000);
        QVERIFY(loaded.image);
        QVERIFY(loaded.metadata.iccProfile.size() <= 255 * 65'519);

        QTest::ignoreMessage(QtWarningMsg,
                             QRegularExpression(QStringLiteral("could not be read|does not describe")));
        const QUrl written = ImageSaverImp().save(
            *loaded.image, QuorvaneSdkImageOutputFormat::png(),
            QUrl::fromLocalFile(m_dir.filePath(QStringLiteral("profile.png"))), loaded.metadata, {});
        const QImage saved(written.toLocalFile());
        QCOMPARE(saved.size(), QSize(40, 30));
        QVERIFY(!saved.colorSpace().isValid());
    }
};

QTEST_GUILESS_MAIN(tst_ExifExport)
#include "tst_ExifExport.moc"
