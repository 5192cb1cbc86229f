#include "Editor/Filters/Engine/CpuColorEngine.h"
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
        QVERIFY2(QFileInfo::exists(qEnvironmentVariable("QUORVANE_TOOL")), "QUORVANE_TOOL names the tool");
        QVERIFY(writeFile(file(QStringLiteral("photo.png")), encode(quadrants(QSize(120, 80)), "png")));
        QVERIFY(writeFile(file(QStringLiteral("text.jpg")), "not a picture"));
        const QByteArray jpeg = encode(quadrants(QSize(120, 80)), "jpeg", 90);
        QVERIFY(writeFile(file(QStringLiteral("cut.jpg")), jpeg.left(jpeg.size() - 100)));
        QVERIFY(writeFile(file(QStringLiteral("huge.png")), pngDeclaring(30000, 30000)));
    }

    void edit_writesTheFileAndPrintsItsPath_data()
    {
        QTest::addColumn<QStringList>("options");
        QTest::addColumn<QByteArray>("format");
        QTest::addColumn<QSize>("size");
        QTest::newRow("defaults") << QStringList{} << QByteArray("jpeg") << QSize(120, 80);
        QTest::newRow("png") << QStringList{"--format", "png"} << QByteArray("png") << QSize(120, 80);
        QTest::newRow("jpg quality") << QStringList{"--format", "jpg:40"} << QByteArray("jpeg")
                                     << QSize(120, 80);
        QTest::newRow("resize") << QStringList{"--resize", "30x50"} << QByteArray("jpeg") << QSize(30, 50);
        QTest::newRow("real photo") << QStringList{"--input", photoPath(), "--resize", "1056x792"}
                                    << QByteArray("jpeg") << QSize(1056, 792);
        QTest::newRow("crop") << QStringList{"--crop", "10,20,50,40"} << QByteArray("jpeg") << QSize(50, 40);
        QTest::newRow("crop, turn, flips, png")
            << QStringList{"--crop",          "10,20,50,40", "--rotate", "-90", "--flip-horizontal",
                           "--flip-vertical", "--format",    "png"}
            << QByteArray("png") << QSize(40, 50);
        QTest::newRow("turn the whole image")
            << QStringList{"--rotate", "90"} << QByteArray("jpeg") << QSize(80, 120);
        QTest::newRow("crop then resize")
            << QStringList{"--crop", "0,0,60,40", "--resize", "30x20"} << QByteArray("jpeg") << QSize(30, 20);
        // The output is named after the row: "out-named-.png".
        QTest::newRow("named .png") << QStringList{} << QByteArray("png") << QSize(120, 80);
    }

    void edit_writesTheFileAndPrintsItsPath()
    {
        QFETCH(QStringList, options);
        QFETCH(QByteArray, format);
        QFETCH(QSize, size);
        QString input = file(QStringLiteral("photo.png"));
        if (options.size() >= 2 && options.first() == u"--input") {
            input = options[1];
            options = options.mid(2);
        }
        const QString output =
            file(QStringLiteral("out-%1").arg(QTest::currentDataTag()).replace(u' ', u'-'));

        const Run run = runTool(QStringList{"edit", input, "--output", output} + options, m_dir.path());

        QVERIFY2(run.exitCode == 0, qPrintable(run.err));
        QCOMPARE(run.out, output + u'\n');
        QImageReader reader(output);
        QCOMPARE(reader.format(), format);
        QCOMPARE(reader.size(), size);
        QVERIFY(run.err.contains(QStringLiteral("initialize image editor")));
    }

    void metadataOptions_chooseWhatTheCopyCarries_data()
    {
        QTest::addColumn<QStringList>("options");
        QTest::addColumn<bool>("camera");
        QTest::addColumn<bool>("location");
        QTest::newRow("defaults") << QStringList{} << true << false;
        QTest::newRow("keep location") << QStringList{"--keep-location"} << true << true;
        QTest::newRow("strip metadata")
            << QStringList{"--strip-metadata", "--format", "png"} << false << false;
    }

    void metadataOptions_chooseWhatTheCopyCarries()
    {
        QFETCH(QStringList, options);
        QFETCH(bool, camera);
        QFETCH(bool, location);
        const QString input = file(QStringLiteral("camera.jpg"));
        QVERIFY(writeFile(input, encode(quadrants(QSize(120, 80)), "jpeg", 90)));
        ExifTool::run(
            {"-q", "-overwrite_original", "-Make=Canon", "-GPSLatitude=48.8584", "-GPSLatitudeRef=N", input});
        const QString output = file(QStringLiteral("camera-out"));

        const Run run = runTool(QStringList{"edit", input, "--output", output} + options, m_dir.path());

        QVERIFY2(run.exitCode == 0, qPrintable(run.err));
        const QVariantMap tags = ExifTool::tagsOf(output);
        QCOMPARE(tags.contains(QStringLiteral("IFD0:Make")), camera);
        QCOMPARE(tags.contains(QStringLiteral("GPS:GPSLatitude")), location);
    }

    void cropTurnAndFlips_arePixelExactOnARealPhoto()
    {
        const QImage photo =
            QImage(photoPath()).copy(800, 600, 640, 480).convertToFormat(QImage::Format_RGB32);
        const QString input = file(QStringLiteral("photo-part.png"));
        QVERIFY(writeFile(input, encode(photo, "png")));
        const QString output = file(QStringLiteral("turned.png"));

        const Run run = runTool({"edit", input, "--crop", "40,30,300,200", "--rotate", "90",
                                 "--flip-horizontal", "--format", "png", "--output", output},
                                m_dir.path());

        QVERIFY2(run.exitCode == 0, qPrintable(run.err));
        // Cut, turn a quarter clockwise, then (at a quarter turn) mirror top to bottom.
        const QImage expected = displayed(displayed(photo.copy(40, 30, 300, 200), 6), 4);
        QCOMPARE(QImage(output).convertToFormat(QImage::Format_RGB32), expected);
    }

    void color_isAppliedAfterTheGeometry_data()
    {
        QTest::addColumn<QStringList>("engine");
        QTest::newRow("engine picked") << QStringList{};
        QTest::newRow("cpu") << QStringList{"--engine", "cpu"};
    }

    void color_isAppliedAfterTheGeometry()
    {
        QFETCH(QStringList, engine);
        const QImage photo =
            QImage(photoPath()).copy(800, 600, 320, 240).convertToFormat(QImage::Format_RGB32);
        const QString input = file(QStringLiteral("colour-part.png"));
        QVERIFY(writeFile(input, encode(photo, "png")));
        const QString output = file(QStringLiteral("coloured.png"));

        const Run run = runTool(QStringList{"edit", input, "--rotate", "90", "--color",
                                            "0.2,0.1,-0.5,1.3,0.4", "--format", "png", "--output", output} +
                                    engine,
                                m_dir.path());

        QVERIFY2(run.exitCode == 0, qPrintable(run.err));
        // Warmth, luminosity, exposure, saturation, tint: testMatrix's parameter order.
        const QImage expected =
            applyColorMatrixOnCpu(displayed(photo, 6), testMatrix(0.2f, 0.1f, -0.5f, 1.3f, 0.4f));
        QCOMPARE(QImage(output).convertToFormat(QImage::Format_RGBA8888_Premultiplied), expected);
    }

    void edit_withoutOutput_writesANewFileInDocuments()
    {
        const QString home = file(QStringLiteral("home"));
        QDir().mkpath(home);
        const Run run = runTool({"edit", file(QStringLiteral("photo.png")), "--format", "png"}, home);
        QCOMPARE(run.exitCode, 0);
        const QFileInfo written(run.out.trimmed());
        QCOMPARE(written.absolutePath(), QDir(home + QStringLiteral("/Documents")).absolutePath());
        QCOMPARE(written.suffix(), QStringLiteral("png"));
        QVERIFY(written.exists());
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

        const QString out = file(QStringLiteral("never.jpg"));
        QTest::newRow("missing input")
            << QStringList{"edit", file("none.jpg"), "--output", out} << 1 << "does not exist" << QString();
        QTest::newRow("not an image")
            << QStringList{"edit", file("text.jpg"), "--output", out} << 1 << "not an image" << QString();
        QTest::newRow("truncated") << QStringList{"edit", file("cut.jpg"), "--output", out} << 1
                                   << "truncated" << QString();
        QTest::newRow("too many pixels") << QStringList{"edit", file("huge.png"), "--output", out} << 1
                                         << "more than the limit" << QString();
        QTest::newRow("crop outside the image")
            << QStringList{"edit", file("photo.png"), "--crop", "100,0,21,80", "--output", out} << 3
            << "does not lie inside"
            << "error ImageCropperImp: invalid crop range";
        QTest::newRow("crop of zero width")
            << QStringList{"edit", file("photo.png"), "--crop", "10,10,0,20", "--output", out} << 4
            << "no pixels"
            << "error ImageCropperImp: crop image failed";
        // JPEG cannot hold 70000 pixels across, so encoding fails.
        QTest::newRow("image too wide for JPEG")
            << QStringList{"edit", file("photo.png"), "--resize", "70000x10", "--output", out} << 5
            << "Cannot encode the image in the requested format."
            << "error ImageSaverImp: compress image failed";
        QTest::newRow("bad crop") << QStringList{"edit", file("photo.png"), "--crop", "1,2,3"} << 64
                                  << "--crop" << QString();
        QTest::newRow("infinite rotate")
            << QStringList{"edit", file("photo.png"), "--rotate", "inf"} << 64 << "--rotate" << QString();
        QTest::newRow("four colour values")
            << QStringList{"edit", file("photo.png"), "--color", "0,0,0,1"} << 64 << "--color" << QString();
        // 2^200 overflows a float: no finite matrix.
        QTest::newRow("exposure beyond a float")
            << QStringList{"edit", file("photo.png"), "--color", "0,0,200,1,0"} << 64 << "--color"
            << QString();
        QTest::newRow("unknown engine")
            << QStringList{"edit", file("photo.png"), "--color", "0,0,0,1,0", "--engine", "tpu"} << 64
            << "--engine" << QString();
        QTest::newRow("engine without colour") << QStringList{"edit", file("photo.png"), "--engine", "cpu"}
                                               << 64 << "give --color too" << QString();
        QTest::newRow("GPU where there is none")
            << QStringList{"edit", file("photo.png"), "--color", "0,0,0,1,0", "--engine",
                           "gpu",  "--output",        out}
            << 64 << "No GPU can run the colour matrix here" << QString();
        QTest::newRow("other command")
            << QStringList{"crop", file("photo.png")} << 64 << "usage:" << QString();
        QTest::newRow("no input") << QStringList{"edit"} << 64 << "INPUT is missing" << QString();
        QTest::newRow("two inputs") << QStringList{"edit", file("photo.png"), file("photo.png")} << 64
                                    << "one too many" << QString();
        QTest::newRow("bad resize") << QStringList{"edit", file("photo.png"), "--resize", "0x10"} << 64
                                    << "--resize" << QString();
        QTest::newRow("resize beyond the pixel limit")
            << QStringList{"edit", file("photo.png"), "--resize", "16385x16385", "--output", out} << 64
            << "--resize 16385x16385 asks for more than the 268435456 pixels" << QString();
        QTest::newRow("format against the output's name")
            << QStringList{"edit", file("photo.png"), "--format", "png", "--output", out} << 64
            << "--format png contradicts the output's name" << QString();
        QTest::newRow("bad format") << QStringList{"edit", file("photo.png"), "--format", "gif"} << 64
                                    << "--format" << QString();
        QTest::newRow("quality above 100")
            << QStringList{"edit", file("photo.png"), "--format", "jpg:101"} << 64 << "--format" << QString();
        QTest::newRow("keep location and strip metadata")
            << QStringList{"edit", file("photo.png"), "--keep-location", "--strip-metadata"} << 64
            << "contradict" << QString();
        QTest::newRow("unknown option")
            << QStringList{"edit", file("photo.png"), "--sharpen", "2"} << 64 << "sharpen" << QString();
    }

    void failures_exitWithTheirCodeAndWriteNothing()
    {
        QFETCH(QStringList, arguments);
        QFETCH(int, exitCode);
        QFETCH(QString, sentence);
        QFETCH(QString, logLine);
        const QStringList before = QDir(m_dir.path()).entryList(QDir::Files);

        const Run run = runTool(arguments, m_dir.path());

        QCOMPARE(run.exitCode, exitCode);
        QVERIFY2(run.err.contains(sentence), qPrintable(run.err));
        if (!logLine.isEmpty())
            QVERIFY2(run.err.count(logLine) == 1, qPrintable(run.err));
        QVERIFY(run.out.isEmpty());
        QCOMPARE(QDir(m_dir.path()).entryList(QDir::Files), before);
    }

    void writeFailure_namesThePathAndTheSystemsReason_data()
    {
        QTest::addColumn<QString>("output");
        QTest::addColumn<int>("fileSizeLimit");
        QTest::addColumn<QString>("reason");
        QTest::newRow("missing folder") << file("no/folder/never.jpg") << 0
                                        << QStringLiteral("no such folder \"%1\"").arg(file("no/folder"));
        const QString locked = file(QStringLiteral("locked"));
        QDir().mkpath(locked);
        QFile::setPermissions(locked, QFile::ReadOwner | QFile::ExeOwner);
        // Permissions do not hold back root.
        if (!QFileInfo(locked).isWritable())
            QTest::newRow("read-only folder")
                << locked + QStringLiteral("/never.jpg") << 0 << QStringLiteral("permission denied");
        // Found only as the bytes go out, after the log record of the failed save.
        QTest::newRow("disk full") << file("never.jpg") << 100 << QStringLiteral("File too large");
    }

    void writeFailure_namesThePathAndTheSystemsReason()
    {
        QFETCH(QString, output);
        QFETCH(int, fileSizeLimit);
        QFETCH(QString, reason);
        const QStringList before = QDir(m_dir.path()).entryList(QDir::Files);

        const Run run = runTool({"edit", file(QStringLiteral("photo.png")), "--output", output}, m_dir.path(),
                                rlim_t(fileSizeLimit));

        QCOMPARE(run.exitCode, 7);
        QVERIFY2(
            run.err.contains(QStringLiteral("Cannot write the output file \"%1\": %2").arg(output, reason)),
            qPrintable(run.err));
        QCOMPARE(QDir(m_dir.path()).entryList(QDir::Files), before);
    }
};

QTEST_GUILESS_MAIN(tst_QuorvaneImageTool)
#include "tst_QuorvaneImageTool.moc"
