#include "Editor/Cropper/Engine/ImageCropperImp.h"
#include "Error/QuorvaneSdkImageError.h"
#include "LogRecorder.h"
#include "TestImages.h"

#include <QPainter>
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

// The cut of pixels turned as the crop screen shows it, in plain steps: a copy, drawn turned by a QTransform
// on the floored bounding box, then mirrored.
QImage turnedCopy(const QImage& image, const QRect& pixels, double degrees, bool mirrorTopBottom)
{
    const QImage cut = image.copy(pixels);
    const QSizeF size = cut.deviceIndependentSize();
    const QRectF bounds = QTransform().rotate(degrees).mapRect(QRectF(QPointF(0, 0), size));
    const QSizeF points(std::floor(bounds.width()), std::floor(bounds.height()));
    const qreal scale = image.devicePixelRatio();
    QImage canvas(QSize(int(std::ceil(points.width() * scale)), int(std::ceil(points.height() * scale))),
                  QImage::Format_ARGB32_Premultiplied);
    canvas.setDevicePixelRatio(scale);
    canvas.fill(Qt::transparent);
    QPainter painter(&canvas);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.setTransform(QTransform().translate(points.width() / 2, points.height() / 2).rotate(degrees));
    painter.drawImage(QRectF(QPointF(-size.width() / 2, -size.height() / 2), size), cut);
    painter.end();
    return canvas.mirrored(false, mirrorTopBottom);
}

} // namespace

class tst_ImageCropperImp : public QObject
{
    Q_OBJECT

private:
    ImageCropperImp m_cropper;

private slots:
    void validRanges_cutInPixels_data()
    {
        QTest::addColumn<QSize>("pixels");
        QTest::addColumn<qreal>("scale");
        QTest::addColumn<QRect>("points");
        QTest::addColumn<QRect>("expectedPixels");

        QTest::newRow("whole image") << QSize(300, 200) << 1.0 << QRect(0, 0, 300, 200)
                                     << QRect(0, 0, 300, 200);
        QTest::newRow("inner") << QSize(300, 200) << 1.0 << QRect(10, 20, 30, 40) << QRect(10, 20, 30, 40);
        QTest::newRow("touching the far corner")
            << QSize(300, 200) << 1.0 << QRect(299, 199, 1, 1) << QRect(299, 199, 1, 1);
        QTest::newRow("scale 3") << QSize(300, 300) << 3.0 << QRect(10, 20, 30, 40) << QRect(30, 60, 90, 120);
        // 302 × 151 pixels at scale 3 are 100.67 × 50.33 points: ranges up to 100 × 50 are accepted.
        QTest::newRow("truncated point size")
            << QSize(302, 151) << 3.0 << QRect(0, 0, 100, 50) << QRect(0, 0, 300, 150);
    }

    void validRanges_cutInPixels()
    {
        QFETCH(QSize, pixels);
        QFETCH(qreal, scale);
        QFETCH(QRect, points);
        QFETCH(QRect, expectedPixels);
        const QImage image = coordinates(pixels, scale);
        LogRecorder log;

        const QImage cut = m_cropper.crop({image, points.x(), points.y(), points.width(), points.height()});

        QCOMPARE(cut.devicePixelRatio(), scale);
        QCOMPARE(cut.size(), expectedPixels.size());
        QCOMPARE(cut.convertToFormat(QImage::Format_RGB32), image.copy(expectedPixels));
        QCOMPARE(log.lines(),
                 (QStringList{"ImageCropperImp: start crop image", "ImageCropperImp: crop image"}));
    }

    void invalidRanges_areRefused_data()
    {
        QTest::addColumn<QSize>("pixels");
        QTest::addColumn<qreal>("scale");
        QTest::addColumn<QRect>("points");
        QTest::addColumn<int>("code");
        QTest::addColumn<QStringList>("logLines");

        const QStringList invalid{"ImageCropperImp: start crop image", "ImageCropperImp: invalid crop range"};
        const QStringList failed{"ImageCropperImp: start crop image", "ImageCropperImp: crop image",
                                 "ImageCropperImp: crop image failed"};
        const int invalidRange = QuorvaneSdkImageError::invalidCropRange;
        const int unableToCrop = QuorvaneSdkImageError::unableToCropImage;
        const QSize plain(300, 200);
        QTest::newRow("one point too wide")
            << plain << 1.0 << QRect(0, 0, 301, 200) << invalidRange << invalid;
        QTest::newRow("one point too tall")
            << plain << 1.0 << QRect(0, 1, 300, 200) << invalidRange << invalid;
        QTest::newRow("negative x") << plain << 1.0 << QRect(-1, 0, 10, 10) << invalidRange << invalid;
        QTest::newRow("negative y") << plain << 1.0 << QRect(0, -1, 10, 10) << invalidRange << invalid;
        QTest::newRow("zero width passes the range, fails the cut")
            << plain << 1.0 << QRect(10, 10, 0, 10) << unableToCrop << failed;
        QTest::newRow("zero height") << plain << 1.0 << QRect(10, 10, 10, 0) << unableToCrop << failed;
        QTest::newRow("negative width") << plain << 1.0 << QRect(10, 10, -5, 10) << unableToCrop << failed;
        // 302 × 151 pixels at scale 3 are 100.67 × 50.33 points, which count as 100 × 50: the fractional
        // part does not make room for one more point.
        const QSize fractional(302, 151);
        QTest::newRow("one point past a truncated width")
            << fractional << 3.0 << QRect(0, 0, 101, 50) << invalidRange << invalid;
        QTest::newRow("one point past a truncated height")
            << fractional << 3.0 << QRect(0, 0, 100, 51) << invalidRange << invalid;
        QTest::newRow("shifted one point past a truncated width")
            << fractional << 3.0 << QRect(1, 0, 100, 50) << invalidRange << invalid;
    }

    void invalidRanges_areRefused()
    {
        QFETCH(QSize, pixels);
        QFETCH(qreal, scale);
        QFETCH(QRect, points);
        QFETCH(int, code);
        QFETCH(QStringList, logLines);
        const QImage image = coordinates(pixels, scale);
        LogRecorder log;
        try {
            m_cropper.crop({image, points.x(), points.y(), points.width(), points.height()});
            QFAIL("crop did not throw");
        } catch (const QuorvaneSdkImageError& error) {
            QCOMPARE(int(error.code()), code);
        }
        QCOMPARE(log.lines(), logLines);
        QCOMPARE(toString(log.records().last().severity), toString(SharedQuorvaneSdkLogSeverity::error));
    }

    void turnsAndFlips_followTheCut_data()
    {
        QTest::addColumn<double>("degrees");
        QTest::addColumn<bool>("flipHorizontally");
        QTest::addColumn<bool>("flipVertically");
        QTest::addColumn<int>("referenceOrientation");
        QTest::addColumn<int>("thenMirror");

        // The reference: turn with the EXIF transform, then mirror in screen axes (2 = left-right, 4 =
        // top-bottom).
        QTest::newRow("no turn") << 0.0 << false << false << 1 << 1;
        QTest::newRow("90") << 90.0 << false << false << 6 << 1;
        QTest::newRow("-90") << -90.0 << false << false << 8 << 1;
        QTest::newRow("180") << 180.0 << false << false << 3 << 1;
        QTest::newRow("flip h") << 0.0 << true << false << 1 << 2;
        QTest::newRow("flip v") << 0.0 << false << true << 1 << 4;
        // At a quarter turn the horizontal flag mirrors top to bottom, as the crop screen shows it.
        QTest::newRow("90, flip h") << 90.0 << true << false << 6 << 4;
        QTest::newRow("90, flip v") << 90.0 << false << true << 6 << 2;
        QTest::newRow("180, flip h") << 180.0 << true << false << 3 << 2;
        QTest::newRow("-270, flip h") << -270.0 << true << false << 6 << 4;
    }

    void turnsAndFlips_followTheCut()
    {
        QFETCH(double, degrees);
        QFETCH(bool, flipHorizontally);
        QFETCH(bool, flipVertically);
        QFETCH(int, referenceOrientation);
        QFETCH(int, thenMirror);
        const QImage image = coordinates(QSize(300, 200), 1.0);

        const QImage result = m_cropper.crop(
            {image, 30, 20, 120, 70, Angle::degrees(degrees), flipHorizontally, flipVertically});

        const QImage cut = image.copy(30, 20, 120, 70);
        const QImage expected = displayed(displayed(cut, referenceOrientation), thenMirror);
        QCOMPARE(result.convertToFormat(QImage::Format_RGB32), expected);
    }

    void realPhoto_cropsAtFullResolution()
    {
        const QImage photo(photoPath());
        const QImage cut = m_cropper.crop({photo, 1000, 500, 2000, 1500, Angle::degrees(90), false, true});
        QCOMPARE(cut.size(), QSize(1500, 2000));
        QCOMPARE(cut.pixel(0, 0), photo.pixel(1000, 500));
    }

    void realPhotoAtScale3_turnedAndFlipped_matchesPlainTransforms_data()
    {
        QTest::addColumn<double>("degrees");
        QTest::addColumn<bool>("flipHorizontally");
        QTest::addColumn<bool>("flipVertically");
        QTest::addColumn<bool>("mirrorLeftRight");
        QTest::addColumn<bool>("mirrorTopBottom");
        // The reference mirrors in the turned image's axes; at a quarter turn each flag swaps axis.
        QTest::newRow("90, flip h") << 90.0 << true << false << false << true;
        QTest::newRow("90, flip v") << 90.0 << false << true << true << false;
        QTest::newRow("-90, flip h") << -90.0 << true << false << false << true;
        QTest::newRow("270, both flips") << 270.0 << true << true << true << true;
        QTest::newRow("180, flip h") << 180.0 << true << false << true << false;
    }

    void realPhotoAtScale3_turnedAndFlipped_matchesPlainTransforms()
    {
        QFETCH(double, degrees);
        QFETCH(bool, flipHorizontally);
        QFETCH(bool, flipVertically);
        QFETCH(bool, mirrorLeftRight);
        QFETCH(bool, mirrorTopBottom);
        QImage photo(photoPath());
        QVERIFY(!photo.isNull());
        photo.setDevicePixelRatio(3); // 4224 × 3168 pixels are 1408 × 1056 points

        const QImage result = m_cropper.crop(
            {photo, 200, 150, 800, 600, Angle::degrees(degrees), flipHorizontally, flipVertically});

        QImage expected = photo.copy(600, 450, 2400, 1800)
                              .transformed(QTransform().rotate(degrees))
                              .mirrored(mirrorLeftRight, mirrorTopBottom)
                              .convertToFormat(QImage::Format_RGB32);
        expected.setDevicePixelRatio(3);
        QCOMPARE(result.devicePixelRatio(), 3.0);
        QCOMPARE(result.convertToFormat(QImage::Format_RGB32), expected);
    }

    void nonQuarterTurn_drawsOnTheFlooredBoundingBox_data()
    {
        QTest::addColumn<QSize>("pixels");
        QTest::addColumn<qreal>("scale");
        QTest::addColumn<double>("degrees");
        QTest::addColumn<QSizeF>("canvasPoints");
        // 200 × 100 points turned 30°: 200·cos 30° + 100·sin 30° = 223.2 wide,
        // 200·sin 30° + 100·cos 30° = 186.6 tall.
        QTest::newRow("30") << QSize(200, 100) << 1.0 << 30.0 << QSizeF(223, 186);
        QTest::newRow("-30") << QSize(200, 100) << 1.0 << -30.0 << QSizeF(223, 186);
        QTest::newRow("30 at scale 2") << QSize(400, 200) << 2.0 << 30.0 << QSizeF(223, 186);
        // 100 × 100 points turned 45°: 141.42 both ways.
        QTest::newRow("45, square") << QSize(100, 100) << 1.0 << 45.0 << QSizeF(141, 141);
    }

    void nonQuarterTurn_drawsOnTheFlooredBoundingBox()
    {
        QFETCH(QSize, pixels);
        QFETCH(qreal, scale);
        QFETCH(double, degrees);
        QFETCH(QSizeF, canvasPoints);
        // Blue with a red middle much larger than any smoothing reach, so the centre colour is unblended.
        QImage source(pixels, QImage::Format_RGB32);
        source.fill(Qt::blue);
        for (int y = pixels.height() / 4; y < 3 * pixels.height() / 4; ++y) {
            for (int x = pixels.width() / 4; x < 3 * pixels.width() / 4; ++x)
                source.setPixel(x, y, qRgb(255, 0, 0));
        }
        source.setDevicePixelRatio(scale);
        const QSizeF points = source.deviceIndependentSize();

        const QImage result = m_cropper.crop(
            {source, 0, 0, qint64(points.width()), qint64(points.height()), Angle::degrees(degrees)});

        QCOMPARE(result.devicePixelRatio(), scale);
        QCOMPARE(result.deviceIndependentSize(), canvasPoints);
        QCOMPARE(result.size(), (canvasPoints * scale).toSize());
        QVERIFY(result.hasAlphaChannel());
        const int right = result.width() - 1;
        const int bottom = result.height() - 1;
        for (const QPoint corner : {QPoint(0, 0), QPoint(right, 0), QPoint(0, bottom), QPoint(right, bottom)})
            QCOMPARE(qAlpha(result.pixel(corner)), 0);
        QCOMPARE(result.pixelColor(result.width() / 2, result.height() / 2),
                 source.pixelColor(pixels.width() / 2, pixels.height() / 2));
    }

    void freeTurn_ofACut_matchesTurningACopy_data()
    {
        QTest::addColumn<qreal>("scale");
        QTest::addColumn<QRect>("points");
        QTest::addColumn<double>("degrees");
        QTest::addColumn<bool>("flipHorizontally");
        QTest::addColumn<QRect>("pixels");
        // Every pixel differs from its neighbours: one read from beyond the cut shows.
        QTest::newRow("30, inner cut")
            << 1.0 << QRect(37, 23, 151, 97) << 30.0 << false << QRect(37, 23, 151, 97);
        QTest::newRow("-45, cut at the far corner")
            << 1.0 << QRect(150, 100, 150, 100) << -45.0 << false << QRect(150, 100, 150, 100);
        QTest::newRow("30, flipped") << 1.0 << QRect(37, 23, 151, 97) << 30.0 << true
                                     << QRect(37, 23, 151, 97);
        // 1.5 pixels a point: the cut widens to whole pixels.
        QTest::newRow("12.5 at scale 1.5")
            << 1.5 << QRect(3, 5, 61, 41) << 12.5 << false << QRect(4, 7, 92, 62);
    }

    void freeTurn_ofACut_matchesTurningACopy()
    {
        QFETCH(qreal, scale);
        QFETCH(QRect, points);
        QFETCH(double, degrees);
        QFETCH(bool, flipHorizontally);
        QFETCH(QRect, pixels);
        const QImage image = coordinates(QSize(300, 200), scale);

        const QImage result = m_cropper.crop({image, points.x(), points.y(), points.width(), points.height(),
                                              Angle::degrees(degrees), flipHorizontally, false});

        // Turned by a free angle, the horizontal flag mirrors top to bottom.
        const QImage expected = turnedCopy(image, pixels, degrees, flipHorizontally);
        QCOMPARE(result.devicePixelRatio(), scale);
        QCOMPARE(result, expected);
    }

    void resizeImage_rendersAtScaleOne()
    {
        LogRecorder log;
        const auto resized = m_cropper.resizeImage(coordinates(QSize(300, 300), 3.0), QSizeF(640, 480));
        QVERIFY(resized);
        QCOMPARE(resized->size(), QSize(640, 480));
        QCOMPARE(resized->devicePixelRatio(), 1.0);
        QCOMPARE(log.lines(), QStringList{"ImageCropperImp: resize image"});
        QVERIFY(!m_cropper.resizeImage(coordinates(QSize(3, 3), 1.0), QSizeF(0, 10)));
    }
};

QTEST_GUILESS_MAIN(tst_ImageCropperImp)
#include "tst_ImageCropperImp.moc"
