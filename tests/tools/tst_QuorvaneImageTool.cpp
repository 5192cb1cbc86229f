#include "Editor/Filters/Engine/CpuColorEngine.h"
#include "Emulation.h"
#include "ExifTool.h"
#include "TestImages.h"

#include <QDir>
#include <QImageReader>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <csignal>
#include <sys/resource.h>

using namespace TestImages;

namespace {

struct Run
{
    int exitCode = -1;
    QString out;
    QString err;
};

// \a fileSizeLimit, when positive, makes every write past that many bytes fail, as on a full disk.
Run runTool(const QStringList& arguments, const QString& home, rlim_t fileSizeLimit = 0)
{
    QProcess process;
    if (fileSizeLimit > 0)
        process.setChildProcessModifier([fileSizeLimit] {
            std::signal(SIGXFSZ, SIG_IGN);
            const rlimit limit{fileSizeLimit, fileSizeLimit};
            setrlimit(RLIMIT_FSIZE, &limit);
        });
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("HOME"), home);
    // No display, whatever the desktop the tests run on: the colour engine is the CPU's.
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    environment.insert(QStringLiteral("XDG_DOCUMENTS_DIR"), home + QStringLiteral("/Documents"));
    process.setProcessEnvironment(environment);
    process.start(qEnvironmentVariable("QUORVANE_TOOL"), arguments);
    process.waitForFinished(120'000);
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            QString::fromLocal8Bit(process.readAllStandardOutput()),
            QString::fromLocal8Bit(process.readAllStandardError())};
}

} // namespace

class tst_QuorvaneImageTool : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;

    QString file(const QString& name) const { return m_dir.filePath(name); }

private slots:
    void initTestCase()
    {
        QUORVANE_SKIP_WITHOUT_PROCESSES();
        QVERIFY2(QFileInfo::exists(qEnvironmentVariable("QUORVANE_TOOL")), "QUORVANE_TOOL names the tool");
        QVERIFY(writeFile(file(QStringLiteral("photo.png")), encode(quadrants(QSize(120, 80)), "png")));
        const QString camera = file(QStringLiteral("camera.jpg"));
        QVERIFY(writeFile(camera, encode(quadrants(QSize(120, 80)), "jpeg", 90)));
        ExifTool::run({"-q", "-overwrite_original", "-Make=Canon", "-GPSLatitude=48.8584",
                       "-GPSLatitudeRef=N", camera});
    }

    void edit_writesTheFileAndPrintsItsPath_data()
    {
        QTest::addColumn<QStringList>("options");
        // The output's name in the test's folder; none: a new file in Documents.
        QTest::addColumn<QString>("output");
        QTest::addColumn<QByteArray>("format");
        QTest::addColumn<QSize>("size");
        QTest::newRow("defaults") << QStringList{} << "plain" << QByteArray("jpeg") << QSize(120, 80);
        QTest::newRow("named .png") << QStringList{} << "named.png" << QByteArray("png") << QSize(120, 80);
        QTest::newRow("jpg quality, resize") << QStringList{"--format", "jpg:40", "--resize", "30x50"}
                                             << "resized" << QByteArray("jpeg") << QSize(30, 50);
        QTest::newRow("turn the whole image")
            << QStringList{"--rotate", "90"} << "turned" << QByteArray("jpeg") << QSize(80, 120);
        QTest::newRow("crop then resize") << QStringList{"--crop", "0,0,60,40", "--resize", "30x20"}
                                          << "cut-resized" << QByteArray("jpeg") << QSize(30, 20);
        QTest::newRow("no output") << QStringList{"--format", "png"} << QString() << QByteArray("png")
                                   << QSize(120, 80);
        // The camera's make is kept and its location left out, unless asked otherwise.
        QTest::newRow("keep location")
            << QStringList{"--keep-location"} << "located" << QByteArray("jpeg") << QSize(120, 80);
        QTest::newRow("strip metadata") << QStringList{"--strip-metadata", "--format", "png"} << "stripped"
                                        << QByteArray("png") << QSize(120, 80);
    }

    void edit_writesTheFileAndPrintsItsPath()
    {
        QFETCH(QStringList, options);
        QFETCH(QString, output);
        QFETCH(QByteArray, format);
        QFETCH(QSize, size);
        if (!output.isEmpty())
            options += {QStringLiteral("--output"), file(output)};

        const Run run =
            runTool(QStringList{"edit", file(QStringLiteral("camera.jpg"))} + options, m_dir.path());

        QVERIFY2(run.exitCode == 0, qPrintable(run.err));
        const QString written = output.isEmpty() ? run.out.trimmed() : file(output);
        QCOMPARE(run.out, written + u'\n');
        QCOMPARE(QFileInfo(written).absolutePath(),
                 QDir(output.isEmpty() ? file(QStringLiteral("Documents")) : m_dir.path()).absolutePath());
        QImageReader reader(written);
        QCOMPARE(reader.format(), format);
        QCOMPARE(reader.size(), size);
        const QVariantMap tags = ExifTool::tagsOf(written);
        QCOMPARE(tags.contains(QStringLiteral("IFD0:Make")),
                 !options.contains(QStringLiteral("--strip-metadata")));
        QCOMPARE(tags.contains(QStringLiteral("GPS:GPSLatitude")),
                 options.contains(QStringLiteral("--keep-location")));
    }

    void cropTurnFlipAndColour_arePixelExactOnARealPhoto()
    {
        const QImage photo =
            QImage(photoPath()).copy(800, 600, 320, 240).convertToFormat(QImage::Format_RGB32);
        const QString input = file(QStringLiteral("photo-part.png"));
        QVERIFY(writeFile(input, encode(photo, "png")));
        const QString output = file(QStringLiteral("exact.png"));

        const Run run = runTool({"edit", input, "--crop", "40,30,200,150", "--rotate", "90",
                                 "--flip-horizontal", "--color", "0.2,0.1,-0.5,1.3,0.4", "--engine", "cpu",
                                 "--format", "png", "--output", output},
                                m_dir.path());

        QVERIFY2(run.exitCode == 0, qPrintable(run.err));
        // Cut, turn a quarter clockwise, then (at a quarter turn) mirror top to bottom. Warmth, luminosity,
        // exposure, saturation, tint: testMatrix's parameter order.
        const QImage expected =
            applyColorMatrixOnCpu(displayed(displayed(photo.copy(40, 30, 200, 150), 6), 4),
                                  testMatrix(0.2f, 0.1f, -0.5f, 1.3f, 0.4f));
        QCOMPARE(QImage(output).convertToFormat(QImage::Format_RGBA8888_Premultiplied), expected);
    }

    void helpAndVersion_printAndSucceed()
    {
        const Run help = runTool({QStringLiteral("--help")}, m_dir.path());
        QCOMPARE(help.exitCode, 0);
        QVERIFY2(help.out.contains(u"--crop") && help.out.contains(u"--version"), qPrintable(help.out));
        const Run version = runTool({QStringLiteral("--version")}, m_dir.path());
        QCOMPARE(version.exitCode, 0);
        QCOMPARE(version.out, QStringLiteral("quorvane-image " QUORVANE_VERSION "\n"));
    }

    void failures_exitWithTheirCodeAndWriteNothing_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<QString>("sentence");
        // The error record the failing service logs, once; empty when the failure is the tool's own.
        QTest::addColumn<QString>("logLine");
        // When positive, every write past that many bytes fails, as on a full disk.
        QTest::addColumn<int>("fileSizeLimit");

        const QString out = file(QStringLiteral("never.jpg"));
        const QString photo = file(QStringLiteral("photo.png"));
        const auto refused = [&](const char* name, const QStringList& options, const char* sentence) {
            QTest::newRow(name) << QStringList{"edit", photo} + options << 64 << QString(sentence)
                                << QString() << 0;
        };
        const auto unwritable = [&](const char* name, const QString& output, const QString& reason,
                                    int fileSizeLimit = 0, const QString& logLine = {}) {
            QTest::newRow(name)
                << QStringList{"edit", photo, "--output", output} << 7
                << QStringLiteral("Cannot write the output file \"%1\": %2").arg(output, reason) << logLine
                << fileSizeLimit;
        };
        QTest::newRow("missing input") << QStringList{"edit", file("none.jpg"), "--output", out} << 1
                                       << "does not exist" << QString() << 0;
        QTest::newRow("crop outside the image")
            << QStringList{"edit", photo, "--crop", "100,0,21,80", "--output", out} << 3
            << "does not lie inside" << QString() << 0;
        QTest::newRow("crop of zero width")
            << QStringList{"edit", photo, "--crop", "10,10,0,20", "--output", out} << 4 << "no pixels"
            << QString() << 0;
        // JPEG cannot hold 70000 pixels across, so encoding fails.
        QTest::newRow("image too wide for JPEG")
            << QStringList{"edit", photo, "--resize", "70000x10", "--output", out} << 5
            << "Cannot encode the image in the requested format."
            << "error ImageSaverImp: compress image failed" << 0;
        QTest::newRow("other command") << QStringList{"crop", photo} << 64 << "usage:" << QString() << 0;
        QTest::newRow("no input") << QStringList{"edit"} << 64 << "INPUT is missing" << QString() << 0;
        refused("two inputs", {photo}, "one too many");
        refused("bad crop", {"--crop", "1,2,3"}, "--crop");
        refused("infinite rotate", {"--rotate", "inf"}, "--rotate");
        refused("four colour values", {"--color", "0,0,0,1"}, "--color");
        // 2^200 overflows a float: no finite matrix.
        refused("exposure beyond a float", {"--color", "0,0,200,1,0"}, "--color");
        // Finite, but its sums overflow: +inf and -inf would meet as NaN.
        refused("a matrix that overflows", {"--color", "0,0,125,3,0", "--engine", "cpu"}, "--color");
        refused("unknown engine", {"--color", "0,0,0,1,0", "--engine", "tpu"}, "--engine");
        refused("engine without colour", {"--engine", "cpu"}, "give --color too");
        refused("GPU where there is none", {"--color", "0,0,0,1,0", "--engine", "gpu", "--output", out},
                "No GPU can run the colour matrix here");
        refused("bad resize", {"--resize", "0x10"}, "--resize");
        refused("resize beyond the pixel limit", {"--resize", "16385x16385", "--output", out},
                "--resize 16385x16385 asks for more than the 268435456 pixels");
        refused("format against the output's name", {"--format", "png", "--output", out},
                "--format png contradicts the output's name");
        refused("bad format", {"--format", "gif"}, "--format");
        refused("quality above 100", {"--format", "jpg:101"}, "--format");
        refused("keep location and strip metadata", {"--keep-location", "--strip-metadata"}, "contradict");
        refused("unknown option", {"--sharpen", "2"}, "sharpen");
        unwritable("missing folder", file("no/folder/never.jpg"),
                   QStringLiteral("no such folder \"%1\"").arg(file("no/folder")));
        const QString locked = file(QStringLiteral("locked"));
        QDir().mkpath(locked);
        QFile::setPermissions(locked, QFile::ReadOwner | QFile::ExeOwner);
        // Permissions do not hold back root.
        if (!QFileInfo(locked).isWritable())
            unwritable("read-only folder", locked + QStringLiteral("/never.jpg"),
                       QStringLiteral("permission denied"));
        // Found only as the bytes go out, after the log record of the failed save.
        unwritable("disk full", out, QStringLiteral("File too large"), 100,
                   QStringLiteral("error ImageSaverImp: save image data to local failed"));
    }

    void failures_exitWithTheirCodeAndWriteNothing()
    {
        QFETCH(QStringList, arguments);
        QFETCH(int, exitCode);
        QFETCH(QString, sentence);
        QFETCH(QString, logLine);
        QFETCH(int, fileSizeLimit);
        const QStringList before = QDir(m_dir.path()).entryList(QDir::Files);

        const Run run = runTool(arguments, m_dir.path(), rlim_t(fileSizeLimit));

        QCOMPARE(run.exitCode, exitCode);
        QVERIFY2(run.err.contains(sentence), qPrintable(run.err));
        if (!logLine.isEmpty())
            QVERIFY2(run.err.count(logLine) == 1, qPrintable(run.err));
        QVERIFY(run.out.isEmpty());
        QCOMPARE(QDir(m_dir.path()).entryList(QDir::Files), before);
    }
};

QTEST_GUILESS_MAIN(tst_QuorvaneImageTool)
#include "tst_QuorvaneImageTool.moc"
