#include "Editor/Helpers/Angle.h"
#include "Editor/Helpers/ImageGeometry.h"
#include "Editor/Helpers/Resampling.h"
#include "TestImages.h"

#include <QColorSpace>
#include <QPainter>
#include <QTest>
#include <QTransform>

using namespace TestImages;

namespace {

// Every pixel of \a actual equals \a expected's; the formats and colour spaces may differ.
bool samePixels(QImage actual, QImage expected)
{
    for (QImage* image : {&actual, &expected}) {
        *image = image->convertToFormat(QImage::Format_ARGB32);
        image->setColorSpace(QColorSpace());
    }
    return actual == expected;
}

} // namespace

class tst_ImageGeometry : public QObject
{
    Q_OBJECT

private slots:
    void quarterTurnsAndFlips_movePixelsExactly_data()
    {
        QTest::addColumn<QString>("operation");
        QTest::addColumn<int>("referenceOrientation");
        // The EXIF display transforms are a plain pixel-by-pixel reference for each operation.
        QTest::newRow("turn 90") << "rotate 90" << 6;
        QTest::newRow("turn 180") << "rotate 180" << 3;
        QTest::newRow("turn -90") << "rotate -90" << 8;
        QTest::newRow("turn 450") << "rotate 450" << 6;
        QTest::newRow("turn 0") << "rotate 0" << 1;
        QTest::newRow("flip horizontally") << "horizontal" << 2;
        QTest::newRow("flip vertically") << "vertical" << 4;
    }

    void quarterTurnsAndFlips_movePixelsExactly()
    {
        QFETCH(QString, operation);
        QFETCH(int, referenceOrientation);
        // Whole points at scale 3, so that a quarter turn cuts no pixels away.
        QImage image = noise(QSize(66, 42), QImage::Format_RGB888);
        image.setDevicePixelRatio(3.0);
        image.setColorSpace(QColorSpace::DisplayP3);
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
        QCOMPARE(result->devicePixelRatio(), 3.0);
        QVERIFY(result->colorSpace() == image.colorSpace());
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

    void onePass_equalsCutTurnAndFlipsInTurn_data()
    {
        QTest::addColumn<QImage::Format>("format");
        QTest::addColumn<QSize>("size");
        QTest::addColumn<QRect>("cut");
        QTest::addColumn<int>("turns");
        QTest::addColumn<bool>("mirrorLeftRight");
        QTest::addColumn<bool>("mirrorTopBottom");
        // Every pixel size: 1, 2, 3, 4 and 8 bytes, and less than a byte. Wider than a tile and not a
        // multiple of it, so tile edges are crossed.
        for (const auto format :
             {QImage::Format_RGB32, QImage::Format_ARGB32, QImage::Format_ARGB32_Premultiplied,
              QImage::Format_Grayscale8, QImage::Format_Indexed8, QImage::Format_RGB16, QImage::Format_RGB888,
              QImage::Format_RGBA64, QImage::Format_Mono}) {
            for (int turns = -1; turns <= 4; ++turns) {
                for (const int mirrors : {0, 1, 2, 3})
                    QTest::addRow("format %d, %d turns, mirrors %d", int(format), turns, mirrors)
                        << format << QSize(203, 157) << QRect(7, 11, 150, 131) << turns << bool(mirrors & 1)
                        << bool(mirrors & 2);
            }
        }
        // Big enough for the buffers that photos get.
        for (const int turns : {1, 2, 3})
            QTest::addRow("photo sized, %d turns, mirrored", turns)
                << QImage::Format_RGB32 << QSize(2011, 1503) << QRect(5, 3, 1999, 1497) << turns << true
                << false;
    }

    void onePass_equalsCutTurnAndFlipsInTurn()
    {
        QFETCH(QImage::Format, format);
        QFETCH(QSize, size);
        QFETCH(QRect, cut);
        QFETCH(int, turns);
        QFETCH(bool, mirrorLeftRight);
        QFETCH(bool, mirrorTopBottom);
        QImage image = noise(size, format);
        image.setDevicePixelRatio(3.0);
        image.setColorSpace(QColorSpace::DisplayP3);

        const auto onePass =
            ImageHelpers::cutTurnedAndMirrored(image, cut, turns, mirrorLeftRight, mirrorTopBottom);

        const QImage expected = image.copy(cut)
                                    .transformed(QTransform().rotate(90.0 * turns))
                                    .mirrored(mirrorLeftRight, mirrorTopBottom);
        QVERIFY(onePass);
        QCOMPARE(onePass->format(), format);
        QVERIFY(samePixels(*onePass, expected));
        QCOMPARE(onePass->devicePixelRatio(), 3.0);
        QVERIFY(onePass->colorSpace() == image.colorSpace());
    }

    // Our own cosine and sine, so that every processor turns alike: as close as the library's, and exact on
    // whole quarter turns.
    void cosSin_matchesTheLibrary_data()
    {
        QTest::addColumn<double>("degrees");
        for (double degrees :
             {0.0, 0.3, 12.5, 30.0, 44.999, 45.0, -45.0, 89.99, 135.0, -170.0, 1000.5, -1e5 + 0.25})
            QTest::newRow(qPrintable(QString::number(degrees))) << degrees;
    }

    void cosSin_matchesTheLibrary()
    {
        QFETCH(double, degrees);
        const double radians = qDegreesToRadians(degrees);
        const ImageHelpers::CosSin turn = ImageHelpers::cosSin(radians);
        QVERIFY2(std::abs(turn.cos - std::cos(radians)) < 1e-15,
                 qPrintable(QString::number(turn.cos - std::cos(radians))));
        QVERIFY2(std::abs(turn.sin - std::sin(radians)) < 1e-15,
                 qPrintable(QString::number(turn.sin - std::sin(radians))));
        for (int quarter = -5; quarter <= 5; ++quarter) {
            const ImageHelpers::CosSin exact = ImageHelpers::cosSin(quarter * M_PI / 2);
            QCOMPARE(exact.cos, quarter % 2 != 0 ? 0.0 : (quarter % 4 == 0 ? 1.0 : -1.0));
            QCOMPARE(std::abs(exact.sin), quarter % 2 != 0 ? 1.0 : 0.0);
        }
    }

    // A free turn looks as Qt's painter draws it: the same place and colours, transparent corners, soft
    // edges; only the last bit of rounding differs.
    void freeTurn_looksLikeQtsPainter()
    {
        const QImage photo = QImage(photoPath()).copy(1500, 1000, 300, 200);
        const QSize canvas(359, 323);
        const QImage ours = ImageHelpers::drawnTurned(photo, photo.rect(), qDegreesToRadians(30.0), canvas,
                                                      QPointF(canvas.width(), canvas.height()) / 2);
        QImage qts(canvas, QImage::Format_ARGB32_Premultiplied);
        qts.fill(Qt::transparent);
        QPainter painter(&qts);
        painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
        painter.translate(canvas.width() / 2.0, canvas.height() / 2.0);
        painter.rotate(30);
        painter.drawImage(QPointF(-150, -100), photo);
        painter.end();

        QCOMPARE(ours.format(), QImage::Format_ARGB32_Premultiplied);
        int apart = 0;
        for (int y = 0; y < canvas.height(); ++y) {
            for (int x = 0; x < canvas.width(); ++x) {
                if (!near(ours.pixelColor(x, y), qts.pixelColor(x, y), 2))
                    ++apart;
            }
        }
        // Antialiased edges are computed differently: about a pixel's width along the border.
        QVERIFY2(apart < 2 * (300 + 200) * 2, qPrintable(QString::number(apart)));
        QCOMPARE(ours.pixelColor(0, 0).alpha(), 0);
        QCOMPARE(ours.pixelColor(canvas.width() / 2, canvas.height() / 2).alpha(), 255);
    }

    void refusals_giveNothing()
    {
        const QImage image = noise(QSize(50, 40), QImage::Format_RGB32);
        QVERIFY(!ImageHelpers::cutTurnedAndMirrored(image, QRect(10, 10, 41, 10), 1, false, false));
        QVERIFY(!ImageHelpers::cutTurnedAndMirrored(image, QRect(-1, 0, 10, 10), 1, false, false));
        QVERIFY(!ImageHelpers::cutTurnedAndMirrored(image, QRect(0, 0, 0, 10), 1, false, false));
        QVERIFY(!ImageHelpers::rotate(QImage(), 1.0));
        QVERIFY(!ImageHelpers::horizontallyFlipped(QImage()));
        QVERIFY(!ImageHelpers::verticallyFlipped(QImage()));
    }
};

QTEST_GUILESS_MAIN(tst_ImageGeometry)
#include "tst_ImageGeometry.moc"
