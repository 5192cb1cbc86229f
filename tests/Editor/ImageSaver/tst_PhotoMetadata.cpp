#include "Editor/Canvas/CanvasViewModel.h"
#include "Editor/Cropper/Engine/ImageCropperImp.h"
#include "Editor/Filters/Engine/FiltersManager.h"
#include "Editor/QuorvaneSdkImageEditorViewModel.h"
#include "ExifTool.h"
#include "TestImages.h"

#include <QColorSpace>
#include <QPainter>
#include <QTemporaryDir>
#include <QTest>
#include <QtEndian>
#include <cstring>

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
    ExifTool::run({QStringLiteral("-q"),
                   QStringLiteral("-overwrite_original"),
                   QStringLiteral("-Orientation#=%1").arg(orientation),
                   QStringLiteral("-DateTimeOriginal=2024:05:01 10:20:30"),
                   QStringLiteral("-OffsetTimeOriginal=+02:00"),
                   QStringLiteral("-SubSecTimeOriginal=123"),
                   QStringLiteral("-CreateDate=2024:05:01 10:20:30"),
                   QStringLiteral("-Make=Canon"),
                   QStringLiteral("-Model=Canon EOS R5"),
                   QStringLiteral("-LensModel=RF24-105mm F4 L IS USM"),
                   QStringLiteral("-ExposureTime=1/250"),
                   QStringLiteral("-FNumber=8"),
                   QStringLiteral("-ISO=200"),
                   QStringLiteral("-FocalLength=50"),
                   QStringLiteral("-Artist=Ann Example"),
                   QStringLiteral("-Copyright=(c) Ann Example"),
                   QStringLiteral("-GPSLatitude=48.8584"),
                   QStringLiteral("-GPSLatitudeRef=N"),
                   QStringLiteral("-GPSLongitude=2.2945"),
                   QStringLiteral("-GPSLongitudeRef=E"),
                   QStringLiteral("-GPSAltitude=35"),
                   QStringLiteral("-SerialNumber=BODY-48151623"),
                   QStringLiteral("-LensSerialNumber=LENS-42"),
                   QStringLiteral("-XMP-photoshop:City=Paris"),
                   QStringLiteral("-XMP-exif:GPSLatitude=48.8584 N"),
                   QStringLiteral("-IPTC:City=Paris"),
                   path});
    const QString thumbnail = path + QStringLiteral(".thumb.jpg");
    if (!writeFile(thumbnail, encode(upright.scaled(64, 48), "jpeg", 80)))
        return false;
    ExifTool::run({QStringLiteral("-q"), QStringLiteral("-overwrite_original"),
                   QStringLiteral("-ThumbnailImage<=") + thumbnail, path});
    return true;
}

// A picture with detail in every one of its 16 bits, so that a copy through 8 bits cannot pass for it.
QImage sixteenBitPicture(QSize size)
{
    QImage image(size, QImage::Format_RGBX64);
    for (int y = 0; y < size.height(); ++y) {
        auto* row = reinterpret_cast<QRgba64*>(image.scanLine(y));
        for (int x = 0; x < size.width(); ++x)
            row[x] = QRgba64::fromRgba64(quint16(x * 411 + y), quint16(y * 523 + x), quint16((x ^ y) * 97),
                                         0xFFFF);
    }
    return image;
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
                                 QuorvaneSdkImageMetadataPolicy policy = {}, Edit edit = Edit::none,
                                 const QString& name = QStringLiteral("out"))
    {
        const QString output =
            file(name + (format.kind() == QuorvaneSdkImageOutputFormat::Kind::png ? QStringLiteral(".png")
                                                                                  : QStringLiteral(".jpg")));
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
        QVERIFY2(!ExifTool::run({QStringLiteral("-ver")}).isEmpty(),
                 "exiftool is installed (scripts/install-deps)");
    }

    void cameraPhoto_comesOutUprightWithWhenAndHowButNotWhere_data()
    {
        QTest::addColumn<QString>("source");
        QTest::addColumn<int>("orientation");
        QTest::addColumn<QColorSpace>("profile");
        QTest::addColumn<QuorvaneSdkImageOutputFormat>("format");

        const QColorSpace none;
        const auto jpg = QuorvaneSdkImageOutputFormat::jpg(92);
        const auto png = QuorvaneSdkImageOutputFormat::png();
        const QColorSpace adobe(QColorSpace::AdobeRgb);
        const QColorSpace p3(QColorSpace::DisplayP3);
        QTest::newRow("jpeg, turned right, Adobe RGB -> jpeg") << "a.jpg" << 6 << adobe << jpg;
        QTest::newRow("jpeg, turned right, Adobe RGB -> png") << "a.jpg" << 6 << adobe << png;
        QTest::newRow("jpeg, upside down, no profile -> jpeg") << "b.jpg" << 3 << none << jpg;
        QTest::newRow("jpeg, turned left, Display P3 -> png") << "c.jpg" << 8 << p3 << png;
        QTest::newRow("jpeg, upright, no profile -> png") << "d.jpg" << 1 << none << png;
        QTest::newRow("png, turned right, Display P3 -> jpeg") << "e.png" << 6 << p3 << jpg;
        QTest::newRow("png, turned left, no profile -> png") << "f.png" << 8 << none << png;
    }

    void cameraPhoto_comesOutUprightWithWhenAndHowButNotWhere()
    {
        QFETCH(QString, source);
        QFETCH(int, orientation);
        QFETCH(QColorSpace, profile);
        QFETCH(QuorvaneSdkImageOutputFormat, format);
        const QImage upright = quadrants(QSize(96, 64));
        QVERIFY(writeCameraPhoto(file(source), upright, orientation, profile));
        QCOMPARE(ExifTool::tagsOf(file(source)).value(QStringLiteral("IFD0:Orientation")).toInt(),
                 orientation);

        const QString output = exportThroughSession(file(source), format);
        QVERIFY(!output.isEmpty());

        const QImage decoded(output);
        QCOMPARE(decoded.size(), upright.size());
        QVERIFY(quartersMatch(decoded, upright, 8));
        QCOMPARE(decoded.colorSpace(), profile);

        const QVariantMap tags = ExifTool::tagsOf(output);
        QCOMPARE(tags.value(QStringLiteral("ExifTool:Validate")).toString(), QStringLiteral("0 0 0"));
        QCOMPARE(tags.value(QStringLiteral("IFD0:Orientation")).toInt(), 1);
        QCOMPARE(tags.value(QStringLiteral("ExifIFD:DateTimeOriginal")).toString(),
                 QStringLiteral("2024:05:01 10:20:30"));
        QCOMPARE(tags.value(QStringLiteral("ExifIFD:OffsetTimeOriginal")).toString(),
                 QStringLiteral("+02:00"));
        QCOMPARE(tags.value(QStringLiteral("ExifIFD:SubSecTimeOriginal")).toInt(), 123);
        QCOMPARE(tags.value(QStringLiteral("IFD0:Make")).toString(), QStringLiteral("Canon"));
        QCOMPARE(tags.value(QStringLiteral("IFD0:Model")).toString(), QStringLiteral("Canon EOS R5"));
        QCOMPARE(tags.value(QStringLiteral("ExifIFD:LensModel")).toString(),
                 QStringLiteral("RF24-105mm F4 L IS USM"));
        QCOMPARE(tags.value(QStringLiteral("ExifIFD:ExposureTime")).toDouble(), 0.004);
        QCOMPARE(tags.value(QStringLiteral("ExifIFD:ISO")).toInt(), 200);
        QCOMPARE(tags.value(QStringLiteral("IFD0:Copyright")).toString(), QStringLiteral("(c) Ann Example"));
        QCOMPARE(tags.value(QStringLiteral("ExifIFD:ExifImageWidth")).toInt(), upright.width());
        QCOMPARE(tags.value(QStringLiteral("ExifIFD:ExifImageHeight")).toInt(), upright.height());
        QVERIFY(tags.value(QStringLiteral("IFD0:Software")).toString().startsWith(u"Quorvane SDK Image"));

        QCOMPARE(ExifTool::keysContaining(tags, u"GPS"), QStringList());
        QCOMPARE(ExifTool::keysContaining(tags, u"Serial"), QStringList());
        QCOMPARE(ExifTool::keysContaining(tags, u"XMP"), QStringList());
        QCOMPARE(ExifTool::keysContaining(tags, u"IPTC"), QStringList());
        QCOMPARE(ExifTool::keysContaining(tags, u"IFD1"), QStringList());
        QFile written(output);
        QVERIFY(written.open(QIODevice::ReadOnly));
        const QByteArray bytes = written.readAll();
        for (const QByteArray& secret : kSecrets)
            QVERIFY2(!bytes.contains(secret), secret.constData());
    }

    void policy_choosesLocationOrNothing_data()
    {
        QTest::addColumn<QuorvaneSdkImageMetadataPolicy>("policy");
        QTest::addColumn<QuorvaneSdkImageOutputFormat>("format");
        QTest::addColumn<bool>("camera");
        QTest::addColumn<bool>("location");

        QTest::newRow("keep location, jpeg") << QuorvaneSdkImageMetadataPolicy{true, false}
                                             << QuorvaneSdkImageOutputFormat::jpg(90) << true << true;
        QTest::newRow("keep location, png") << QuorvaneSdkImageMetadataPolicy{true, false}
                                            << QuorvaneSdkImageOutputFormat::png() << true << true;
        QTest::newRow("strip all, jpeg") << QuorvaneSdkImageMetadataPolicy{false, true}
                                         << QuorvaneSdkImageOutputFormat::jpg(90) << false << false;
        QTest::newRow("strip all, png") << QuorvaneSdkImageMetadataPolicy{false, true}
                                        << QuorvaneSdkImageOutputFormat::png() << false << false;
    }

    void policy_choosesLocationOrNothing()
    {
        QFETCH(QuorvaneSdkImageMetadataPolicy, policy);
        QFETCH(QuorvaneSdkImageOutputFormat, format);
        QFETCH(bool, camera);
        QFETCH(bool, location);
        const QString source = file(QStringLiteral("policy.jpg"));
        QVERIFY(writeCameraPhoto(source, quadrants(QSize(64, 48)), 6, QColorSpace(QColorSpace::AdobeRgb)));

        const QVariantMap tags = ExifTool::tagsOf(exportThroughSession(source, format, policy));

        QCOMPARE(tags.contains(QStringLiteral("IFD0:Make")), camera);
        QCOMPARE(tags.value(QStringLiteral("GPS:GPSLatitude")).toDouble(), location ? 48.8584 : 0.0);
        QCOMPARE(tags.value(QStringLiteral("GPS:GPSAltitude")).toDouble(), location ? 35.0 : 0.0);
        QCOMPARE(ExifTool::keysContaining(tags, u"Serial"), QStringList());
        // The profile says what the colours mean: it stays whatever the host strips.
        QCOMPARE(tags.value(QStringLiteral("ICC_Profile:ProfileDescription")).toString(),
                 QStringLiteral("Adobe RGB"));
        QCOMPARE(tags.value(QStringLiteral("IFD0:Orientation"), 1).toInt(), 1);
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
        QVERIFY(writeCameraPhoto(source, sixteenBitPicture(QSize(90, 70)), 8,
                                 QColorSpace(QColorSpace::DisplayP3)));

        const QString output = exportThroughSession(source, QuorvaneSdkImageOutputFormat::png(), {}, edit);
        const QVariantMap tags = ExifTool::tagsOf(output);

        QCOMPARE(tags.value(QStringLiteral("PNG:BitDepth")).toInt(), bitDepth);
        QCOMPARE(QImage(output).colorSpace(), QColorSpace(QColorSpace::DisplayP3));
        QCOMPARE(tags.value(QStringLiteral("ExifIFD:LensModel")).toString(),
                 QStringLiteral("RF24-105mm F4 L IS USM"));
        if (edit == Edit::none) {
            const QImage decoded = QImage(output).convertToFormat(QImage::Format_RGBX64);
            const QImage picture = sixteenBitPicture(QSize(90, 70));
            QCOMPARE(decoded.size(), picture.size());
            for (int y = 0; y < picture.height(); ++y)
                QVERIFY(std::memcmp(decoded.constScanLine(y), picture.constScanLine(y),
                                    size_t(picture.width()) * 8) == 0);
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
