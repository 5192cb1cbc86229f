#include "Editor/Helpers/ImageHelpers.h"
#include "TestImages.h"

#include <QTest>
#include <limits>

using namespace TestImages;

class tst_ImageHelpers : public QObject
{
    Q_OBJECT

private slots:
    void resized_stretchesToThePointSize_data()
    {
        QTest::addColumn<QSizeF>("size");
        QTest::addColumn<QSize>("pixels");
        QTest::newRow("smaller") << QSizeF(20, 10) << QSize(20, 10);
        QTest::newRow("larger") << QSizeF(300, 200) << QSize(300, 200);
        QTest::newRow("other aspect") << QSizeF(50, 50) << QSize(50, 50);
        QTest::newRow("fractional points round up") << QSizeF(20.2, 10.5) << QSize(21, 11);
    }

    void resized_stretchesToThePointSize()
    {
        QFETCH(QSizeF, size);
        QFETCH(QSize, pixels);
        const QImage source = quadrants(QSize(120, 60));
        const QImage before = source.copy();

        const auto result = ImageHelpers::resized(source, size);

        QVERIFY(result);
        QCOMPARE(result->size(), pixels);
        QCOMPARE(result->devicePixelRatio(), ImageHelpers::screenScale());
        QCOMPARE(source, before);
        // Stretched, not cropped: each quarter keeps its colour.
        QVERIFY(quartersMatch(*result, source, 2));
    }

    void resized_refusesSizesThatAreNoImage_data()
    {
        QTest::addColumn<QSizeF>("size");
        const qreal inf = std::numeric_limits<qreal>::infinity();
        const qreal nan = std::numeric_limits<qreal>::quiet_NaN();
        QTest::newRow("zero") << QSizeF(0, 0);
        QTest::newRow("zero width") << QSizeF(0, 10);
        QTest::newRow("negative") << QSizeF(-10, 10);
        QTest::newRow("infinite") << QSizeF(inf, 10);
        QTest::newRow("not a number") << QSizeF(nan, nan);
        QTest::newRow("absurdly large") << QSizeF(1e6, 1e6);
    }

    void resized_refusesSizesThatAreNoImage()
    {
        QFETCH(QSizeF, size);
        QVERIFY(!ImageHelpers::resized(quadrants(QSize(8, 8)), size));
    }

    void redrawnAtScreenScale_keepsPointSizeAndPixels()
    {
        const QImage source = quadrants(QSize(40, 20));
        const auto copy = ImageHelpers::redrawnAtScreenScale(source);
        QVERIFY(copy);
        QCOMPARE(copy->deviceIndependentSize(), QSizeF(40, 20));
        QVERIFY(copy->hasAlphaChannel());
        QCOMPARE(copy->convertToFormat(QImage::Format_RGB32), source);
    }

    void redrawnAtScreenScale_redrawsAnImageOfAnotherScale()
    {
        QImage source = quadrants(QSize(40, 20));
        source.setDevicePixelRatio(2.0);
        const auto copy = ImageHelpers::redrawnAtScreenScale(source);
        QVERIFY(copy);
        QCOMPARE(copy->deviceIndependentSize(), QSizeF(20, 10));
        QCOMPARE(copy->size(), QSize(20, 10));
        QVERIFY(quartersMatch(*copy, source, 2));
    }

    void redrawnAtScreenScale_ofNullImage_isEmpty()
    {
        QVERIFY(!ImageHelpers::redrawnAtScreenScale(QImage()));
    }
};

QTEST_GUILESS_MAIN(tst_ImageHelpers)
#include "tst_ImageHelpers.moc"
