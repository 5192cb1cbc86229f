#include "Editor/Helpers/Angle.h"
#include "Editor/Helpers/ImageGeometry.h"
#include "TestImages.h"

#include <QColorSpace>
#include <QRandomGenerator>
#include <QTest>
#include <QTransform>

using namespace TestImages;

namespace {

QImage noise(QSize size, QImage::Format format)
{
    QImage image(size, QImage::Format_ARGB32);
    QRandomGenerator random(7);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x)
            image.setPixel(x, y, random.generate() | 0xFF000000u);
    }
    return image.convertToFormat(format);
}

// Every pixel of \a actual equals \a expected's; the formats may differ.
bool samePixels(const QImage& actual, const QImage& expected)
{
    return actual.size() == expected.size() &&
           actual.convertToFormat(QImage::Format_ARGB32) == expected.convertToFormat(QImage::Format_ARGB32);
}

} // namespace

class tst_ImageGeometry : public QObject
{
    Q_OBJECT

private slots:
    void isPortrait_data()
    {
        QTest::addColumn<double>("degrees");
        QTest::addColumn<bool>("portrait");
        QTest::newRow("0") << 0.0 << true;
        QTest::newRow("90") << 90.0 << false;
        QTest::newRow("-90") << -90.0 << false;
        QTest::newRow("180") << 180.0 << true;
        QTest::newRow("-180") << -180.0 << true;
        QTest::newRow("270") << 270.0 << false;
        QTest::newRow("-360") << -360.0 << true;
        QTest::newRow("-450") << -450.0 << false;
        QTest::newRow("45") << 45.0 << false;
        QTest::newRow("180.0000001") << 180.0000001 << false;
    }

    void isPortrait()
    {
        QFETCH(double, degrees);
        QFETCH(bool, portrait);
        QCOMPARE(Angle::degrees(degrees).isPortrait(), portrait);
    }

    void quarterTurnsAndFlips_movePixelsExactly_data()
    {
        QTest::addColumn<QImage>("image");
        QTest::addColumn<QString>("operation");
        QTest::addColumn<int>("referenceOrientation");

        // The EXIF display transforms are a plain pixel-by-pixel reference for each operation.
        const QList<QImage::Format> formats = {QImage::Format_RGB32, QImage::Format_ARGB32_Premultiplied,
                                               QImage::Format_RGB888};
        for (const auto format : formats) {
            const QImage image = noise(QSize(67, 41), format);
            const char* name = format == QImage::Format_RGB32                  ? "rgb32"
                               : format == QImage::Format_ARGB32_Premultiplied ? "argb32pm"
                                                                               : "rgb888";
            QTest::addRow("%s turn 90", name) << image << "rotate 90" << 6;
            QTest::addRow("%s turn 180", name) << image << "rotate 180" << 3;
            QTest::addRow("%s turn 270", name) << image << "rotate 270" << 8;
            QTest::addRow("%s turn -90", name) << image << "rotate -90" << 8;
            QTest::addRow("%s turn 450", name) << image << "rotate 450" << 6;
            QTest::addRow("%s turn 0", name) << image << "rotate 0" << 1;
            QTest::addRow("%s flip horizontally", name) << image << "horizontal" << 2;
            QTest::addRow("%s flip vertically", name) << image << "vertical" << 4;
        }
    }

    void quarterTurnsAndFlips_movePixelsExactly()
    {
        QFETCH(QImage, image);
        QFETCH(QString, operation);
        QFETCH(int, referenceOrientation);
        const QImage before = image.copy();

        std::optional<QImage> result;
        if (operation == u"horizontal")
            result = ImageHelpers::horizontallyFlipped(image);
        else if (operation == u"vertical")
            result = ImageHelpers::verticallyFlipped(image);
        else
            result = ImageHelpers::rotate(image, Angle::degrees(operation.mid(7).toDouble()).radians());

        QVERIFY(result);
        QVERIFY(samePixels(*result, displayed(image, referenceOrientation)));
        QCOMPARE(image, before);
    }

    void quarterTurn_ofFractionalPointSize_cutsWholePixels_data()
    {
        QTest::addColumn<double>("degrees");
        QTest::addColumn<bool>("mirror");
        QTest::addColumn<int>("referenceOrientation");
        QTest::addColumn<QRect>("centre");
        // 301 × 200 pixels at scale 3 are 100.33 × 66.67 points; the turned canvas floors to whole points and
        // keeps the turned cut's centre.
        QTest::newRow("90") << 90.0 << false << 6 << QRect(1, 0, 198, 300);
        QTest::newRow("180") << 180.0 << false << 3 << QRect(0, 1, 300, 198);
        QTest::newRow("270") << 270.0 << false << 8 << QRect(1, 0, 198, 300);
        QTest::newRow("270, mirrored") << 270.0 << true << 8 << QRect(1, 0, 198, 300);
    }

    void quarterTurn_ofFractionalPointSize_cutsWholePixels()
    {
        QFETCH(double, degrees);
        QFETCH(bool, mirror);
        QFETCH(int, referenceOrientation);
        QFETCH(QRect, centre);
        QImage image = noise(QSize(311, 213), QImage::Format_RGB32);
        image.setDevicePixelRatio(3.0);
        const QRect pixels(5, 7, 301, 200);

        const auto turned = ImageHelpers::cutRotatedAndMirrored(
            image, pixels, Angle::degrees(degrees).radians(), mirror, false);

        QVERIFY(turned);
        QCOMPARE(turned->devicePixelRatio(), 3.0);
        const QImage reference =
            displayed(image.copy(pixels), referenceOrientation).copy(centre).mirrored(mirror, false);
        QVERIFY(samePixels(*turned, reference));
    }

    void otherAngles_resampleOnTheFlooredBoundingBox_data()
    {
        QTest::addColumn<double>("degrees");
        QTest::addColumn<QSize>("canvas");
        // 300 × 200 turned 30°: 300 cos + 200 sin = 359.8, 300 sin + 200 cos = 323.2.
        QTest::newRow("30") << 30.0 << QSize(359, 323);
        QTest::newRow("-30") << -30.0 << QSize(359, 323);
        QTest::newRow("45") << 45.0 << QSize(353, 353);
    }

    void otherAngles_resampleOnTheFlooredBoundingBox()
    {
        QFETCH(double, degrees);
        QFETCH(QSize, canvas);
        const QImage image = quadrants(QSize(300, 200));
        const auto turned = ImageHelpers::rotate(image, Angle::degrees(degrees).radians());
        QVERIFY(turned);
        QCOMPARE(turned->size(), canvas);
        QCOMPARE(turned->pixelColor(0, 0).alpha(), 0);
        QCOMPARE(turned->pixelColor(canvas.width() - 1, canvas.height() - 1).alpha(), 0);
        QCOMPARE(turned->pixelColor(canvas.width() / 2, canvas.height() / 2).alpha(), 255);
    }

    void positiveAngles_turnClockwise()
    {
        // Red is top-left, green top-right. Just left of the top centre, a clockwise turn brings red; a
        // counter-clockwise one would bring green.
        const auto turned = ImageHelpers::rotate(quadrants(QSize(200, 200)), Angle::degrees(10).radians());
        QVERIFY(turned);
        const QColor topCentre = turned->pixelColor(turned->width() / 2 - 8, turned->height() / 2 - 60);
        QVERIFY2(near(topCentre, Qt::red, 10), qPrintable(topCentre.name()));
    }

    void onePass_equalsCutTurnAndFlipsInTurn_data()
    {
        QTest::addColumn<QImage::Format>("format");
        QTest::addColumn<int>("turns");
        QTest::addColumn<bool>("mirrorLeftRight");
        QTest::addColumn<bool>("mirrorTopBottom");
        // Every pixel size: 1, 2, 3, 4 and 8 bytes, and less than a byte.
        for (const auto format :
             {QImage::Format_RGB32, QImage::Format_ARGB32, QImage::Format_ARGB32_Premultiplied,
              QImage::Format_Grayscale8, QImage::Format_Indexed8, QImage::Format_RGB16, QImage::Format_RGB888,
              QImage::Format_RGBA64, QImage::Format_Mono}) {
            for (int turns = -1; turns <= 4; ++turns) {
                for (const int mirrors : {0, 1, 2, 3})
                    QTest::addRow("format %d, %d turns, mirrors %d", int(format), turns, mirrors)
                        << format << turns << bool(mirrors & 1) << bool(mirrors & 2);
            }
        }
    }

    void onePass_equalsCutTurnAndFlipsInTurn()
    {
        QFETCH(QImage::Format, format);
        QFETCH(int, turns);
        QFETCH(bool, mirrorLeftRight);
        QFETCH(bool, mirrorTopBottom);
        // Wider than a tile and not a multiple of it, so tile edges are crossed.
        const QImage image = noise(QSize(203, 157), format);
        const QRect cut(7, 11, 150, 131);

        const auto onePass =
            ImageHelpers::cutTurnedAndMirrored(image, cut, turns, mirrorLeftRight, mirrorTopBottom);

        const QImage expected = image.copy(cut)
                                    .transformed(QTransform().rotate(90.0 * turns))
                                    .mirrored(mirrorLeftRight, mirrorTopBottom);
        QVERIFY(onePass);
        QCOMPARE(onePass->format(), format);
        QVERIFY(samePixels(*onePass, expected));
    }

    void onePass_refusesCutsOutsideTheImage()
    {
        const QImage image = noise(QSize(50, 40), QImage::Format_RGB32);
        QVERIFY(!ImageHelpers::cutTurnedAndMirrored(image, QRect(10, 10, 41, 10), 1, false, false));
        QVERIFY(!ImageHelpers::cutTurnedAndMirrored(image, QRect(-1, 0, 10, 10), 1, false, false));
        QVERIFY(!ImageHelpers::cutTurnedAndMirrored(image, QRect(0, 0, 0, 10), 1, false, false));
    }

    void nullImage_givesNothing()
    {
        QVERIFY(!ImageHelpers::rotate(QImage(), 1.0));
        QVERIFY(!ImageHelpers::horizontallyFlipped(QImage()));
        QVERIFY(!ImageHelpers::verticallyFlipped(QImage()));
    }

    void geometry_keepsTheScaleAndColourSpace()
    {
        QImage image = noise(QSize(30, 20), QImage::Format_RGB32);
        image.setDevicePixelRatio(3.0);
        image.setColorSpace(QColorSpace::DisplayP3);
        const QImage results[] = {
            *ImageHelpers::horizontallyFlipped(image), *ImageHelpers::verticallyFlipped(image),
            *ImageHelpers::rotate(image, Angle::degrees(90).radians()),
            *ImageHelpers::cutTurnedAndMirrored(image, QRect(0, 0, 9, 6), 1, true, false)};
        for (const QImage& result : results) {
            QCOMPARE(result.devicePixelRatio(), 3.0);
            QVERIFY(result.colorSpace() == QColorSpace(QColorSpace::DisplayP3));
        }
    }

    void onePass_onAPhotoSizedImage_equalsThePlainSteps_data()
    {
        QTest::addColumn<int>("turns");
        QTest::addColumn<bool>("mirror");
        QTest::newRow("quarter turn, mirrored") << 1 << true;
        QTest::newRow("three quarters") << 3 << false;
        QTest::newRow("half turn") << 2 << false;
    }

    void onePass_onAPhotoSizedImage_equalsThePlainSteps()
    {
        QFETCH(int, turns);
        QFETCH(bool, mirror);
        // Big enough for the buffers that photos get.
        const QImage image = noise(QSize(2011, 1503), QImage::Format_RGB32);
        const QRect cut(5, 3, 1999, 1497);

        const auto onePass = ImageHelpers::cutTurnedAndMirrored(image, cut, turns, mirror, false);

        const QImage expected =
            image.copy(cut).transformed(QTransform().rotate(90.0 * turns)).mirrored(mirror, false);
        QVERIFY(onePass);
        QVERIFY(samePixels(*onePass, expected));
    }
};

QTEST_GUILESS_MAIN(tst_ImageGeometry)
#include "tst_ImageGeometry.moc"
