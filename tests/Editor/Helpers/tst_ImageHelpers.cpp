#include "Editor/Helpers/ImageHelpers.h"
#include "TestImages.h"

#include <QColorSpace>
#include <QTest>
#include <algorithm>
#include <limits>

using namespace TestImages;

class tst_ImageHelpers : public QObject
{
    Q_OBJECT

private slots:
    void resized_stretchesToThePointSize_data()
    {
        QTest::addColumn<QSizeF>("size");
        // None: the size is no image, and refused.
        QTest::addColumn<QSize>("pixels");
        const qreal inf = std::numeric_limits<qreal>::infinity();
        const qreal nan = std::numeric_limits<qreal>::quiet_NaN();
        QTest::newRow("larger") << QSizeF(300, 200) << QSize(300, 200);
        QTest::newRow("other aspect") << QSizeF(50, 50) << QSize(50, 50);
        QTest::newRow("fractional points round up") << QSizeF(20.2, 10.5) << QSize(21, 11);
        QTest::newRow("zero width") << QSizeF(0, 10) << QSize();
        QTest::newRow("negative") << QSizeF(-10, 10) << QSize();
        QTest::newRow("infinite") << QSizeF(inf, 10) << QSize();
        QTest::newRow("not a number") << QSizeF(nan, nan) << QSize();
        QTest::newRow("absurdly large") << QSizeF(1e6, 1e6) << QSize();
    }

    void resized_stretchesToThePointSize()
    {
        QFETCH(QSizeF, size);
        QFETCH(QSize, pixels);
        QImage source = quadrants(QSize(120, 60));
        source.setColorSpace(QColorSpace::DisplayP3);
        const QImage before = source.copy();

        const auto result = ImageHelpers::resized(source, size);

        QCOMPARE(bool(result), pixels.isValid());
        QCOMPARE(source, before);
        if (!result)
            return;
        QCOMPARE(result->size(), pixels);
        QCOMPARE(result->devicePixelRatio(), ImageHelpers::screenScale());
        QVERIFY(result->colorSpace() == source.colorSpace());
        // Stretched, not cropped: each quarter keeps its colour.
        QVERIFY(quartersMatch(*result, source, 2));
    }

    void redrawnAtScreenScale_keepsThePointSize_data()
    {
        QTest::addColumn<qreal>("scale");
        QTest::newRow("the screen's: the same pixels") << 1.0;
        QTest::newRow("another: redrawn") << 2.0;
    }

    void redrawnAtScreenScale_keepsThePointSize()
    {
        QFETCH(qreal, scale);
        QImage source = quadrants(QSize(40, 20));
        source.setDevicePixelRatio(scale);
        source.setColorSpace(QColorSpace::DisplayP3);
        const auto copy = ImageHelpers::redrawnAtScreenScale(source);
        QVERIFY(copy);
        QVERIFY(copy->colorSpace() == source.colorSpace());
        QCOMPARE(copy->deviceIndependentSize(), QSizeF(40, 20) / scale);
        QCOMPARE(copy->size(), QSize(40, 20) / scale);
        QVERIFY(copy->hasAlphaChannel());
        QVERIFY(quartersMatch(*copy, source, 2));
        if (scale == 1.0)
            QCOMPARE(copy->convertToFormat(QImage::Format_RGB32), source);
        QVERIFY(!ImageHelpers::redrawnAtScreenScale(QImage()));
    }

    void premultipliedCopy_keepsEveryPixelAndOwnsThem_data()
    {
        QTest::addColumn<QImage>("source");
        QTest::newRow("opaque, small") << quadrants(QSize(40, 20)).convertToFormat(QImage::Format_RGB32);
        // Large enough for a buffer of its own kind.
        const QImage large = quadrants(QSize(2000, 1500));
        QTest::newRow("opaque, photo sized") << large.convertToFormat(QImage::Format_RGB32);
        QTest::newRow("premultiplied, photo sized")
            << large.convertToFormat(QImage::Format_ARGB32_Premultiplied);
        QTest::newRow("straight alpha") << quadrants(QSize(300, 200)).convertToFormat(QImage::Format_ARGB32);
        QTest::newRow("24-bit") << large.convertToFormat(QImage::Format_RGB888);
        // A host's 32-bit buffer whose unused byte is zero, as camera frames often are; fill() would set it.
        QImage host(2000, 1500, QImage::Format_RGB32);
        for (int y = 0; y < host.height(); ++y)
            std::fill_n(reinterpret_cast<quint32*>(host.scanLine(y)), host.width(), 0x00336699u);
        host.setDotsPerMeterX(11811);
        host.setText(QStringLiteral("Comment"), QStringLiteral("from the host"));
        QTest::newRow("host's buffer, unused byte zero") << host;
    }

    void premultipliedCopy_keepsEveryPixelAndOwnsThem()
    {
        QFETCH(QImage, source);
        source.setDevicePixelRatio(2.0);
        source.setColorSpace(QColorSpace::DisplayP3);
        const QImage before = source.copy();

        QImage copy = ImageHelpers::premultipliedCopy(source);

        QVERIFY(copy.constBits() != source.constBits());
        QCOMPARE(copy.format(), QImage::Format_ARGB32_Premultiplied);
        QCOMPARE(copy.devicePixelRatio(), 2.0);
        QVERIFY(copy.colorSpace() == source.colorSpace());
        QCOMPARE(copy.dotsPerMeterX(), source.dotsPerMeterX());
        QCOMPARE(copy.text(), source.text());
        // Opaque where the source is: a format without alpha is read as opaque whatever its unused byte
        // holds.
        QCOMPARE(copy.convertToFormat(QImage::Format_ARGB32), before.convertToFormat(QImage::Format_ARGB32));
        // Drawing on the copy leaves the source alone.
        copy.fill(Qt::transparent);
        QCOMPARE(source, before);
    }

    void newImage_isWritableAndSurvivesCopies()
    {
        QImage image = ImageHelpers::newImage(QSize(3000, 2000), QImage::Format_ARGB32_Premultiplied);
        QVERIFY(!image.isNull());
        QCOMPARE(image.bytesPerLine(), 3000 * 4);
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
};

QTEST_GUILESS_MAIN(tst_ImageHelpers)
#include "tst_ImageHelpers.moc"
