#include "Editor/Filters/Engine/ColorMatrix.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <QTest>

namespace {

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
        const auto row = [](const char* name, const ColorMatrix& matrix, const ColorMatrix& expected,
                            float tolerance = 0) { QTest::newRow(name) << matrix << expected << tolerance; };
        row("warm, default", warmMatrix(), diagonal(1.1f, 1, 0.9f));
        row("luminosity 0.25 offsets the fourth row", luminosityMatrix(0.25f),
            ColorMatrix{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0.25f, 0.25f, 0.25f, 1});
        row("saturation 0, grey", saturate(0),
            ColorMatrix{0.2126f, 0.7152f, 0.0722f, 0, 0.2126f, 0.7152f, 0.0722f, 0, 0.2126f, 0.7152f, 0.0722f,
                        0, 0, 0, 0, 1});
        row("exposure 1 doubles", exposureMatrix(1), diagonal(2, 2, 2));
        row("exposure -1 halves", exposureMatrix(-1), diagonal(0.5f, 0.5f, 0.5f));
        row("tint 0.5", tintMatrix(0.5f), diagonal(1.06f, 0.94f, 1), 0.000001f);
        row("tint 5 stops at 0.12", tintMatrix(5), diagonal(1.12f, 0.88f, 1), 0.000001f);
        row("tint -3 the other way", tintMatrix(-3), diagonal(0.88f, 1.12f, 1), 0.000001f);
        // Each parameter alone lands on its own builder: the parameter order is kept, and the neutral values
        // of the others are the identity.
        row("testMatrix: intensity is warmth", testMatrix(0.3f, 0, 0, 1, 0), warmMatrix(0.3f));
        row("testMatrix: second is luminosity", testMatrix(0, 0.2f, 0, 1, 0), luminosityMatrix(0.2f));
        row("testMatrix: third is exposure", testMatrix(0, 0, 0.7f, 1, 0), exposureMatrix(0.7f));
        row("testMatrix: fourth is saturation", testMatrix(0, 0, 0, 0.4f, 0), saturate(0.4f));
        row("testMatrix: fifth is tint", testMatrix(0, 0, 0, 1, 0.5f), tintMatrix(0.5f));
        row("testMatrix, all 0.5, to the bit", testMatrix(0.5f, 0.5f, 0.5f, 0.5f, 0.5f),
            ColorMatrix{0x1.5d02ecp+0f, 0x1.6d1764p-1f, 0x1.39ab98p-4f, 0, 0x1.4659b0p-3f, 0x1.23daf4p+0f,
                        0x1.a23a22p-5f, 0, 0x1.4659b0p-4f, 0x1.e6c9dcp-3f, 0x1.842d8ap-2f, 0, 0x1.7fc2cep-1f,
                        0x1.5450fcp-1f, 0x1.6a09e6p-1f, 1});
        // Summed left to right in single precision: 1e8 swallows the first 1, so the sum is 1, not 2.
        row("concat: summation order",
            concat(ColorMatrix{1, 1, 1, 1},
                   ColorMatrix{1e8f, 0, 0, 0, 1, 0, 0, 0, -1e8f, 0, 0, 0, 1, 0, 0, 0}),
            ColorMatrix{1});
        // Rounded on its own, the product (1 + 2^-12)^2 loses its last 2^-24; fused into the sum it keeps it.
        row("concat: no fused multiply-add",
            concat(ColorMatrix{-1, 0x1.001p0f}, ColorMatrix{1, 0, 0, 0, 0x1.001p0f}), ColorMatrix{0x1p-11f});
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
