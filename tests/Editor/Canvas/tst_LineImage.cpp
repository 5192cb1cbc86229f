#include "Editor/Canvas/LineImage/LineImageViewModel.h"
#include "NonFinite.h"

#include <QTest>

namespace {

LineImagePtr item()
{
    QImage image(40, 30, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::red);
    return std::make_shared<LineImage>(QSizeF(300, 200), image, QSizeF(6, 6));
}

} // namespace

using MirrorCall = std::function<void(LineImageViewModel&, qreal)>;
Q_DECLARE_METATYPE(MirrorCall)

class tst_LineImage : public QObject
{
    Q_OBJECT

private slots:
    // Gestures commit when they end, relative to where the item stood.
    void gestures_composeWithWhereTheItemStood()
    {
        const LineImagePtr line = item();
        LineImageViewModel mirror(line);
        line->setOffset(QSizeF(20, 30));
        mirror.setMagnification(3.0);
        mirror.setRotationAngle(90);

        mirror.endMagnification(2.0);
        mirror.endDrag(QSizeF(10, -5));
        mirror.endRotation(30);
        mirror.endRotation(-10);
        QCOMPARE(line->magnification(), 6.0);
        QCOMPARE(line->offset(), QSizeF(30, 25));
        QCOMPARE(line->rotationAngle().degrees(), 110.0);
    }

    void nonFiniteNumbers_areIgnored_data()
    {
        addNonFiniteRows<MirrorCall>({
            {"offset", [](LineImageViewModel& m, qreal v) { m.setProperty("offset", QSizeF(v, 0)); }},
            {"rotationAngle", [](LineImageViewModel& m, qreal v) { m.setProperty("rotationAngle", v); }},
            {"magnification", [](LineImageViewModel& m, qreal v) { m.setProperty("magnification", v); }},
            {"endDrag", [](LineImageViewModel& m, qreal v) { m.endDrag(QSizeF(0, v)); }},
            {"endRotation", [](LineImageViewModel& m, qreal v) { m.endRotation(v); }},
            {"endMagnification", [](LineImageViewModel& m, qreal v) { m.endMagnification(v); }},
        });
        // A finite pinch whose product is not.
        QTest::newRow("endMagnification, overflowing")
            << MirrorCall([](LineImageViewModel& m, qreal v) { m.endMagnification(v); })
            << std::numeric_limits<qreal>::max();
    }

    void nonFiniteNumbers_areIgnored()
    {
        QFETCH(MirrorCall, call);
        QFETCH(qreal, value);
        const LineImagePtr line = item();
        line->setRotationAngle(Angle::degrees(30));
        line->setMagnification(1.25);
        LineImageViewModel mirror(line);
        const SignalCounter emitted({&mirror, line.get()});

        call(mirror, value);

        QCOMPARE(emitted.count(), 0);
        QCOMPARE(line->offset(), QSizeF(6, 6));
        QCOMPARE(line->rotationAngle().degrees(), 30.0);
        QCOMPARE(line->magnification(), 1.25);
        QCOMPARE(mirror.offset(), line->offset());
        QCOMPARE(mirror.rotationAngle(), 30.0);
        QCOMPARE(mirror.magnification(), 1.25);
    }
};

QTEST_GUILESS_MAIN(tst_LineImage)
#include "tst_LineImage.moc"
