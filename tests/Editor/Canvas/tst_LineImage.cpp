#include "Editor/Canvas/LineImage/LineImageViewModel.h"
#include "NonFinite.h"

#include <QSignalSpy>
#include <QTest>

namespace {

LineImagePtr item(QSizeF offset = QSizeF(6, 6))
{
    QImage image(40, 30, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::red);
    return std::make_shared<LineImage>(QSizeF(300, 200), image, offset);
}

} // namespace

using MirrorCall = std::function<void(LineImageViewModel&, qreal)>;
Q_DECLARE_METATYPE(MirrorCall)

class tst_LineImage : public QObject
{
    Q_OBJECT

private slots:
    void newItem_hasAFreshId()
    {
        const LineImagePtr a = item();
        QVERIFY(a->id() != item()->id());
        QCOMPARE(a->id(), a->id().toUpper());
    }

    void everyAssignment_isAnnounced_evenWithoutChange()
    {
        const LineImagePtr line = item();
        QSignalSpy offsets(line.get(), &LineImage::offsetPublisher);
        QSignalSpy turns(line.get(), &LineImage::roationPublisher);
        QSignalSpy flags(line.get(), &LineImage::selectedPublisher);
        line->setOffset(line->offset());
        line->setRotationAngle(Angle::degrees(30));
        line->setSelected(false);
        QCOMPARE(offsets.count(), 1);
        QCOMPARE(turns.count(), 1);
        QCOMPARE(turns.first().first().toReal(), 30.0);
        QCOMPARE(flags.count(), 1);
    }

    void pointIsInside_isStrictAndIgnoresTurnAndScale_data()
    {
        QTest::addColumn<QPointF>("point");
        QTest::addColumn<bool>("inside");
        // Box from (6, 6) to (46, 36).
        QTest::newRow("middle") << QPointF(26, 21) << true;
        QTest::newRow("left border") << QPointF(6, 21) << false;
        QTest::newRow("right border") << QPointF(46, 21) << false;
        QTest::newRow("top border") << QPointF(26, 6) << false;
        QTest::newRow("bottom border") << QPointF(26, 36) << false;
        QTest::newRow("inside the doubled shape only") << QPointF(50, 21) << false;
    }

    void pointIsInside_isStrictAndIgnoresTurnAndScale()
    {
        QFETCH(QPointF, point);
        QFETCH(bool, inside);
        const LineImagePtr line = item();
        line->setMagnification(2.0);
        line->setRotationAngle(Angle::degrees(45));
        QCOMPARE(line->pointIsInside(point), inside);
        QCOMPARE(line->getCenterPoint(), QPointF(26, 21));
    }

    void mirror_followsTheItem_andWritesBackOnlyItsOwnFields()
    {
        const LineImagePtr line = item();
        LineImageViewModel mirror(line);
        QSignalSpy mirrorOffsets(&mirror, &LineImageViewModel::offsetChanged);

        line->setOffset(QSizeF(20, 30));
        line->setSelected(true);
        line->setTransformEnabled(true);
        QCOMPARE(mirror.offset(), QSizeF(20, 30));
        QVERIFY(mirror.isSelected());
        QVERIFY(mirror.isTransformEnabled());
        QCOMPARE(mirrorOffsets.count(), 1);

        // The same value again reaches the stream but not the mirror: the duplicate filter ends the echo.
        line->setOffset(QSizeF(20, 30));
        QCOMPARE(mirrorOffsets.count(), 1);

        mirror.setMagnification(3.0);
        mirror.setRotationAngle(90);
        QCOMPARE(line->magnification(), 3.0);
        QCOMPARE(line->rotationAngle().degrees(), 90.0);
    }

    void gestures_commitWhenTheyEnd()
    {
        const LineImagePtr line = item();
        line->setMagnification(1.25);
        LineImageViewModel mirror(line);

        mirror.endMagnification(2.0);
        mirror.endDrag(QSizeF(10, -5));
        mirror.endRotation(30);
        mirror.endRotation(-10);

        QCOMPARE(line->magnification(), 2.5);
        QCOMPARE(line->offset(), QSizeF(16, 1));
        QCOMPARE(line->rotationAngle().degrees(), 20.0);
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
