#include "Editor/Filters/Engine/CpuColorEngine.h"
#include "Editor/Filters/Engine/FiltersManager.h"
#include "Editor/Helpers/ImageHelpers.h"
#include "TestImages.h"

#include <QImageReader>
#include <QRandomGenerator>
#include <QTest>
#include <QVulkanInstance>
#include <cmath>
#include <limits>

namespace {

using Engine = FiltersManager::Engine;

// An independent reading of the engine's contract, exact in double precision: the premultiplied bytes times
// the matrix as a row vector, saturated to 0…255, rounded half up.
QImage scalarReference(const QImage& image, const ColorMatrix& m)
{
    QImage in = image.convertToFormat(QImage::Format_RGBA8888_Premultiplied);
    // An opaque format's fourth byte means nothing: opaque whatever it holds.
    if (!image.hasAlphaChannel()) {
        for (int y = 0; y < in.height(); ++y)
            for (int x = 0; x < in.width(); ++x)
                in.scanLine(y)[4 * x + 3] = 255;
    }
    QImage out(in.size(), QImage::Format_RGBA8888_Premultiplied);
    for (int y = 0; y < in.height(); ++y) {
        for (int x = 0; x < in.width(); ++x) {
            const uchar* p = in.constScanLine(y) + 4 * x;
            for (int j = 0; j < 4; ++j) {
                double v = 0;
                for (int k = 0; k < 4; ++k)
                    v += p[k] * double(m[4 * k + j]);
                out.scanLine(y)[4 * x + j] = uchar(std::floor(std::clamp(v, 0.0, 255.0) + 0.5));
            }
        }
    }
    return out;
}

// Whether two images agree within 1 in every channel, without a lean either way: float rounding may tip a
// value that lies on or next to a half either way, but truncating instead of rounding leans by half a level.
QByteArray disagreement(const QImage& a, const QImage& b)
{
    if (a.size() != b.size() || a.format() != b.format())
        return "size or format differs";
    int largest = 0;
    qint64 differing = 0;
    qint64 lean = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (qsizetype i = 0; i < qsizetype(a.width()) * 4; ++i) {
            const int difference = a.constScanLine(y)[i] - b.constScanLine(y)[i];
            largest = std::max(largest, std::abs(difference));
            differing += difference != 0;
            lean += difference;
        }
    }
    const qint64 channels = qint64(a.width()) * a.height() * 4;
    if (largest <= 1 && std::abs(lean) * 50 <= channels)
        return {};
    return "differs by up to " + QByteArray::number(largest) + " in " + QByteArray::number(differing) +
           " of " + QByteArray::number(channels) + " channels, leaning by " + QByteArray::number(lean);
}

// The formats whose fourth byte means nothing: the engine must take them as opaque whatever it holds.
QImage withAlphaBytesZeroed(QImage image)
{
    const int alpha =
        image.format() == QImage::Format_RGB32 && QSysInfo::ByteOrder == QSysInfo::BigEndian ? 0 : 3;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            image.scanLine(y)[4 * x + alpha] = 0;
    return image;
}

// Premultiplied pixels of every kind: transparent, half and fully opaque, black and white, and random ones.
QImage craftedPixels(QSize size, QImage::Format format)
{
    QImage image(size, QImage::Format_RGBA8888_Premultiplied);
    QRandomGenerator random(size.width() * 1000 + size.height());
    const uchar alphas[] = {0, 128, 255, 255};
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            uchar* p = image.scanLine(y) + 4 * x;
            const uchar a = (x + y) % 5 == 4 ? uchar(random.bounded(256)) : alphas[(x + 2 * y) % 4];
            const uchar level = (x + y) % 7 == 0 ? a : (x + y) % 7 == 1 ? 0 : uchar(random.bounded(a + 1));
            for (int c = 0; c < 3; ++c)
                p[c] = (x * 3 + c) % 4 == 0 ? level : uchar(random.bounded(a + 1));
            p[3] = a;
        }
    }
    return image.convertToFormat(format);
}

// Vulkan's validation layer reaches Qt's log as debug messages.
QStringList validationMessages;
QtMessageHandler qtHandler = nullptr;

void recordValidation(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (message.startsWith(u"vkDebug:"))
        validationMessages.append(message);
    qtHandler(type, context, message);
}

QImage photo()
{
    QImageReader reader(TestImages::photoPath());
    reader.setScaledSize(QSize(528, 396));
    return reader.read();
}

} // namespace

class tst_FiltersManager : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<FiltersManager> m_manager;

private slots:
    // Run plainly, the CPU engine is under test. Under Xvfb the CTest entries name a GPU backend, which must
    // then be the one in use, and Vulkan's validation layer is on: any message it prints fails the test.
    void initTestCase()
    {
        qtHandler = qInstallMessageHandler(recordValidation);
        const QString backend = qEnvironmentVariable("QUORVANE_EXPECT_BACKEND");
        m_manager = std::make_unique<FiltersManager>(backend.isEmpty() ? Engine::Cpu : Engine::Gpu);
        QCOMPARE(m_manager->backendName(), backend.isEmpty() ? QStringLiteral("CPU") : backend);
#if QT_CONFIG(vulkan)
        if (backend == u"Vulkan") {
            QVulkanInstance instance;
            QVERIFY2(instance.supportedLayers().contains("VK_LAYER_KHRONOS_validation"),
                     "Vulkan's validation layer is installed");
        }
#endif
    }

    void init()
    {
        QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    }

    void cleanup()
    {
        const QStringList messages = std::exchange(validationMessages, {});
        QVERIFY2(messages.isEmpty(), qPrintable(messages.join(u'\n')));
    }

    void applyColorMatrix_matchesTheScalarReference_data()
    {
        QTest::addColumn<QImage>("image");
        QTest::addColumn<ColorMatrix>("matrix");
        const ColorMatrix all = testMatrix(0.5f, 0.5f, 0.5f, 0.5f, 0.5f);
        const ColorMatrix negative{-1.5f, 0.2f, 0.7f, 0, 0.3f, -0.4f, 1.9f, 0,
                                   0.6f,  1.1f, -2,   0, 0.1f, -0.2f, 0.5f, 1};
        const ColorMatrix alphaMixed{1, 0, 0, 0.5f, 0, 1, 0, 0.25f, 0, 0, 1, 0, 0, 0, 0, 0.5f};
        const auto crafted = [](int w, int h) {
            return craftedPixels(QSize(w, h), QImage::Format_RGBA8888_Premultiplied);
        };
        QTest::newRow("1×1, all five at 0.5") << crafted(1, 1) << all;
        QTest::newRow("97×61, all five at 0.5") << crafted(97, 61) << all;
        QTest::newRow("97×61, saturating at 0 and 255") << crafted(97, 61) << negative;
        QTest::newRow("97×61, alpha changed too") << crafted(97, 61) << alphaMixed;
        // The formats photos arrive in are read in place, in their own byte order.
        QTest::newRow("ARGB32 premultiplied")
            << craftedPixels(QSize(97, 61), QImage::Format_ARGB32_Premultiplied) << negative;
        QTest::newRow("RGB32, alpha byte ignored")
            << withAlphaBytesZeroed(craftedPixels(QSize(97, 61), QImage::Format_RGB32)) << negative;
        QTest::newRow("RGBX8888, unused byte ignored")
            << withAlphaBytesZeroed(craftedPixels(QSize(97, 61), QImage::Format_RGBX8888)) << negative;
        // Entries near 2^100: products far beyond 255 saturate exactly, without overflowing.
        QTest::newRow("exposure 100, saturating") << crafted(97, 61) << testMatrix(0, 0, 100, 1, 0);
        QTest::newRow("exposure -100, to black") << crafted(97, 61) << testMatrix(0, 0, -100, 1, 0);
        QTest::newRow("1024×1025, split between threads") << crafted(1024, 1025) << negative;
        QTest::newRow("straight ARGB32") << craftedPixels(QSize(97, 61), QImage::Format_ARGB32) << all;
        QTest::newRow("grayscale") << craftedPixels(QSize(97, 61), QImage::Format_Grayscale8) << all;
        QTest::newRow("real photo, cooler and darker")
            << photo() << testMatrix(-0.3f, -0.1f, -0.5f, 1.4f, -1);
    }

    void applyColorMatrix_matchesTheScalarReference()
    {
        QFETCH(QImage, image);
        QFETCH(ColorMatrix, matrix);
        QVERIFY(!image.isNull());
        const std::optional<QImage> result = m_manager->applyColorMatrix(image, matrix);
        QVERIFY(result);
        QCOMPARE(result->format(), QImage::Format_RGBA8888_Premultiplied);
        const QByteArray fromReference = disagreement(*result, scalarReference(image, matrix));
        QVERIFY2(fromReference.isEmpty(), fromReference.constData());
        if (m_manager->engine() == Engine::Gpu) {
            const QByteArray fromCpu = disagreement(*result, applyColorMatrixOnCpu(image, matrix));
            QVERIFY2(fromCpu.isEmpty(), fromCpu.constData());
            // Threadgroups of 8×8 cover the picture and no more.
            const GpuColorEngine::Dispatch groups{(image.width() + 7) / 8, (image.height() + 7) / 8, 1};
            QCOMPARE(m_manager->lastDispatch(), groups);
        }
    }

    // Finite entries whose products or sums overflow a float would meet as +inf and -inf: refused whole,
    // on every engine, rather than answered arbitrarily.
    void applyColorMatrix_refusesMatricesThatOverflow_data()
    {
        QTest::addColumn<ColorMatrix>("matrix");
        constexpr float huge = std::numeric_limits<float>::max();
        QTest::newRow("exposure 125, saturation 3") << testMatrix(0, 0, 125, 3, 0);
        QTest::newRow("largest floats of both signs")
            << ColorMatrix{huge, 0, 0, 0, -huge, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
        QTest::newRow("one product overflows")
            << ColorMatrix{1e37f, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
        QTest::newRow("not a number") << ColorMatrix{
            std::numeric_limits<float>::quiet_NaN(), 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
    }

    void applyColorMatrix_refusesMatricesThatOverflow()
    {
        QFETCH(ColorMatrix, matrix);
        QVERIFY(!m_manager->applyColorMatrix(photo(), matrix));
    }

    void applyFilter_givesAPictureAtScaleOne_orNothing()
    {
        QImage image = photo();
        image.setDevicePixelRatio(3);
        const auto filtered = m_manager->applyFilter(image, FilterType::sepia);
        QVERIFY(filtered);
        QCOMPARE(filtered->size(), image.size());
        QCOMPARE(filtered->devicePixelRatio(), 1.0);
        QCOMPARE(m_manager->applyFilter(QImage(), FilterType::sepia), std::nullopt);
        // Exposure beyond 2^127 overflows to infinity, and infinity times the zeros of the product to NaN.
        const ColorMatrix overflowing = testMatrix(0, 0, 200, 1, 0);
        QVERIFY(std::isnan(overflowing[0]) || std::isinf(overflowing[0]));
        QCOMPARE(m_manager->applyColorMatrix(image, overflowing), std::nullopt);
    }

    void engine_canBeForced()
    {
        qputenv("QUORVANE_FILTER_ENGINE", "cpu");
        QCOMPARE(FiltersManager().engine(), Engine::Cpu);
        qunsetenv("QUORVANE_FILTER_ENGINE");
        // Left to itself, a manager passes over a GPU that is a rasteriser on the CPU.
        const auto gpu = GpuColorEngine::create();
        QCOMPARE(FiltersManager().engine(), gpu && !gpu->isSoftware() ? Engine::Gpu : Engine::Cpu);
    }

    void loadFilters_givesTheOriginalThenNineSwatches()
    {
        const QImage image = TestImages::quadrants(QSize(30, 20));
        const QList<Filter> filters = m_manager->loadFilters(image);
        QCOMPARE(filters.size(), 10);
        QCOMPARE(filters[0], (Filter{image, 0, "Original"}));
        QVERIFY(!FiltersManager::swatchColor(0) && !FiltersManager::swatchColor(10));
        for (qsizetype i = 1; i < filters.size(); ++i) {
            const QImage& swatch = filters[i].image;
            QCOMPARE(filters[i].index, i);
            QCOMPARE(swatch.deviceIndependentSize(), image.deviceIndependentSize());
            QCOMPARE(swatch.devicePixelRatio(), ImageHelpers::screenScale());
            for (const QPoint at : {QPoint(0, 0), QPoint(swatch.width() - 1, swatch.height() - 1)})
                QVERIFY2(TestImages::near(swatch.pixelColor(at), *FiltersManager::swatchColor(i), 1),
                         qPrintable(filters[i].name));
        }
    }
};

QTEST_MAIN(tst_FiltersManager)
#include "tst_FiltersManager.moc"
