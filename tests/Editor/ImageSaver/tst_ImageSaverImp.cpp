#include "Editor/ImageSaver/ImageBands.h"
#include "Editor/ImageSaver/ImageSaverImp.h"
#include "Editor/ImageSaver/JpegEncoder.h"
#include "Error/QuorvaneSdkImageError.h"
#include "LogRecorder.h"
#include "TestImages.h"

#include <QBuffer>
#include <QDir>
#include <QImageReader>
#include <QImageWriter>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <csignal>
#include <sys/resource.h>

using namespace TestImages;

namespace {

// Makes every write past \a bytes fail in this process while it lives, as a full disk would.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(rlim_t bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_previous);
        rlimit limit = m_previous;
        limit.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() { setrlimit(RLIMIT_FSIZE, &m_previous); }

private:
    rlimit m_previous{};
};

// The pixels of image in format alone: no colour space, text or density of the file they came from, which
// Qt's writer would add segments for.
QImage bare(const QImage& image, QImage::Format format)
{
    const QImage converted = image.convertToFormat(format);
    QImage copy(converted.size(), format);
    for (int y = 0; y < copy.height(); ++y)
        std::memcpy(copy.scanLine(y), converted.constScanLine(y), size_t(copy.bytesPerLine()));
    copy.setColorTable(converted.colorTable());
    return copy;
}

} // namespace

class tst_ImageSaverImp : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;
    ImageSaverImp m_saver;

private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

    void save_writesDecodableFileOfEachFormat_data()
    {
        QTest::addColumn<QuorvaneSdkImageOutputFormat>("format");
        QTest::addColumn<QByteArray>("decodedAs");
        QTest::addColumn<int>("tolerance");
        QTest::addColumn<QString>("extension");
        QTest::newRow("jpg 100") << QuorvaneSdkImageOutputFormat::jpg(100) << QByteArray("jpeg") << 6
                                 << "jpg";
        QTest::newRow("jpg 0") << QuorvaneSdkImageOutputFormat::jpg(0) << QByteArray("jpeg") << 90 << "jpg";
        QTest::newRow("png") << QuorvaneSdkImageOutputFormat::png() << QByteArray("png") << 0 << "png";
    }

    void save_writesDecodableFileOfEachFormat()
    {
        QFETCH(QuorvaneSdkImageOutputFormat, format);
        QFETCH(QByteArray, decodedAs);
        QFETCH(int, tolerance);
        QFETCH(QString, extension);
        const QImage image = quadrants(QSize(64, 48));
        // The name is the caller's whatever the format, and what was there is replaced whole.
        const QString path = m_dir.filePath(QStringLiteral("out-%1.jpg").arg(QTest::currentDataTag()));
        QVERIFY(writeFile(path, QByteArray(100'000, 'x')));

        const QUrl written = m_saver.save(image, format, QUrl::fromLocalFile(path));

        QCOMPARE(written, QUrl::fromLocalFile(path));
        QVERIFY(QFileInfo(path).size() < 100'000);
        QImageReader reader(path);
        QCOMPARE(reader.format(), decodedAs);
        const QImage decoded = reader.read();
        QCOMPARE(decoded.size(), image.size());
        QVERIFY(quartersMatch(decoded, image, tolerance));

        // Without a name: a new file in Documents each time, named by a UUID and the format.
        const QUrl first = m_saver.save(image, format, std::nullopt);
        const QUrl second = m_saver.save(image, format, std::nullopt);
        QVERIFY(first != second);
        const QRegularExpression uuidName(
            QStringLiteral("^[0-9A-F]{8}-[0-9A-F]{4}-[0-9A-F]{4}-[0-9A-F]{4}-[0-9A-F]{12}\\.") + extension +
            u'$');
        for (const QUrl& url : {first, second}) {
            const QFileInfo file(url.toLocalFile());
            QCOMPARE(QImageReader(file.filePath()).format(), decodedAs);
            QCOMPARE(
                file.absolutePath(),
                QDir(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)).absolutePath());
            QVERIFY2(uuidName.match(file.fileName()).hasMatch(), qPrintable(file.fileName()));
        }
    }

    // Our encoder streams rows where Qt's writer took the whole image; files must not change.
    void streamedJpeg_isQtsWriterByteForByte_data()
    {
        QTest::addColumn<QImage>("image");
        QTest::addColumn<int>("quality");
        // Odd sizes leave partial blocks at the right and bottom edges.
        const QImage photo = QImage(photoPath()).copy(10, 10, 203, 149);
        QImage translucent = photo.convertToFormat(QImage::Format_ARGB32);
        for (int y = 0; y < 60; ++y)
            for (int x = 0; x < translucent.width(); ++x)
                translucent.setPixel(x, y, (translucent.pixel(x, y) & 0xFFFFFF) | uint(x % 256) << 24);
        const auto row = [](const char* name, const QImage& image, int quality = 90) {
            QTest::newRow(name) << image << quality;
        };
        row("RGB32", bare(photo, QImage::Format_RGB32));
        row("RGB32 q0", bare(photo, QImage::Format_RGB32), 0);
        row("RGB32 q100", bare(photo, QImage::Format_RGB32), 100);
        row("ARGB32 translucent", bare(translucent, QImage::Format_ARGB32));
        row("ARGB32 premultiplied", bare(translucent, QImage::Format_ARGB32_Premultiplied));
        row("RGBA8888 translucent", bare(translucent, QImage::Format_RGBA8888));
        row("RGBA8888 premultiplied", bare(translucent, QImage::Format_RGBA8888_Premultiplied));
        row("RGBX8888", bare(photo, QImage::Format_RGBX8888));
        row("RGB888", bare(photo, QImage::Format_RGB888));
        row("RGBA64", bare(translucent, QImage::Format_RGBA64));
        row("grey", bare(photo, QImage::Format_Grayscale8));
        row("grey 16", bare(photo, QImage::Format_Grayscale16));
        row("palette", bare(photo, QImage::Format_Indexed8));
        row("grey palette", bare(bare(photo, QImage::Format_Grayscale8), QImage::Format_Indexed8));
        row("mono", bare(photo, QImage::Format_Mono));
        QImage dense = bare(photo, QImage::Format_RGB32);
        dense.setDotsPerMeterX(3937); // 100 a centimetre: stated in centimetres
        dense.setDotsPerMeterY(2835); // 72 an inch
        row("mixed density", dense);
    }

    void streamedJpeg_isQtsWriterByteForByte()
    {
        QFETCH(QImage, image);
        QFETCH(int, quality);
        QByteArray qt;
        QBuffer buffer(&qt);
        buffer.open(QIODevice::WriteOnly);
        QImageWriter writer(&buffer, "jpeg");
        writer.setQuality(quality);
        // Premultiplied pixels are made straight as Qt's scalar code does, not its vector code, which rounds
        // differently on each processor.
        QVERIFY(writer.write(image.format() == QImage::Format_RGBA8888_Premultiplied
                                 ? convertedBand(image, QImage::Format_ARGB32)
                                 : image));

        WholeImageBands bands(image);
        BufferSink ours;
        QVERIFY(writeJpeg(bands, quality, {}, {}, ours));

        QCOMPARE(ours.take(), qt);
    }

    void jpegQuality_outOfRange_isClamped()
    {
        const QImage photo = QImage(photoPath()).copy(0, 0, 200, 200);
        const auto bytesOf = [&](int quality) {
            const QUrl url = QUrl::fromLocalFile(m_dir.filePath(QStringLiteral("q%1.jpg").arg(quality)));
            return readFile(
                m_saver.save(photo, QuorvaneSdkImageOutputFormat::jpg(quality), url).toLocalFile());
        };
        QCOMPARE(bytesOf(-20), bytesOf(0));
        QCOMPARE(bytesOf(150), bytesOf(100));
    }

    void failures_throwAndLogOnce_data()
    {
        QTest::addColumn<QImage>("image");
        QTest::addColumn<QUrl>("url");
        QTest::addColumn<int>("code");
        QTest::addColumn<QString>("logLine");
        // What the error carries for the caller; the log record stays the same.
        QTest::addColumn<QString>("reason");

        const QImage image = quadrants(QSize(8, 8));
        const int unableToSave = QuorvaneSdkImageError::unableToSaveCroppedImage;
        const QString saveFailed = QStringLiteral("ImageSaverImp: save image data to local failed");
        QTest::newRow("folder missing")
            << image << QUrl::fromLocalFile(m_dir.filePath(QStringLiteral("no/such/out.jpg"))) << unableToSave
            << saveFailed << "No such file or directory";
        QTest::newRow("destination is a folder")
            << image << QUrl::fromLocalFile(m_dir.path()) << unableToSave << saveFailed << "directory";
        QTest::newRow("not a local file") << image << QUrl(QStringLiteral("https://example.invalid/out.png"))
                                          << unableToSave << saveFailed << "not a local file";
        QTest::newRow("nothing to encode")
            << QImage() << QUrl::fromLocalFile(m_dir.filePath(QStringLiteral("empty.jpg")))
            << int(QuorvaneSdkImageError::unableToCompressImage) << "ImageSaverImp: compress image failed"
            << QString();
    }

    void failures_throwAndLogOnce()
    {
        QFETCH(QImage, image);
        QFETCH(QUrl, url);
        QFETCH(int, code);
        QFETCH(QString, logLine);
        QFETCH(QString, reason);
        LogRecorder log;

        try {
            m_saver.save(image, QuorvaneSdkImageOutputFormat::jpg(90), url);
            QFAIL("save did not throw");
        } catch (const QuorvaneSdkImageError& error) {
            QCOMPARE(int(error.code()), code);
            QVERIFY2(reason.isEmpty() ? error.reason().isEmpty() : error.reason().contains(reason),
                     qPrintable(error.reason()));
        }
        QCOMPARE(log.lines(), QStringList{logLine});
        QCOMPARE(toString(log.records().first().severity), toString(SharedQuorvaneSdkLogSeverity::error));
        QVERIFY(!QFileInfo(url.toLocalFile()).isFile());
    }

    void interruptedWrite_leavesTheOldFileAndNoPartialOne_data()
    {
        QTest::addColumn<int>("side");
        QTest::newRow("larger than a write buffer") << 800;
        // A few kilobytes: the whole file would fit in Qt's write buffer.
        QTest::newRow("within a write buffer") << 48;
    }

    void interruptedWrite_leavesTheOldFileAndNoPartialOne()
    {
        QFETCH(int, side);
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("kept.jpg"));
        const QByteArray previous = encode(quadrants(QSize(8, 8)), "jpeg", 90);
        QVERIFY(writeFile(path, previous));
        const QImage picture = QImage(photoPath()).copy(0, 0, side, side);
        LogRecorder log;
        {
            const FileSizeLimit diskFullAfter(previous.size() + 1000);
            try {
                m_saver.save(picture, QuorvaneSdkImageOutputFormat::png(), QUrl::fromLocalFile(path));
                QFAIL("save did not throw");
            } catch (const QuorvaneSdkImageError& error) {
                QCOMPARE(error.reason(), QStringLiteral("File too large"));
            }
        }
        QCOMPARE(readFile(path), previous);
        QCOMPARE(QDir(dir.path()).entryList(QDir::Files | QDir::Hidden),
                 QStringList{QStringLiteral("kept.jpg")});
        QCOMPARE(log.lines(), QStringList{QStringLiteral("ImageSaverImp: save image data to local failed")});
    }
};

QTEST_GUILESS_MAIN(tst_ImageSaverImp)
#include "tst_ImageSaverImp.moc"
