#include "Editor/Filters/Engine/ColorMatrix.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <QTest>

namespace {

constexpr ColorMatrix identity{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};

ColorMatrix diagonal(float r, float g, float b)
{
    return {r, 0, 0, 0, 0, g, 0, 0, 0, 0, b, 0, 0, 0, 0, 1};
}

QByteArray describe(const ColorMatrix& m)
{
    QByteArray text;
    for (int i = 0; i < 16; ++i)
        text += QByteArray::number(m[i], 'g', 9) + (i % 4 == 3 ? "; " : ", ");
    return text;
}

} // namespace

class tst_ColorMatrix : public QObject
{
    Q_OBJECT

private slots:
    void builder_givesTheStatedMatrix_data()
    {
        QTest::addColumn<ColorMatrix>("matrix");
        QTest::addColumn<ColorMatrix>("expected");
        QTest::addColumn<float>("tolerance");
        QTest::newRow("warm, default") << warmMatrix() << diagonal(1.1f, 1, 0.9f) << 0.0f;
        QTest::newRow("luminosity 0") << luminosityMatrix(0) << identity << 0.0f;
        QTest::newRow("luminosity 0.25 offsets the fourth row")
            << luminosityMatrix(0.25f)
            << ColorMatrix{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0.25f, 0.25f, 0.25f, 1} << 0.0f;
        QTest::newRow("saturation 1") << saturate(1) << identity << 0.0f;
        QTest::newRow("saturation 0, grey")
            << saturate(0) << ColorMatrix{0.2126f, 0.7152f, 0.0722f, 0, 0.2126f, 0.7152f, 0.0722f, 0,
                                          0.2126f, 0.7152f, 0.0722f, 0, 0,       0,       0,       1}
            << 0.0f;
        QTest::newRow("saturation 0.5")
            << saturate(0.5f) << ColorMatrix{0.6063f, 0.3576f, 0.0361f, 0, 0.1063f, 0.8576f, 0.0361f, 0,
                                             0.1063f, 0.3576f, 0.5361f, 0, 0,       0,       0,       1}
            << 0.00005f;
        QTest::newRow("exposure 0") << exposureMatrix(0) << identity << 0.0f;
        QTest::newRow("exposure 1 doubles") << exposureMatrix(1) << diagonal(2, 2, 2) << 0.0f;
        QTest::newRow("exposure -1 halves") << exposureMatrix(-1) << diagonal(0.5f, 0.5f, 0.5f) << 0.0f;
        QTest::newRow("tint 0.5") << tintMatrix(0.5f) << diagonal(1.06f, 0.94f, 1) << 0.000001f;
        QTest::newRow("tint 5 stops at 0.12") << tintMatrix(5) << diagonal(1.12f, 0.88f, 1) << 0.000001f;
        QTest::newRow("tint 100 stops at 0.12") << tintMatrix(100) << diagonal(1.12f, 0.88f, 1) << 0.000001f;
        QTest::newRow("tint -3 the other way") << tintMatrix(-3) << diagonal(0.88f, 1.12f, 1) << 0.000001f;
        // Each parameter alone, the others neutral, lands on its own builder: the parameter order is kept.
        QTest::newRow("testMatrix: intensity is warmth")
            << testMatrix(0.3f, 0, 0, 1, 0) << warmMatrix(0.3f) << 0.0f;
        QTest::newRow("testMatrix: second is luminosity")
            << testMatrix(0, 0.2f, 0, 1, 0) << luminosityMatrix(0.2f) << 0.0f;
        QTest::newRow("testMatrix: third is exposure")
            << testMatrix(0, 0, 0.7f, 1, 0) << exposureMatrix(0.7f) << 0.0f;
        QTest::newRow("testMatrix: fourth is saturation")
            << testMatrix(0, 0, 0, 0.4f, 0) << saturate(0.4f) << 0.0f;
        QTest::newRow("testMatrix: fifth is tint")
            << testMatrix(0, 0, 0, 1, 0.5f) << tintMatrix(0.5f) << 0.0f;
        QTest::newRow("testMatrix, all 0.5")
            << testMatrix(0.5f, 0.5f, 0.5f, 0.5f, 0.5f)
            << ColorMatrix{1.363326f, 0.713069f, 0.076580f, 0, 0.159351f, 1.140060f, 0.051053f, 0,
                           0.079675f, 0.237690f, 0.379080f, 0, 0.749533f, 0.664680f, 0.707107f, 1}
            << 0.0000005f;
        QTest::newRow("testMatrix, all 0.5, to the bit")
            << testMatrix(0.5f, 0.5f, 0.5f, 0.5f, 0.5f)
            << ColorMatrix{0x1.5d02ecp+0f, 0x1.6d1764p-1f, 0x1.39ab98p-4f, 0,
                           0x1.4659b0p-3f, 0x1.23daf4p+0f, 0x1.a23a22p-5f, 0,
                           0x1.4659b0p-4f, 0x1.e6c9dcp-3f, 0x1.842d8ap-2f, 0,
                           0x1.7fc2cep-1f, 0x1.5450fcp-1f, 0x1.6a09e6p-1f, 1}
            << 0.0f;
        QTest::newRow("concat: identity on the left")
            << concat(identity, saturate(0.3f)) << saturate(0.3f) << 0.0f;
        QTest::newRow("concat: identity on the right")
            << concat(saturate(0.3f), identity) << saturate(0.3f) << 0.0f;
        // Summed left to right in single precision: 1e8 swallows the first 1, so the sum is 1, not 2.
        QTest::newRow("concat: summation order")
            << concat(ColorMatrix{1, 1, 1, 1},
                      ColorMatrix{1e8f, 0, 0, 0, 1, 0, 0, 0, -1e8f, 0, 0, 0, 1, 0, 0, 0})
            << ColorMatrix{1} << 0.0f;
        // Rounded on its own, the product (1 + 2^-12)^2 loses its last 2^-24; fused into the sum it keeps it.
        QTest::newRow("concat: no fused multiply-add")
            << concat(ColorMatrix{-1, 0x1.001p0f}, ColorMatrix{1, 0, 0, 0, 0x1.001p0f})
            << ColorMatrix{0x1p-11f} << 0.0f;
    }

    void builder_givesTheStatedMatrix()
    {
        QFETCH(ColorMatrix, matrix);
        QFETCH(ColorMatrix, expected);
        QFETCH(float, tolerance);
        for (int i = 0; i < 16; ++i)
            QVERIFY2(std::abs(matrix[i] - expected[i]) <= tolerance,
                     "index " + QByteArray::number(i) + " of " + describe(matrix));
    }

    void concat_ofNonCommutingMatrices_dependsOnTheOrder_data()
    {
        QTest::addColumn<ColorMatrix>("a");
        QTest::addColumn<ColorMatrix>("b");
        QTest::newRow("luminosity, saturation") << luminosityMatrix(0.3f) << saturate(0.2f);
        QTest::newRow("warmth, luminosity") << warmMatrix() << luminosityMatrix(0.3f);
        QTest::newRow("tint, saturation") << tintMatrix(1) << saturate(0.5f);
    }

    void concat_ofNonCommutingMatrices_dependsOnTheOrder()
    {
        QFETCH(ColorMatrix, a);
        QFETCH(ColorMatrix, b);
        QVERIFY(concat(a, b) != concat(b, a));
    }

    void screens_getTheSameNumbers()
    {
        QQmlEngine engine;
        QQmlComponent component(&engine);
        component.setData(
            "import QtQml\nimport Quorvane.SdkImage\nQtObject {\n"
            "  property list<real> all: ColorMatrices.testMatrix(0.5, 0.5, 0.5, 0.5, 0.5)\n"
            "  property list<real> product: ColorMatrices.concat(ColorMatrices.warmMatrix(),\n"
            "                                                     ColorMatrices.tintMatrix(-3))\n"
            "}\n",
            QUrl());
        std::unique_ptr<QObject> object(component.create());
        QVERIFY2(object, qPrintable(component.errorString()));
        const auto numbers = [&](const char* name) {
            ColorMatrix m{};
            const QList<qreal> list = object->property(name).value<QList<qreal>>();
            for (int i = 0; i < 16 && i < list.size(); ++i)
                m[i] = float(list[i]);
            return m;
        };
        QCOMPARE(numbers("all"), testMatrix(0.5f, 0.5f, 0.5f, 0.5f, 0.5f));
        QCOMPARE(numbers("product"), concat(warmMatrix(), tintMatrix(-3)));
    }
};

QTEST_GUILESS_MAIN(tst_ColorMatrix)
#include "tst_ColorMatrix.moc"
