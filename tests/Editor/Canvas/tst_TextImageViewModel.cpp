#include "Editor/Canvas/TextImage/TextImageViewModel.h"

#include <QTest>

namespace {

int pixelsOf(const QImage& image, QColor colour)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor c = image.pixelColor(x, y);
            if (c.alpha() > 200 && qAbs(c.red() - colour.red()) < 40 &&
                qAbs(c.green() - colour.green()) < 40 && qAbs(c.blue() - colour.blue()) < 40)
                ++count;
        }
    }
    return count;
}

} // namespace

class tst_TextImageViewModel : public QObject
{
    Q_OBJECT

private slots:
    void traits_data()
    {
        QTest::addColumn<bool>("bold");
        QTest::addColumn<bool>("italic");
        QTest::addColumn<bool>("uppercase");
        QTest::newRow("plain") << false << false << false;
        QTest::newRow("bold") << true << false << false;
        QTest::newRow("italic") << false << true << false;
        QTest::newRow("bold italic") << true << true << false;
        QTest::newRow("uppercase") << false << false << true;
    }

    void traits()
    {
        QFETCH(bool, bold);
        QFETCH(bool, italic);
        QFETCH(bool, uppercase);
        TextImageViewModel model;
        QVERIFY(model.textToImage().isNull()); // no text, no picture
        model.setText(QStringLiteral("Quorvane"));
        model.setBold(bold);
        model.setItalic(italic);
        model.setUppercase(uppercase);
        // Measured with its traits: bold text gets the room it needs.
        const QImage image = model.textToImage();
        QVERIFY(pixelsOf(image, Qt::white) > 20);
        QCOMPARE(image.pixelColor(0, 0).alpha(), 0);
        // The traits show in the pixels: bold lays more ink, italic slants the same letters, capitals are
        // drawn as if typed so while the text stays as typed.
        TextImageViewModel plain;
        plain.setText(uppercase ? QStringLiteral("QUORVANE") : model.text());
        const QImage plainImage = plain.textToImage();
        QCOMPARE(image == plainImage, !bold && !italic);
        QCOMPARE(model.text(), QStringLiteral("Quorvane"));
        if (bold)
            QVERIFY(pixelsOf(image, Qt::white) > pixelsOf(plainImage, Qt::white) * 1.15);
    }

    void textToImage_usesTheColourAndSize()
    {
        TextImageViewModel model;
        model.setText(QStringLiteral("Hello"));
        const QSizeF small = model.textToImage().deviceIndependentSize();
        model.setTextSize(40);
        model.setSelectedColor(Qt::red);
        const QImage large = model.textToImage();
        QVERIFY(large.deviceIndependentSize().width() > small.width() * 1.5);
        QVERIFY(pixelsOf(large, Qt::red) > 50);
        QCOMPARE(pixelsOf(large, Qt::white), 0);
    }

    void textSize_staysWithinItsRange_andIgnoresNonFiniteSizes_data()
    {
        QTest::addColumn<qreal>("asked");
        QTest::addColumn<qreal>("kept");
        QTest::newRow("below") << 1.0 << 5.0;
        QTest::newRow("inside") << 33.0 << 33.0;
        QTest::newRow("above") << 80.0 << 50.0;
        QTest::newRow("NaN") << qQNaN() << 20.0;
        QTest::newRow("+inf") << qInf() << 20.0;
        QTest::newRow("-inf") << -qInf() << 20.0;
    }

    void textSize_staysWithinItsRange_andIgnoresNonFiniteSizes()
    {
        QFETCH(qreal, asked);
        QFETCH(qreal, kept);
        TextImageViewModel model;
        model.setProperty("textSize", asked);
        QCOMPARE(model.textSize(), kept);
    }

    // Placed on a canvas, the text wraps within its width and shrinks where it would still be taller,
    // so that no letter is cut.
    void textToImage_fitsWithinTheCanvas_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QSizeF>("canvas");
        QTest::newRow("a sentence on a phone") << "HELLO DRAGONFLY ON THE HAZEL" << QSizeF(374, 280);
        QTest::newRow("one word longer than the width") << "DRAGONFLYDRAGONFLYDRAGONFLY" << QSizeF(200, 280);
        QTest::newRow("too many lines for the height")
            << QStringLiteral("HELLO DRAGONFLY ").repeated(12) << QSizeF(490, 120);
    }

    void textToImage_fitsWithinTheCanvas()
    {
        QFETCH(QString, text);
        QFETCH(QSizeF, canvas);
        TextImageViewModel model;
        model.setText(text);
        model.setBold(true);
        model.setTextSize(model.maximumTextSize());
        model.setMaximumWidth(canvas.width());
        model.setMaximumHeight(canvas.height());
        const QSizeF size = model.textToImage().deviceIndependentSize();
        QVERIFY2(size.width() <= canvas.width() && size.height() <= canvas.height() && !size.isEmpty(),
                 qPrintable(QStringLiteral("%1 × %2").arg(size.width()).arg(size.height())));
    }
};

QTEST_MAIN(tst_TextImageViewModel)
#include "tst_TextImageViewModel.moc"
