#include "Editor/Canvas/CanvasViewModel.h"
#include "Editor/Cropper/Engine/ImageCropperImp.h"
#include "Editor/Filters/Engine/FiltersManager.h"
#include "Editor/QuorvaneSdkImageEditorViewModel.h"
#include "Emulation.h"
#include "ExifTool.h"
#include "TestImages.h"

#include <QColorSpace>
#include <QTemporaryDir>
#include <QTest>
#include <QtEndian>

using namespace TestImages;

namespace {

// What the camera wrote that must not leave with a copy: where it was taken and which devices took it.
const QByteArray kSecrets[] = {"Paris", "BODY-48151623", "LENS-42"};

// A photo as a camera writes it: pixels stored turned for `orientation`, a profile, the date, camera, lens
// and exposure, its location three times over (EXIF, XMP, IPTC), serial numbers and a thumbnail.
bool writeCameraPhoto(const QString& path, const QImage& upright, int orientation, const QColorSpace& profile)
{
    QImage stored = displayed(upright, inverseOrientation(orientation));
    stored.setColorSpace(profile);
    const char* format = path.endsWith(u".png") ? "png" : "jpeg";
    if (!writeFile(path, encode(stored, format, 95)))
        return false;
    ExifTool::run(
        QStringList{QStringLiteral("-q"), QStringLiteral("-overwrite_original"),
                    QStringLiteral("-Orientation#=%1").arg(orientation), path} +
        QStringLiteral(
            "-DateTimeOriginal=2024:05:01 10:20:30|-OffsetTimeOriginal=+02:00|-SubSecTimeOriginal=123|"
            "-CreateDate=2024:05:01 10:20:30|-Make=Canon|-Model=Canon EOS R5|"
            "-LensModel=RF24-105mm F4 L IS USM|-ExposureTime=1/250|-FNumber=8|-ISO=200|-FocalLength=50|"
            "-Artist=Ann Example|-Copyright=(c) Ann Example|-GPSLatitude=48.8584|-GPSLatitudeRef=N|"
            "-GPSLongitude=2.2945|-GPSLongitudeRef=E|-GPSAltitude=35|-SerialNumber=BODY-48151623|"
            "-LensSerialNumber=LENS-42|-XMP-photoshop:City=Paris|-XMP-exif:GPSLatitude=48.8584 N|"
            "-IPTC:City=Paris")
            .split(u'|'));
    const QString thumbnail = path + QStringLiteral(".thumb.jpg");
    if (!writeFile(thumbnail, encode(upright.scaled(64, 48), "jpeg", 80)))
        return false;
    ExifTool::run({QStringLiteral("-q"), QStringLiteral("-overwrite_original"),
                   QStringLiteral("-ThumbnailImage<=") + thumbnail, path});
    return true;
}

enum class Edit { none, cropTurnFlip, rotate30, resize, draw, colour };

// The image the editor hands back after the edit, as the pages and the session make it.
std::optional<QImage> edited(const QImage& image, Edit edit)
{
    switch (edit) {
    case Edit::none:
    case Edit::resize:
        return image;
    case Edit::cropTurnFlip:
        return ImageCropperImp().crop({image, 10, 5, 60, 40, Angle::degrees(90), true, false});
    case Edit::rotate30:
        return ImageCropperImp().crop({image, 0, 0, 60, 50, Angle::degrees(30), false, false});
    case Edit::draw: {
        std::optional<QImage> result;
        CanvasViewModel canvas(image, [&result](std::optional<QImage> flattened) { result = flattened; });
        canvas.setupScreenSize(QSizeF(390, 600));
        const QSizeF frame = image.deviceIndependentSize();
        canvas.beginStroke(QPointF(5, 5), frame);
        canvas.handleNewPoint(QPointF(40, 30), frame);
        canvas.addFinalPoint(QPointF(70, 50), frame);
        canvas.accept();
        return result;
    }
    case Edit::colour:
        return FiltersManager(FiltersManager::Engine::Cpu)
            .applyColorMatrix(image, testMatrix(0.1f, 0, 0, 1, 0));
    }
    return std::nullopt;
}

} // namespace

class tst_PhotoMetadata : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;

    QString file(const QString& name) const { return m_dir.filePath(name); }

    QString exportThroughSession(const QString& source, QuorvaneSdkImageOutputFormat format,
                                 QuorvaneSdkImageMetadataPolicy policy = {}, Edit edit = Edit::none)
    {
        const bool png = format.kind() == QuorvaneSdkImageOutputFormat::Kind::png;
        const QString output = file(png ? QStringLiteral("out.png") : QStringLiteral("out.jpg"));
        QuorvaneSdkImageEditorPreset preset(QUrl::fromLocalFile(source), format, QUrl::fromLocalFile(output),
                                            edit == Edit::resize ? std::optional(QSizeF(50, 30))
                                                                 : std::nullopt);
        preset.setMetadataPolicy(policy);
        QuorvaneSdkImageEditorViewModel session(preset);
        const QuorvaneSdkImageEditorResult result = session.getResult(edited(*session.image(), edit));
        return result.editedImageURL() ? result.editedImageURL()->toLocalFile() : QString();
    }

private slots:
    void initTestCase()
    {
        QUORVANE_SKIP_WITHOUT_PROCESSES();
        QVERIFY2(!ExifTool::run({QStringLiteral("-ver")}).isEmpty(),
                 "exiftool is installed (scripts/install-deps)");
    }

    void cameraPhoto_comesOutUprightWithWhenAndHowButNotWhere_data()
    {
        QTest::addColumn<QString>("source");
        QTest::addColumn<int>("orientation");
        QTest::addColumn<QColorSpace>("profile");
        QTest::addColumn<QuorvaneSdkImageOutputFormat>("format");
        QTest::addColumn<QuorvaneSdkImageMetadataPolicy>("policy");

        const QColorSpace none;
        const auto jpg = QuorvaneSdkImageOutputFormat::jpg(92);
        const auto png = QuorvaneSdkImageOutputFormat::png();
        const QColorSpace adobe(QColorSpace::AdobeRgb);
        const QColorSpace p3(QColorSpace::DisplayP3);
        const QuorvaneSdkImageMetadataPolicy byDefault;
        QTest::newRow("jpeg, turned right, Adobe RGB -> jpeg") << "a.jpg" << 6 << adobe << jpg << byDefault;
        QTest::newRow("jpeg, upside down, no profile -> png") << "b.jpg" << 3 << none << png << byDefault;
        QTest::newRow("png, turned right, Display P3 -> jpeg") << "c.png" << 6 << p3 << jpg << byDefault;
        QTest::newRow("png, turned left, no profile -> png") << "d.png" << 8 << none << png << byDefault;
        // The profile says what the colours mean: it stays whatever the host strips.
        QTest::newRow("keep location -> png")
            << "e.jpg" << 6 << adobe << png << QuorvaneSdkImageMetadataPolicy{true, false};
        QTest::newRow("strip all -> jpeg")
            << "f.jpg" << 6 << adobe << jpg << QuorvaneSdkImageMetadataPolicy{false, true};
    }

    void cameraPhoto_comesOutUprightWithWhenAndHowButNotWhere()
    {
        QFETCH(QString, source);
        QFETCH(int, orientation);
        QFETCH(QColorSpace, profile);
        QFETCH(QuorvaneSdkImageOutputFormat, format);
        QFETCH(QuorvaneSdkImageMetadataPolicy, policy);
        const QImage upright = quadrants(QSize(96, 64));
        QVERIFY(writeCameraPhoto(file(source), upright, orientation, profile));
        QCOMPARE(ExifTool::tagsOf(file(source)).value(QStringLiteral("IFD0:Orientation")).toInt(),
                 orientation);

        const QString output = exportThroughSession(file(source), format, policy);
        QVERIFY(!output.isEmpty());

        const QImage decoded(output);
        QCOMPARE(decoded.size(), upright.size());
        QVERIFY(quartersMatch(decoded, upright, 8));
        QCOMPARE(decoded.colorSpace(), profile);

        const QVariantMap tags = ExifTool::tagsOf(output);
        QCOMPARE(tags.value(QStringLiteral("ExifTool:Validate")).toString(), QStringLiteral("0 0 0"));
        QCOMPARE(tags.value(QStringLiteral("IFD0:Orientation"), 1).toInt(), 1);
        const QStringList kept =
            QStringLiteral(
                "ExifIFD:DateTimeOriginal=2024:05:01 10:20:30|ExifIFD:OffsetTimeOriginal=+02:00|"
                "ExifIFD:SubSecTimeOriginal=123|IFD0:Make=Canon|IFD0:Model=Canon EOS R5|"
                "ExifIFD:LensModel=RF24-105mm F4 L IS USM|ExifIFD:ExposureTime=0.004|ExifIFD:ISO=200|"
                "IFD0:Copyright=(c) Ann Example|ExifIFD:ExifImageWidth=96|ExifIFD:ExifImageHeight=64")
                .split(u'|');
        for (const QString& tag : kept) {
            const QString key = tag.section(u'=', 0, 0);
            QCOMPARE(key + u'=' + tags.value(key).toString(), policy.stripAll ? key + u'=' : tag);
        }
        QCOMPARE(tags.value(QStringLiteral("IFD0:Software")).toString().startsWith(u"Quorvane SDK Image"),
                 !policy.stripAll);
        QCOMPARE(tags.value(QStringLiteral("GPS:GPSLatitude")).toDouble(),
                 policy.keepLocation ? 48.8584 : 0.0);
        QCOMPARE(tags.value(QStringLiteral("GPS:GPSAltitude")).toDouble(), policy.keepLocation ? 35.0 : 0.0);
        for (const char16_t* part : {u"Serial", u"XMP", u"IPTC", u"IFD1"})
            QCOMPARE(ExifTool::keysContaining(tags, part), QStringList());
        QCOMPARE(ExifTool::keysContaining(tags, u"GPS").isEmpty(), !policy.keepLocation);
        const QByteArray bytes = readFile(output);
        QVERIFY(!bytes.isEmpty());
        for (const QByteArray& secret : kSecrets)
            QVERIFY2(!bytes.contains(secret), secret.constData());
    }

    void sixteenBitPng_keepsItsDepthAndProfileThroughEdits_data()
    {
        QTest::addColumn<Edit>("edit");
        QTest::addColumn<int>("bitDepth");

        QTest::newRow("none") << Edit::none << 16;
        QTest::newRow("crop, quarter turn and flip") << Edit::cropTurnFlip << 16;
        QTest::newRow("30 degree turn") << Edit::rotate30 << 16;
        QTest::newRow("resize") << Edit::resize << 16;
        QTest::newRow("drawing") << Edit::draw << 16;
        // The colour engine works in 8 bits a channel.
        QTest::newRow("colour matrix") << Edit::colour << 8;
    }

    void sixteenBitPng_keepsItsDepthAndProfileThroughEdits()
    {
        QFETCH(Edit, edit);
        QFETCH(int, bitDepth);
        const QString source = file(QStringLiteral("deep.png"));
        QVERIFY(writeCameraPhoto(source, noise16(QSize(90, 70), QImage::Format_RGBX64), 8,
                                 QColorSpace(QColorSpace::DisplayP3)));

        const QString output = exportThroughSession(source, QuorvaneSdkImageOutputFormat::png(), {}, edit);
        const QVariantMap tags = ExifTool::tagsOf(output);

        QCOMPARE(tags.value(QStringLiteral("PNG:BitDepth")).toInt(), bitDepth);
        QCOMPARE(QImage(output).colorSpace(), QColorSpace(QColorSpace::DisplayP3));
        QCOMPARE(tags.value(QStringLiteral("ExifIFD:LensModel")).toString(),
                 QStringLiteral("RF24-105mm F4 L IS USM"));
        if (edit == Edit::none) {
            QImage decoded = QImage(output).convertToFormat(QImage::Format_RGBX64);
            decoded.setColorSpace(QColorSpace());
            QCOMPARE(decoded, noise16(QSize(90, 70), QImage::Format_RGBX64));
        }
    }

    void profileLargerThanOneSegment_isSplitAndWhole()
    {
        // A printer-sized profile: Adobe RGB's tags followed by 200 KB the header counts in.
        QByteArray profile = QColorSpace(QColorSpace::AdobeRgb).iccProfile();
        profile.append(200'000, '\x5A');
        qToBigEndian(quint32(profile.size()), profile.data());
        const QString icc = file(QStringLiteral("large.icc"));
        QVERIFY(writeFile(icc, profile));
        const QString source = file(QStringLiteral("large-profile.jpg"));
        QVERIFY(writeCameraPhoto(source, quadrants(QSize(64, 48)), 6, QColorSpace()));
        ExifTool::run({QStringLiteral("-q"), QStringLiteral("-overwrite_original"),
                       QStringLiteral("-ICC_Profile<=") + icc, source});

        for (const auto& format :
             {QuorvaneSdkImageOutputFormat::jpg(90), QuorvaneSdkImageOutputFormat::png()}) {
            const QString output = exportThroughSession(source, format);
            QCOMPARE(ExifTool::run({QStringLiteral("-b"), QStringLiteral("-ICC_Profile"), output}), profile);
        }
    }
};

QTEST_MAIN(tst_PhotoMetadata)
#include "tst_PhotoMetadata.moc"
