#include "Editor/Helpers/ImageHelpers.h"
#include "TestImages.h"

#include <QColorSpace>
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

    void premultipliedCopy_keepsEveryPixelAndOwnsThem_data()
    {
        QTest::addColumn<QImage::Format>("format");
        QTest::addColumn<QSize>("size");
        QTest::newRow("opaque, small") << QImage::Format_RGB32 << QSize(40, 20);
        // Large enough for a buffer of its own kind.
        QTest::newRow("opaque, photo sized") << QImage::Format_RGB32 << QSize(2000, 1500);
        QTest::newRow("premultiplied, photo sized")
            << QImage::Format_ARGB32_Premultiplied << QSize(2000, 1500);
        QTest::newRow("straight alpha") << QImage::Format_ARGB32 << QSize(300, 200);
        QTest::newRow("24-bit") << QImage::Format_RGB888 << QSize(2000, 1500);
    }

    void premultipliedCopy_keepsEveryPixelAndOwnsThem()
    {
        QFETCH(QImage::Format, format);
        QFETCH(QSize, size);
        QImage source = quadrants(size).convertToFormat(format);
        source.setDevicePixelRatio(2.0);
        const QImage before = source.copy();

        QImage copy = ImageHelpers::premultipliedCopy(source);

        QVERIFY(copy.constBits() != source.constBits());
        QCOMPARE(copy.format(), QImage::Format_ARGB32_Premultiplied);
        QCOMPARE(copy.size(), size);
        QCOMPARE(copy.devicePixelRatio(), 2.0);
        QCOMPARE(copy.convertToFormat(QImage::Format_RGB32), before.convertToFormat(QImage::Format_RGB32));
        // Drawing on the copy leaves the source alone.
        copy.fill(Qt::transparent);
        QCOMPARE(source, before);
    }

    void premultipliedCopy_ofAHostsOpaqueBuffer_isOpaque()
    {
        // A host's 32-bit buffer whose unused byte is zero, as camera frames often are.
        QImage source(2000, 1500, QImage::Format_RGB32);
        source.fill(0x00336699u);
        source.setDotsPerMeterX(11811);
        source.setDotsPerMeterY(11811);
        source.setText(QStringLiteral("Comment"), QStringLiteral("from the host"));

        const QImage copy = ImageHelpers::premultipliedCopy(source);

        QCOMPARE(copy.pixel(0, 0), qRgba(0x33, 0x66, 0x99, 0xFF));
        QCOMPARE(copy.pixel(1999, 1499), qRgba(0x33, 0x66, 0x99, 0xFF));
        QCOMPARE(copy.dotsPerMeterX(), 11811);
        QCOMPARE(copy.text(QStringLiteral("Comment")), QStringLiteral("from the host"));
    }

    void newImage_isWritableAndSurvivesCopies()
    {
        QImage image = ImageHelpers::newImage(QSize(3000, 2000), QImage::Format_ARGB32_Premultiplied);
        QVERIFY(!image.isNull());
        QCOMPARE(image.bytesPerLine(), 3000 * 4);
#if defined(__linux__) && !defined(__ANDROID__)
        // Laid where a huge page can hold it.
        QCOMPARE(quintptr(image.constBits()) % (2 * 1024 * 1024), quintptr(0));
#endif
        image.fill(Qt::red);
        const QImage shared = image;
        image.setPixel(10, 10, qRgb(0, 0, 255));
        QCOMPARE(shared.pixel(10, 10), qRgb(255, 0, 0));
        QCOMPARE(image.pixel(10, 10), qRgb(0, 0, 255));
        QCOMPARE(image.pixel(2999, 1999), qRgb(255, 0, 0));
        // A copy outlives the image it was taken from.
        image = QImage();
        QCOMPARE(shared.pixel(2999, 1999), qRgb(255, 0, 0));
    }

    void copiesAndResizes_keepTheColourSpace()
    {
        QImage source = quadrants(QSize(40, 20));
        source.setColorSpace(QColorSpace::DisplayP3);
        QImage halfScale = source;
        halfScale.setDevicePixelRatio(2.0);
        const QImage results[] = {
            *ImageHelpers::redrawnAtScreenScale(source), *ImageHelpers::redrawnAtScreenScale(halfScale),
            *ImageHelpers::resized(source, QSizeF(30, 30)), ImageHelpers::premultipliedCopy(source)};
        for (const QImage& result : results)
            QVERIFY(result.colorSpace() == QColorSpace(QColorSpace::DisplayP3));
    }

    void redrawnAtScreenScale_ofNullImage_isEmpty()
    {
        QVERIFY(!ImageHelpers::redrawnAtScreenScale(QImage()));
    }
};

QTEST_GUILESS_MAIN(tst_ImageHelpers)
#include "tst_ImageHelpers.moc"
