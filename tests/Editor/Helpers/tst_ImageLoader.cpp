#include "Editor/Helpers/ImageLoader.h"
#include "Editor/Helpers/JpegDecoder.h"
#include "TestImages.h"

#include <QBuffer>
#include <QImageReader>
#include <QImageWriter>
#include <QTemporaryDir>
#include <QTest>
#include <limits>

using namespace TestImages;

namespace {

// A thumbnail in an APP1 segment: its end marker is not the image's.
QByteArray withThumbnail(const QByteArray& jpeg)
{
    return withJpegSegment(jpeg, '\xE1', encode(quadrants(QSize(8, 8)), "jpeg", 50));
}

// Qt's own JPEG of image, at its default quality.
QByteArray jpegWritten(const QImage& image, bool progressive = false)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, "jpeg");
    writer.setProgressiveScanWrite(progressive);
    writer.write(image);
    return bytes;
}

// Rows named after a format of Qt's optional plugins (qt6-image-formats-plugins), which the arm64 build
// goes without: its package would replace the host's.
bool pluginMissingForRow()
{
    const QByteArray format = QByteArray(QTest::currentDataTag()).split(' ').first();
    return (format == "icns" || format == "mng") && !QImageReader::supportedImageFormats().contains(format);
}

} // namespace

class tst_ImageLoader : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;

    QString write(const QString& name, const QByteArray& bytes)
    {
        const QString path = m_dir.filePath(name);
        if (!writeFile(path, bytes))
            qFatal("cannot write test file %s", qPrintable(path));
        return path;
    }

private slots:
    void exifOrientation_isApplied_data()
    {
        QTest::addColumn<int>("orientation");
        for (int orientation = 1; orientation <= 8; ++orientation)
            QTest::addRow("orientation %d", orientation) << orientation;
    }

    void exifOrientation_isApplied()
    {
        QFETCH(int, orientation);
        const QImage upright = quadrants(QSize(64, 32));
        const QImage stored = displayed(upright, inverseOrientation(orientation));
        const QString path = write(QStringLiteral("oriented.jpg"),
                                   withExifOrientation(encode(stored, "jpeg", 100), orientation));

        const ImageLoadResult loaded = loadImageFile(path, 1'000'000);

        QVERIFY2(loaded.image, qPrintable(loaded.failure));
        QCOMPARE(loaded.image->size(), upright.size());
        QVERIFY(quartersMatch(*loaded.image, upright, 8));
        // Asked as stored, the pixels and their orientation make the same picture.
        const ImageLoadResult asStored = loadImageFile(path, 1'000'000, PixelOrder::AsStored);
        QCOMPARE(asStored.image->size(), stored.size());
        QCOMPARE(asStored.orientation, orientation);
        QCOMPARE(
            turnedUpright(*asStored.image, asStored.orientation)->convertToFormat(loaded.image->format()),
            *loaded.image);
    }

    // The tool decodes JPEG itself, packed: the values and the density must be Qt's reader's.
    void packedJpeg_isQtsReaderPixelForPixel_data()
    {
        QTest::addColumn<QByteArray>("jpeg");
        const QImage photo = QImage(photoPath()).copy(3, 5, 201, 149);
        QImage dpi300 = photo;
        dpi300.setDotsPerMeterX(11811);
        dpi300.setDotsPerMeterY(11811);
        QImage dpcm = photo;
        dpcm.setDotsPerMeterX(10000);
        dpcm.setDotsPerMeterY(5000);
        QTest::newRow("colour, 72 dpi") << encode(photo, "jpeg", 90);
        QTest::newRow("progressive") << jpegWritten(photo, true);
        QTest::newRow("grey") << jpegWritten(photo.convertToFormat(QImage::Format_Grayscale8));
        QTest::newRow("300 dpi") << jpegWritten(dpi300);
        QTest::newRow("in centimetres") << jpegWritten(dpcm);
    }

    void packedJpeg_isQtsReaderPixelForPixel()
    {
        QFETCH(QByteArray, jpeg);
        QBuffer buffer(&jpeg);
        const QImage qt = QImageReader(&buffer, "jpeg").read();

        const QImage packed = decodedJpeg(jpeg);

        QCOMPARE(packed.format(), qt.format() == QImage::Format_Grayscale8 ? QImage::Format_Grayscale8
                                                                           : QImage::Format_RGB888);
        QCOMPARE(packed.convertToFormat(qt.format()), qt);
        QCOMPARE(packed.dotsPerMeterX(), qt.dotsPerMeterX());
        QCOMPARE(packed.dotsPerMeterY(), qt.dotsPerMeterY());
    }

    void goodFiles_decodeAsAPlainReaderDoes_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        const QImage image = quadrants(QSize(40, 30));
        QTest::newRow("jpeg") << encode(image, "jpeg", 90);
        QTest::newRow("progressive jpeg") << jpegWritten(image, true);
        QTest::newRow("jpeg with data after its end") << encode(image, "jpeg", 90) + QByteArray(500, 'x');
        QTest::newRow("jpeg with a thumbnail") << withThumbnail(encode(image, "jpeg", 90));
        QTest::newRow("png") << encode(image, "png");
        QTest::newRow("bmp") << encode(image, "bmp");
        QTest::newRow("gif") << gifDeclaring(40, 30);
        QTest::newRow("ico") << encode(image, "ico");
        QTest::newRow("icns") << encode(quadrants(QSize(32, 32)), "icns");
        // Photo-sized, so that each lands in a buffer of the loader's own.
        const QImage big = quadrants(QSize(2100, 2000));
        QTest::newRow("real photo") << readFile(photoPath());
        QTest::newRow("grey jpeg") << encode(big.convertToFormat(QImage::Format_Grayscale8), "jpeg", 90);
        QTest::newRow("palette png") << encode(
            big.convertToFormat(QImage::Format_Indexed8,
                                {qRgb(255, 0, 0), qRgb(0, 255, 0), qRgb(0, 0, 255), qRgb(255, 255, 255)}),
            "png");
        QTest::newRow("16-bit png") << encode(big.convertToFormat(QImage::Format_RGBA64), "png");
        QTest::newRow("turned jpeg") << withExifOrientation(encode(big, "jpeg", 90), 6);
    }

    void goodFiles_decodeAsAPlainReaderDoes()
    {
        QFETCH(QByteArray, bytes);
        if (pluginMissingForRow())
            QSKIP("Qt's plugin for this format is not installed.");
        // The extension lies on purpose: content decides.
        const QString path = write(QStringLiteral("good.img"), bytes);

        const ImageLoadResult loaded = loadImageFile(path, 100'000'000);

        QVERIFY2(loaded.image, qPrintable(loaded.failure));
        QVERIFY(loaded.failure.isEmpty());
        QImageReader plain(path);
        plain.setAutoTransform(true);
        const QImage expected = plain.read();
        QVERIFY(!expected.isNull());
        QCOMPARE(loaded.image->format(), expected.format());
        QVERIFY(*loaded.image == expected);
    }

    void badFiles_yieldNoImageAndAReason_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("reason");

        const QByteArray jpeg = encode(quadrants(QSize(64, 64)), "jpeg", 90);
        const QByteArray png = encode(quadrants(QSize(64, 64)), "png");
        const qsizetype scan = jpeg.indexOf(QByteArray::fromHex("ffda"));

        QTest::newRow("empty") << QByteArray() << "is empty";
        QTest::newRow("text") << QByteArray("hello, I am not a picture\n") << "not an image";
        QTest::newRow("jpeg cut in its headers") << jpeg.left(scan / 2) << "could not be decoded";
        QTest::newRow("jpeg cut in its scan") << jpeg.left(scan + 100) << "truncated";
        QTest::newRow("jpeg without its end marker") << jpeg.left(jpeg.size() - 2) << "truncated";
        QTest::newRow("jpeg cut after its thumbnail") << withThumbnail(jpeg).chopped(40) << "truncated";
        QTest::newRow("jpeg with garbage for a scan")
            << jpeg.left(scan + 20) + QByteArray(4000, '\xff') << "truncated";
        QTest::newRow("png cut short") << png.left(png.size() / 2) << "could not be decoded";
        QTest::newRow("png with a corrupt header") << [&] {
            QByteArray bytes = png;
            bytes[20] = char(bytes[20] ^ 0x55);
            return bytes;
        }() << "could not be decoded";
        QTest::newRow("png declaring 20000x20000") << pngDeclaring(20000, 20000) << "more than the limit";
        QTest::newRow("jpeg declaring 65000x65000") << jpegDeclaring(65000, 65000) << "more than the limit";
        QTest::newRow("png declaring 0x0") << pngDeclaring(0, 0) << "could not be decoded";
        // Their readers report a size smaller than what their decoders allocate, or none at all.
        QTest::newRow("mng declaring 10001x10000") << mngDeclaring(10001, 10000) << "MNG";
        QTest::newRow("mng of 16x16 frames holding a png of 20000x20000")
            << mngDeclaring(16, 16) + pngDeclaring(20000, 20000).mid(8) << "MNG";
        QTest::newRow("gif with a 10001x10000 screen")
            << gifDeclaring(10001, 10000) << "declares 10001×10000 pixels";
        QTest::newRow("ico holding a png declaring 10001x10000")
            << iconHolding("ico", pngDeclaring(10001, 10000)) << "declares 10001×10000 pixels";
        QTest::newRow("icns holding a png declaring 10001x10000")
            << iconHolding("icns", pngDeclaring(10001, 10000)) << "declares 10001×10000 pixels";
    }

    void badFiles_yieldNoImageAndAReason()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, reason);
        if (pluginMissingForRow())
            QSKIP("Qt's plugin for this format is not installed.");
        const QString path = write(QStringLiteral("bad.jpg"), bytes);

        const ImageLoadResult loaded = loadImageFile(path, 100'000'000);

        QVERIFY(!loaded.image);
        QVERIFY2(loaded.failure.contains(reason), qPrintable(loaded.failure));
        QVERIFY2(loaded.failure.contains(path), qPrintable(loaded.failure));
    }

    void missingFileAndFolder_yieldNoImageAndAReason()
    {
        const ImageLoadResult missing = loadImageFile(m_dir.filePath(QStringLiteral("none.jpg")), 1000);
        const ImageLoadResult folder = loadImageFile(m_dir.path(), 1000);
        QVERIFY2(!missing.image && missing.failure.contains(u"does not exist"), qPrintable(missing.failure));
        QVERIFY2(!folder.image && folder.failure.contains(u"not a regular file"), qPrintable(folder.failure));
    }

    void pixelLimit_isTheHosts_data()
    {
        QTest::addColumn<qint64>("limit");
        QTest::addColumn<bool>("loads");
        QTest::addColumn<bool>("turnedPhoto");
        QTest::newRow("below the image") << qint64(100 * 100 - 1) << false << false;
        QTest::newRow("exactly the image") << qint64(100 * 100) << true << false;
        QTest::newRow("none at all") << qint64(0) << false << false;
        QTest::newRow("as large as can be") << std::numeric_limits<qint64>::max() << true << false;
        // The decoder allocates a turned photo itself, against Qt's limit in whole MiB.
        QTest::newRow("exactly a turned photo") << qint64(2000 * 1000) << true << true;
    }

    void pixelLimit_isTheHosts()
    {
        QFETCH(qint64, limit);
        QFETCH(bool, loads);
        QFETCH(bool, turnedPhoto);
        const QString path =
            turnedPhoto ? write(QStringLiteral("turned.jpg"),
                                withExifOrientation(encode(quadrants(QSize(2000, 1000)), "jpeg", 80), 6))
                        : write(QStringLiteral("square.png"), encode(quadrants(QSize(100, 100)), "png"));
        const int hostsAllocationLimit = QImageReader::allocationLimit();
        QCOMPARE(loadImageFile(path, limit).image.has_value(), loads);
        // Qt's allocation limit is process-wide: the load leaves the host's as it was.
        QCOMPARE(QImageReader::allocationLimit(), hostsAllocationLimit);
    }
};

QTEST_GUILESS_MAIN(tst_ImageLoader)
#include "tst_ImageLoader.moc"
