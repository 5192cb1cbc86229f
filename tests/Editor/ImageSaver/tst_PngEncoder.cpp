#include "Editor/ImageSaver/ImageBands.h"
#include "Editor/ImageSaver/PngEncoder.h"
#include "TestImages.h"

#include <QColorSpace>
#include <QTest>

using namespace TestImages;

namespace {

QImage inSpace(QImage image, QColorSpace::NamedColorSpace space)
{
    image.setColorSpace(space);
    return image;
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
        // The colour space travels with the pixels: sRGB by name, others as their profile.
        QTest::newRow("rgb32, sRGB") << inSpace(noise(size, QImage::Format_RGB32, true), QColorSpace::SRgb)
                                     << 2 << 8;
        QTest::newRow("argb32 premultiplied, opaque")
            << noise(size, QImage::Format_ARGB32_Premultiplied, true) << 2 << 8;
        QTest::newRow("argb32, translucent, Display P3")
            << inSpace(noise(size, QImage::Format_ARGB32, false), QColorSpace::DisplayP3) << 6 << 8;
        QTest::newRow("rgb888") << noise(size, QImage::Format_RGB888, true) << 2 << 8;
        QTest::newRow("grayscale8") << noise(size, QImage::Format_Grayscale8, true) << 0 << 8;
        QTest::newRow("grayscale16") << noise16(size, QImage::Format_Grayscale16) << 0 << 16;
        QTest::newRow("rgbx64, Adobe RGB")
            << inSpace(noise16(size, QImage::Format_RGBX64), QColorSpace::AdobeRgb) << 2 << 16;
        QTest::newRow("rgba64, translucent") << noise16(size, QImage::Format_RGBA64) << 6 << 16;
        QTest::newRow("rgba64, opaque") << noise(size, QImage::Format_RGBA64, true) << 2 << 16;
        // Converted a band of rows at a time: tall enough for several bands.
        QTest::newRow("rgba64 premultiplied, translucent, tall")
            << noise16(QSize(300, 2000), QImage::Format_RGBA64_Premultiplied) << 6 << 16;
        QTest::newRow("argb32 premultiplied, translucent, tall")
            << noise(QSize(300, 2000), QImage::Format_ARGB32_Premultiplied, false) << 6 << 8;
        QTest::newRow("one pixel") << noise(QSize(1, 1), QImage::Format_RGB32, true) << 2 << 8;
        QTest::newRow("one column") << noise(QSize(1, 300), QImage::Format_RGB32, true) << 2 << 8;
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
        QCOMPARE(decoded.colorSpace(), image.colorSpace());
        const QImage::Format reference = bitDepth == 16    ? QImage::Format_RGBA64
                                         : colourType == 6 ? QImage::Format_ARGB32
                                                           : QImage::Format_RGB32;
        // Premultiplied pixels are made straight as Qt's scalar code does (convertedBand()).
        QCOMPARE(decoded.convertToFormat(reference), convertedBand(image, reference));
    }

    void nullImage_encodesToNothing() { QVERIFY(!encodePng(QImage())); }
};

QTEST_GUILESS_MAIN(tst_PngEncoder)
#include "tst_PngEncoder.moc"
