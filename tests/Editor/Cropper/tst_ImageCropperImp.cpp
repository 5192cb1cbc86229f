#include "Editor/Cropper/Engine/ImageCropperImp.h"
#include "Editor/Helpers/Resampling.h"
#include "Error/QuorvaneSdkImageError.h"
#include "LogRecorder.h"
#include "TestImages.h"

#include <QTest>
#include <QTransform>

using namespace TestImages;

namespace {

// Pixel (x, y) holds x in red and y in green, so any cut shows where it came from.
QImage coordinates(QSize size, qreal scale)
{
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x)
            image.setPixel(x, y, qRgb(x % 256, y % 256, (x / 256) * 16 + y / 256));
    }
    image.setDevicePixelRatio(scale);
    return image;
}

// The cut of pixels turned as the crop screen shows it, in plain steps: a copy, drawn turned on the floored
// bounding box, then mirrored.
QImage turnedCopy(const QImage& image, const QRect& pixels, double degrees, bool mirrorTopBottom)
{
    const QImage cut = image.copy(pixels);
    const QSizeF size = cut.deviceIndependentSize();
    const QRectF bounds = QTransform().rotate(degrees).mapRect(QRectF(QPointF(0, 0), size));
    const QSizeF points(std::floor(bounds.width()), std::floor(bounds.height()));
    const qreal scale = image.devicePixelRatio();
    QImage canvas = ImageHelpers::drawnTurned(
        cut, cut.rect(), qDegreesToRadians(degrees),
        QSize(int(std::ceil(points.width() * scale)), int(std::ceil(points.height() * scale))),
        QPointF(points.width(), points.height()) * scale / 2);
    canvas.setDevicePixelRatio(scale);
    return canvas.mirrored(false, mirrorTopBottom);
}

} // namespace

class tst_ImageCropperImp : public QObject
{
    Q_OBJECT

private:
    ImageCropperImp m_cropper;

private slots:
    void ranges_cutInPixelsOrAreRefused_data()
    {
        QTest::addColumn<QSize>("pixels");
        QTest::addColumn<qreal>("scale");
        QTest::addColumn<QRect>("points");
        QTest::addColumn<QRect>("expectedPixels");
        // 0 for a cut.
        QTest::addColumn<int>("code");

        const int invalidRange = QuorvaneSdkImageError::invalidCropRange;
        const int unableToCrop = QuorvaneSdkImageError::unableToCropImage;
        const QSize plain(300, 200);
        // 302 × 151 pixels at scale 3 are 100.67 × 50.33 points, which count as 100 × 50: the fractional
        // part does not make room for one more point.
        const QSize fractional(302, 151);
        QTest::newRow("whole image") << plain << 1.0 << QRect(0, 0, 300, 200) << QRect(0, 0, 300, 200) << 0;
        QTest::newRow("inner") << plain << 1.0 << QRect(10, 20, 30, 40) << QRect(10, 20, 30, 40) << 0;
        QTest::newRow("touching the far corner")
            << plain << 1.0 << QRect(299, 199, 1, 1) << QRect(299, 199, 1, 1) << 0;
        QTest::newRow("scale 3") << QSize(300, 300) << 3.0 << QRect(10, 20, 30, 40) << QRect(30, 60, 90, 120)
                                 << 0;
        QTest::newRow("truncated point size")
            << fractional << 3.0 << QRect(0, 0, 100, 50) << QRect(0, 0, 300, 150) << 0;
        QTest::newRow("one point too wide")
            << plain << 1.0 << QRect(0, 0, 301, 200) << QRect() << invalidRange;
        QTest::newRow("one point too tall")
            << plain << 1.0 << QRect(0, 1, 300, 200) << QRect() << invalidRange;
        QTest::newRow("negative x") << plain << 1.0 << QRect(-1, 0, 10, 10) << QRect() << invalidRange;
        QTest::newRow("negative y") << plain << 1.0 << QRect(0, -1, 10, 10) << QRect() << invalidRange;
        QTest::newRow("zero width passes the range, fails the cut")
            << plain << 1.0 << QRect(10, 10, 0, 10) << QRect() << unableToCrop;
        QTest::newRow("zero height") << plain << 1.0 << QRect(10, 10, 10, 0) << QRect() << unableToCrop;
        QTest::newRow("negative width") << plain << 1.0 << QRect(10, 10, -5, 10) << QRect() << unableToCrop;
        QTest::newRow("one point past a truncated width")
            << fractional << 3.0 << QRect(0, 0, 101, 50) << QRect() << invalidRange;
        QTest::newRow("one point past a truncated height")
            << fractional << 3.0 << QRect(0, 0, 100, 51) << QRect() << invalidRange;
        QTest::newRow("shifted one point past a truncated width")
            << fractional << 3.0 << QRect(1, 0, 100, 50) << QRect() << invalidRange;
    }

    void ranges_cutInPixelsOrAreRefused()
    {
        QFETCH(QSize, pixels);
        QFETCH(qreal, scale);
        QFETCH(QRect, points);
        QFETCH(QRect, expectedPixels);
        QFETCH(int, code);
        const QImage image = coordinates(pixels, scale);
        LogRecorder log;
        QStringList expectedLog{"ImageCropperImp: start crop image"};
        try {
            const QImage cut =
                m_cropper.crop({image, points.x(), points.y(), points.width(), points.height()});
            QCOMPARE(code, 0);
            QCOMPARE(cut.devicePixelRatio(), scale);
            QCOMPARE(cut.convertToFormat(QImage::Format_RGB32), image.copy(expectedPixels));
            expectedLog << "ImageCropperImp: crop image";
        } catch (const QuorvaneSdkImageError& error) {
            QCOMPARE(int(error.code()), code);
            QCOMPARE(toString(log.records().last().severity), toString(SharedQuorvaneSdkLogSeverity::error));
            // A range the image cannot hold is refused before any cut is tried.
            if (code == QuorvaneSdkImageError::invalidCropRange)
                expectedLog << "ImageCropperImp: invalid crop range";
            else
                expectedLog << "ImageCropperImp: crop image"
                            << "ImageCropperImp: crop image failed";
        }
        QCOMPARE(log.lines(), expectedLog);
    }

    void quarterTurnsAndFlips_followTheCut_data()
    {
        QTest::addColumn<qreal>("scale");
        QTest::addColumn<double>("degrees");
        QTest::addColumn<bool>("flipHorizontally");
        QTest::addColumn<bool>("flipVertically");
        QTest::addColumn<int>("referenceOrientation");
        QTest::addColumn<int>("thenMirror");

        // The reference: turn with the EXIF transform, then mirror in screen axes (2 = left-right, 3 = both,
        // 4 = top-bottom). Plain turns are the geometry helpers' own; here the flags meet them.
        QTest::newRow("no turn") << 1.0 << 0.0 << false << false << 1 << 1;
        QTest::newRow("flip h") << 1.0 << 0.0 << true << false << 1 << 2;
        QTest::newRow("flip v") << 1.0 << 0.0 << false << true << 1 << 4;
        // At a quarter turn the horizontal flag mirrors top to bottom, as the crop screen shows it.
        QTest::newRow("90, flip h") << 1.0 << 90.0 << true << false << 6 << 4;
        QTest::newRow("90, flip v") << 1.0 << 90.0 << false << true << 6 << 2;
        QTest::newRow("180, flip h") << 1.0 << 180.0 << true << false << 3 << 2;
        QTest::newRow("-270, flip h") << 1.0 << -270.0 << true << false << 6 << 4;
        // Three pixels a point: the cut is made at full resolution.
        QTest::newRow("scale 3, -90, flip v") << 3.0 << -90.0 << false << true << 8 << 2;
        QTest::newRow("scale 3, 270, both flips") << 3.0 << 270.0 << true << true << 8 << 3;
    }

    void quarterTurnsAndFlips_followTheCut()
    {
        QFETCH(qreal, scale);
        QFETCH(double, degrees);
        QFETCH(bool, flipHorizontally);
        QFETCH(bool, flipVertically);
        QFETCH(int, referenceOrientation);
        QFETCH(int, thenMirror);
        const QImage image = coordinates(QSize(300, 200) * scale, scale);

        const QImage result = m_cropper.crop(
            {image, 30, 20, 120, 70, Angle::degrees(degrees), flipHorizontally, flipVertically});

        const QImage pixels = image.copy(QRectF(30 * scale, 20 * scale, 120 * scale, 70 * scale).toRect());
        QImage expected = displayed(displayed(pixels, referenceOrientation), thenMirror);
        expected.setDevicePixelRatio(scale);
        QCOMPARE(result.convertToFormat(QImage::Format_RGB32), expected);
    }

    void freeTurn_ofACut_drawsOnTheFlooredBoundingBox_data()
    {
        QTest::addColumn<qreal>("scale");
        QTest::addColumn<QRect>("points");
        QTest::addColumn<double>("degrees");
        QTest::addColumn<bool>("flipHorizontally");
        QTest::addColumn<QRect>("pixels");
        // The turned bounding box floored to whole points, in pixels rounded up.
        QTest::addColumn<QSize>("turnedPixels");
        // Every pixel differs from its neighbours: one read from beyond the cut shows.
        // 151 × 97 turned 30°: 151·cos 30° + 97·sin 30° = 179.3 wide, 151·sin 30° + 97·cos 30° = 159.5 tall.
        QTest::newRow("30, inner cut")
            << 1.0 << QRect(37, 23, 151, 97) << 30.0 << false << QRect(37, 23, 151, 97) << QSize(179, 159);
        QTest::newRow("30, flipped") << 1.0 << QRect(37, 23, 151, 97) << 30.0 << true
                                     << QRect(37, 23, 151, 97) << QSize(179, 159);
        // 150 × 100 turned 45°: 176.8 both ways.
        QTest::newRow("-45, cut at the far corner") << 1.0 << QRect(150, 100, 150, 100) << -45.0 << false
                                                    << QRect(150, 100, 150, 100) << QSize(176, 176);
        // 200 × 100 turned 30°: 223.2 × 186.6 points.
        QTest::newRow("30 at scale 2")
            << 2.0 << QRect(0, 0, 200, 100) << 30.0 << false << QRect(0, 0, 400, 200) << QSize(446, 372);
        // 1.5 pixels a point: the cut widens to whole pixels, 92 × 62 of them (61.33 × 41.33 points), turned
        // 12.5° 68.8 × 53.6 points.
        QTest::newRow("12.5 at scale 1.5")
            << 1.5 << QRect(3, 5, 61, 41) << 12.5 << false << QRect(4, 7, 92, 62) << QSize(102, 80);
    }

    void freeTurn_ofACut_drawsOnTheFlooredBoundingBox()
    {
        QFETCH(qreal, scale);
        QFETCH(QRect, points);
        QFETCH(double, degrees);
        QFETCH(bool, flipHorizontally);
        QFETCH(QRect, pixels);
        QFETCH(QSize, turnedPixels);
        const QImage image = coordinates(QSize(300, 200) * scale, scale);

        const QImage result = m_cropper.crop({image, points.x(), points.y(), points.width(), points.height(),
                                              Angle::degrees(degrees), flipHorizontally, false});

        QCOMPARE(result.devicePixelRatio(), scale);
        QCOMPARE(result.size(), turnedPixels);
        // Turned by a free angle, the horizontal flag mirrors top to bottom.
        QCOMPARE(result, turnedCopy(image, pixels, degrees, flipHorizontally));
    }
};

QTEST_GUILESS_MAIN(tst_ImageCropperImp)
#include "tst_ImageCropperImp.moc"
