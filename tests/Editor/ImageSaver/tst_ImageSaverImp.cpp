#include "Editor/ImageSaver/ImageSaverImp.h"
#include "Error/QuorvaneSdkImageError.h"
#include "LogRecorder.h"
#include "TestImages.h"

#include <QDir>
#include <QImageReader>
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
        QTest::newRow("jpg 100") << QuorvaneSdkImageOutputFormat::jpg(100) << QByteArray("jpeg") << 6;
        QTest::newRow("jpg 50") << QuorvaneSdkImageOutputFormat::jpg(50) << QByteArray("jpeg") << 24;
        QTest::newRow("jpg 0") << QuorvaneSdkImageOutputFormat::jpg(0) << QByteArray("jpeg") << 90;
        QTest::newRow("png") << QuorvaneSdkImageOutputFormat::png() << QByteArray("png") << 0;
    }

    void save_writesDecodableFileOfEachFormat()
    {
        QFETCH(QuorvaneSdkImageOutputFormat, format);
        QFETCH(QByteArray, decodedAs);
        QFETCH(int, tolerance);
        const QImage image = quadrants(QSize(64, 48));
        const QUrl target = QUrl::fromLocalFile(m_dir.filePath(QStringLiteral("out.image")));

        const QUrl written = m_saver.save(image, format, target);

        QCOMPARE(written, target);
        QImageReader reader(written.toLocalFile());
        QCOMPARE(reader.format(), decodedAs);
        const QImage decoded = reader.read();
        QCOMPARE(decoded.size(), image.size());
        QVERIFY(quartersMatch(decoded, image, tolerance));
    }

    void save_withoutURL_namesANewFileInDocuments_data()
    {
        QTest::addColumn<QuorvaneSdkImageOutputFormat>("format");
        QTest::addColumn<QString>("extension");
        QTest::newRow("jpg") << QuorvaneSdkImageOutputFormat::jpg(80) << "jpg";
        QTest::newRow("png") << QuorvaneSdkImageOutputFormat::png() << "png";
    }

    void save_withoutURL_namesANewFileInDocuments()
    {
        QFETCH(QuorvaneSdkImageOutputFormat, format);
        QFETCH(QString, extension);
        const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
        QDir(documents).removeRecursively();

        const QUrl first = m_saver.save(quadrants(QSize(8, 8)), format, std::nullopt);
        const QUrl second = m_saver.save(quadrants(QSize(8, 8)), format, std::nullopt);

        QVERIFY(first != second);
        const QRegularExpression uuidName(
            QStringLiteral("^[0-9A-F]{8}-[0-9A-F]{4}-[0-9A-F]{4}-[0-9A-F]{4}-[0-9A-F]{12}\\.") + extension +
            u'$');
        for (const QUrl& url : {first, second}) {
            const QFileInfo file(url.toLocalFile());
            QVERIFY(file.exists());
            QCOMPARE(file.absolutePath(), QDir(documents).absolutePath());
            QVERIFY2(uuidName.match(file.fileName()).hasMatch(), qPrintable(file.fileName()));
        }
    }

    void save_keepsTheGivenExtension()
    {
        const QUrl target = QUrl::fromLocalFile(m_dir.filePath(QStringLiteral("picture.jpg")));
        QCOMPARE(m_saver.save(quadrants(QSize(8, 8)), QuorvaneSdkImageOutputFormat::png(), target), target);
        QCOMPARE(QImageReader(target.toLocalFile()).format(), QByteArray("png"));
    }

    void jpegQuality_outOfRange_isClamped_data()
    {
        QTest::addColumn<int>("quality");
        QTest::addColumn<int>("sameAs");
        QTest::newRow("below 0") << -20 << 0;
        QTest::newRow("above 100") << 150 << 100;
    }

    void jpegQuality_outOfRange_isClamped()
    {
        QFETCH(int, quality);
        QFETCH(int, sameAs);
        const QImage photo = QImage(photoPath()).copy(0, 0, 200, 200);
        const auto bytesOf = [&](int q) {
            const QUrl url = QUrl::fromLocalFile(m_dir.filePath(QStringLiteral("q%1.jpg").arg(q)));
            QFile file(m_saver.save(photo, QuorvaneSdkImageOutputFormat::jpg(q), url).toLocalFile());
            file.open(QIODevice::ReadOnly);
            return file.readAll();
        };
        QCOMPARE(bytesOf(quality), bytesOf(sameAs));
    }

    void failures_throwAndLogOnce_data()
    {
        QTest::addColumn<QImage>("image");
        QTest::addColumn<QString>("path");
        QTest::addColumn<int>("code");
        QTest::addColumn<QString>("logLine");
        // What the error carries for the caller; the log record stays the same.
        QTest::addColumn<QString>("reason");

        const QString missingFolder = QStringLiteral("no/such/folder/out.jpg");
        QTest::newRow("folder missing")
            << quadrants(QSize(8, 8)) << missingFolder << int(QuorvaneSdkImageError::unableToSaveCroppedImage)
            << "ImageSaverImp: save image data to local failed"
            << "No such file or directory";
        QTest::newRow("destination is a folder")
            << quadrants(QSize(8, 8)) << QString() << int(QuorvaneSdkImageError::unableToSaveCroppedImage)
            << "ImageSaverImp: save image data to local failed"
            << "directory";
        QTest::newRow("nothing to encode")
            << QImage() << QStringLiteral("empty.jpg") << int(QuorvaneSdkImageError::unableToCompressImage)
            << "ImageSaverImp: compress image failed" << QString();
    }

    void failures_throwAndLogOnce()
    {
        QFETCH(QImage, image);
        QFETCH(QString, path);
        QFETCH(int, code);
        QFETCH(QString, logLine);
        QFETCH(QString, reason);
        LogRecorder log;
        const QUrl url = QUrl::fromLocalFile(path.isEmpty() ? m_dir.path() : m_dir.filePath(path));

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
        if (!path.isEmpty())
            QVERIFY(!QFileInfo::exists(url.toLocalFile()));
    }

    void nonFileURL_failsToSave()
    {
        LogRecorder log;
        QVERIFY_THROWS_EXCEPTION(QuorvaneSdkImageError,
                                 m_saver.save(quadrants(QSize(8, 8)), QuorvaneSdkImageOutputFormat::png(),
                                              QUrl(QStringLiteral("https://example.invalid/out.png"))));
        QCOMPARE(log.lines(), QStringList{QStringLiteral("ImageSaverImp: save image data to local failed")});
    }

    void save_replacesAnExistingFileWhole()
    {
        const QString path = m_dir.filePath(QStringLiteral("replace.png"));
        QVERIFY(writeFile(path, QByteArray(100'000, 'x')));
        m_saver.save(quadrants(QSize(8, 8)), QuorvaneSdkImageOutputFormat::png(), QUrl::fromLocalFile(path));
        QCOMPARE(QImage(path).size(), QSize(8, 8));
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
        QFile kept(path);
        QVERIFY(kept.open(QIODevice::ReadOnly));
        QCOMPARE(kept.readAll(), previous);
        QCOMPARE(QDir(dir.path()).entryList(QDir::Files | QDir::Hidden),
                 QStringList{QStringLiteral("kept.jpg")});
        QCOMPARE(log.lines(), QStringList{QStringLiteral("ImageSaverImp: save image data to local failed")});
    }
};

QTEST_GUILESS_MAIN(tst_ImageSaverImp)
#include "tst_ImageSaverImp.moc"
