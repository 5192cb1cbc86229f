#include "Editor/ImageSaver/PngEncoder.h"
#include "TestImages.h"

#include <QColorSpace>
#include <QRandomGenerator>
#include <QTest>

namespace {

// Noise defeats any shortcut in the filter or the compressor.
QImage noise(QSize size, QImage::Format format, bool opaque)
{
    QImage image(size, QImage::Format_ARGB32);
    QRandomGenerator random(42);
    for (int y = 0; y < size.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < size.width(); ++x) {
            const quint32 value = random.generate();
            row[x] = opaque ? (value | 0xFF000000u) : value;
        }
    }
    return image.convertToFormat(format);
}

// Every one of the 16 bits of every sample differs from its neighbours'.
QImage noise16(QSize size, QImage::Format format)
{
    QImage image(size, QImage::Format_RGBA64);
    QRandomGenerator random(7);
    for (int y = 0; y < size.height(); ++y) {
        auto* row = reinterpret_cast<QRgba64*>(image.scanLine(y));
        for (int x = 0; x < size.width(); ++x)
            row[x] = QRgba64::fromRgba64(random.generate64());
    }
    return image.convertToFormat(format);
}

} // namespace

class tst_PngEncoder : public QObject
{
    Q_OBJECT

private slots:
    void roundTrip_isLossless_data()
    {
        QTest::addColumn<QImage>("image");
        QTest::addColumn<int>("colourType");
        QTest::addColumn<int>("bitDepth");

        const QSize size(97, 61);
        QTest::newRow("rgb32") << noise(size, QImage::Format_RGB32, true) << 2 << 8;
        QTest::newRow("argb32 premultiplied, opaque")
            << noise(size, QImage::Format_ARGB32_Premultiplied, true) << 2 << 8;
        QTest::newRow("argb32, translucent") << noise(size, QImage::Format_ARGB32, false) << 6 << 8;
        QTest::newRow("argb32 premultiplied, translucent")
            << noise(size, QImage::Format_ARGB32_Premultiplied, false) << 6 << 8;
        QTest::newRow("rgb888") << noise(size, QImage::Format_RGB888, true) << 2 << 8;
        QTest::newRow("grayscale8") << noise(size, QImage::Format_Grayscale8, true) << 0 << 8;
        QTest::newRow("grayscale16") << noise16(size, QImage::Format_Grayscale16) << 0 << 16;
        QTest::newRow("rgbx64") << noise16(size, QImage::Format_RGBX64) << 2 << 16;
        QTest::newRow("rgba64, translucent") << noise16(size, QImage::Format_RGBA64) << 6 << 16;
        QTest::newRow("rgba64, opaque") << noise(size, QImage::Format_RGBA64, true) << 2 << 16;
        QTest::newRow("rgba64 premultiplied, translucent")
            << noise16(size, QImage::Format_RGBA64_Premultiplied) << 6 << 16;
        // Converted a band of rows at a time: tall enough for several bands.
        QTest::newRow("rgba64 premultiplied, translucent, tall")
            << noise16(QSize(300, 2000), QImage::Format_RGBA64_Premultiplied) << 6 << 16;
        QTest::newRow("argb32 premultiplied, translucent, tall")
            << noise(QSize(300, 2000), QImage::Format_ARGB32_Premultiplied, false) << 6 << 8;
        QTest::newRow("one pixel") << noise(QSize(1, 1), QImage::Format_RGB32, true) << 2 << 8;
        QTest::newRow("one row") << noise(QSize(300, 1), QImage::Format_RGB32, true) << 2 << 8;
        QTest::newRow("one column") << noise(QSize(1, 300), QImage::Format_RGB32, true) << 2 << 8;
        QTest::newRow("real photo") << QImage(TestImages::photoPath()).copy(1000, 1000, 640, 480) << 2 << 8;
    }

    void roundTrip_isLossless()
    {
        QFETCH(QImage, image);
        QFETCH(int, colourType);
        QFETCH(int, bitDepth);

        const auto png = encodePng(image);
        QVERIFY(png);
        QCOMPARE(int(png->at(24)), bitDepth);
        QCOMPARE(int(png->at(25)), colourType);

        QImage decoded;
        QVERIFY(decoded.loadFromData(*png, "png"));
        QCOMPARE(decoded.size(), image.size());
        const QImage::Format reference = bitDepth == 16    ? QImage::Format_RGBA64
                                         : colourType == 6 ? QImage::Format_ARGB32
                                                           : QImage::Format_RGB32;
        QCOMPARE(decoded.convertToFormat(reference), image.convertToFormat(reference));
    }

    void colourSpace_travelsWithThePixels_data()
    {
        QTest::addColumn<QColorSpace>("space");
        QTest::newRow("none") << QColorSpace();
        QTest::newRow("sRGB") << QColorSpace(QColorSpace::SRgb);
        QTest::newRow("Display P3, as phones shoot") << QColorSpace(QColorSpace::DisplayP3);
        QTest::newRow("Adobe RGB") << QColorSpace(QColorSpace::AdobeRgb);
    }

    void colourSpace_travelsWithThePixels()
    {
        QFETCH(QColorSpace, space);
        QImage image = noise(QSize(40, 30), QImage::Format_RGB32, true);
        image.setColorSpace(space);

        const auto png = encodePng(image);
        QVERIFY(png);
        QImage decoded;
        QVERIFY(decoded.loadFromData(*png, "png"));

        QCOMPARE(decoded.colorSpace().isValid(), space.isValid());
        if (space.isValid())
            QVERIFY(decoded.colorSpace() == space);
        QCOMPARE(decoded.convertToFormat(QImage::Format_RGB32), image.convertToFormat(QImage::Format_RGB32));
    }

    void nullImage_encodesToNothing() { QVERIFY(!encodePng(QImage())); }
};

QTEST_GUILESS_MAIN(tst_PngEncoder)
#include "tst_PngEncoder.moc"
