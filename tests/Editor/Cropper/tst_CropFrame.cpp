#include "Editor/Cropper/Engine/CropFrame.h"

#include <QTest>

using Edge = CropFrame::Edge;
Q_DECLARE_METATYPE(Edge)

namespace {

// A picture of \a picture points fitted to a 390 × 600 phone area.
CropFrame fitted(QSizeF picture = QSizeF(400, 300))
{
    CropFrame frame;
    frame.fit(picture, QSizeF(390, 600));
    return frame;
}

// One finger: every point of the way, as a drag delivers them.
void drag(CropFrame& frame, std::initializer_list<QPointF> points)
{
    for (const QPointF& point : points)
        frame.drag(point);
}

} // namespace

class tst_CropFrame : public QObject
{
    Q_OBJECT

private slots:
    void fit_givesTheFrameOfBothTurns_inTheImagesAxes_data()
    {
        QTest::addColumn<QSizeF>("picture");
        QTest::addColumn<QSizeF>("area");
        QTest::addColumn<QSizeF>("portrait");
        QTest::addColumn<QSizeF>("landscape");
        QTest::newRow("landscape photo, phone")
            << QSizeF(4000, 3000) << QSizeF(390, 600) << QSizeF(390, 292.5) << QSizeF(520, 390);
        // The turned frame is stated in the image's own axes: turned on screen it is 390 wide.
        QTest::newRow("portrait photo, phone")
            << QSizeF(3000, 4000) << QSizeF(390, 600) << QSizeF(390, 520) << QSizeF(292.5, 390);
        QTest::newRow("portrait photo, wide area")
            << QSizeF(300, 400) << QSizeF(1000, 500) << QSizeF(375, 500) << QSizeF(500, 2000.0 / 3.0);
    }

    void fit_givesTheFrameOfBothTurns_inTheImagesAxes()
    {
        QFETCH(QSizeF, picture);
        QFETCH(QSizeF, area);
        QFETCH(QSizeF, portrait);
        QFETCH(QSizeF, landscape);
        CropFrame frame;
        QVERIFY(frame.fit(picture, area));
        QCOMPARE(frame.frameSize, portrait);
        frame.turn(Angle::degrees(90));
        QCOMPARE(frame.frameSize, landscape);
        QVERIFY(!frame.fit(picture, QSizeF(qInf(), 600)));
        QCOMPARE(frame.frameSize, landscape);
    }

    void edgeAt_data()
    {
        QTest::addColumn<QSizeF>("picture");
        QTest::addColumn<QPointF>("location");
        QTest::addColumn<Edge>("edge");
        // 400 × 300: frame 390 × 292.5, centre (195, 146.25).
        const QSizeF photo(400, 300);
        QTest::newRow("centre") << photo << QPointF(195, 146.25) << Edge::center;
        QTest::newRow("centre, 20 off both ways") << photo << QPointF(215, 126.25) << Edge::center;
        QTest::newRow("just past the centre's reach") << photo << QPointF(215.01, 146.25) << Edge::none;
        QTest::newRow("top") << photo << QPointF(100, 20) << Edge::top;
        QTest::newRow("just below the top's reach") << photo << QPointF(100, 20.01) << Edge::none;
        QTest::newRow("top leading, 20 from both") << photo << QPointF(20, 20) << Edge::topLeading;
        QTest::newRow("top trailing") << photo << QPointF(370, 5) << Edge::topTrailing;
        QTest::newRow("bottom") << photo << QPointF(100, 272.5) << Edge::bottom;
        QTest::newRow("bottom leading") << photo << QPointF(1, 290) << Edge::bottomLeading;
        QTest::newRow("bottom trailing") << photo << QPointF(389, 290) << Edge::bottomTrailing;
        QTest::newRow("leading") << photo << QPointF(20, 100) << Edge::leading;
        QTest::newRow("trailing") << photo << QPointF(370, 100) << Edge::trailing;
        QTest::newRow("nothing near") << photo << QPointF(100, 100) << Edge::none;
        // Handles crowd together only on frames thinner than 40 points, as panoramas make them; ties go
        // centre, top, bottom, leading, trailing. 4000 × 500: frame 390 × 48.75, centre (195, 24.375).
        QTest::newRow("centre before top") << QSizeF(4000, 500) << QPointF(195, 5) << Edge::center;
        // 4000 × 300: frame 390 × 29.25; y = 10 is in reach of top and bottom.
        QTest::newRow("top before bottom") << QSizeF(4000, 300) << QPointF(100, 10) << Edge::top;
        QTest::newRow("top leading before bottom leading")
            << QSizeF(4000, 300) << QPointF(15, 10) << Edge::topLeading;
        // 200 × 4000: frame 30 × 600, centre (15, 300); x = 15 is in reach of leading and trailing.
        QTest::newRow("leading before trailing") << QSizeF(200, 4000) << QPointF(15, 100) << Edge::leading;
        QTest::newRow("bottom leading before bottom trailing")
            << QSizeF(200, 4000) << QPointF(15, 590) << Edge::bottomLeading;
        // 390 × 80: a touch can be exactly 20 from the centre both ways and from an edge at once.
        QTest::newRow("centre before top, all at exactly 20")
            << QSizeF(390, 80) << QPointF(215, 20) << Edge::center;
        QTest::newRow("just past the centre's reach, the top takes it")
            << QSizeF(390, 80) << QPointF(215.01, 20) << Edge::top;
    }

    void edgeAt()
    {
        QFETCH(QSizeF, picture);
        QFETCH(QPointF, location);
        QFETCH(Edge, edge);
        QCOMPARE(fitted(picture).edgeAt(location), edge);
    }

    void drag_keeps80PointsBetweenOppositeEdges_data()
    {
        QTest::addColumn<Edge>("edge");
        QTest::addColumn<qreal>("target");
        QTest::addColumn<bool>("accepted");
        // Untouched frame 390 × 292.5: top at 0, bottom at 292.5, leading at 0, trailing at 390.
        QTest::newRow("top to 212.49 (80.01 apart)") << Edge::top << 212.49 << true;
        QTest::newRow("top to 212.5 (exactly 80)") << Edge::top << 212.5 << false;
        QTest::newRow("leading to 309.99") << Edge::leading << 309.99 << true;
        QTest::newRow("leading to 310 (exactly 80)") << Edge::leading << 310.0 << false;
        QTest::newRow("bottom to 80.01 (80.01 apart)") << Edge::bottom << 80.01 << true;
        QTest::newRow("bottom to 80 (exactly 80)") << Edge::bottom << 80.0 << false;
        QTest::newRow("trailing to 80.01") << Edge::trailing << 80.01 << true;
        QTest::newRow("trailing to 80 (exactly 80)") << Edge::trailing << 80.0 << false;
    }

    void drag_keeps80PointsBetweenOppositeEdges()
    {
        QFETCH(Edge, edge);
        QFETCH(qreal, target);
        QFETCH(bool, accepted);
        CropFrame frame = fitted();
        const bool vertical = edge == Edge::top || edge == Edge::bottom;
        const bool fromNearBorder = edge == Edge::top || edge == Edge::leading;
        // The other axis stays at 100, far from the centre and from the perpendicular edges.
        const auto touchAt = [&](qreal at) { return vertical ? QPointF(100, at) : QPointF(at, 100); };
        const auto position = [&] {
            return edge == Edge::top       ? frame.top()
                   : edge == Edge::bottom  ? frame.bottom()
                   : edge == Edge::leading ? frame.leading()
                                           : frame.trailing();
        };
        // Walked there in small steps, as a finger would, so the handle stays in reach.
        const qreal border = vertical ? 292.5 : 390.0;
        if (fromNearBorder) {
            for (qreal at = 5; at < target; at += 15)
                frame.drag(touchAt(at));
        } else {
            for (qreal at = border - 5; at > target; at -= 15)
                frame.drag(touchAt(at));
        }
        QCOMPARE(frame.edgeAt(touchAt(target)), edge);
        const qreal before = position();

        frame.drag(touchAt(target));

        QCOMPARE(position(), accepted ? target : before);
    }

    void drag_onOrOutsideTheFrame_orNotFinite_changesNothing()
    {
        CropFrame frame = fitted();
        const CropFrame untouched = frame;
        drag(frame, {{0, 100}, {100, 0}, {390, 100}, {100, 292.5}, {100, qQNaN()}, {qInf(), 5}});
        QCOMPARE(frame, untouched);
        drag(frame, {{100, 285}});
        QCOMPARE(frame.bottom(), 285.0);
    }

    void centreMove_isDroppedWholeAtABorder()
    {
        CropFrame frame = fitted();
        drag(frame, {{15, 15}});     // top leading to (15, 15)
        drag(frame, {{375, 277.5}}); // bottom trailing to (375, 277.5)
        QCOMPARE(frame.centre(), QPointF(195, 146.25));

        drag(frame, {{200, 150}}); // moves by (5, 3.75): fits
        QCOMPARE(frame.leading(), 20.0);
        QCOMPARE(frame.top(), 18.75);
        drag(frame, {{180, 150}}); // left by 20 would put leading at 0: fits, inclusive
        QCOMPARE(frame.leading(), 0.0);
        drag(frame, {{180 - 0.5, 150}}); // past the border: dropped, nothing slides
        QCOMPARE(frame.leading(), 0.0);
        QCOMPARE(frame.trailing(), 360.0);
    }

    // A sliver's short side cannot move apart: a touch anywhere across it is taken on its middle line.
    void touchLocation_onASliver_isTakenOnItsMiddleLine()
    {
        const CropFrame sliver = fitted(QSizeF(4000, 1));
        const QPointF taken = sliver.touchLocation(QPointF(3, 17));
        QCOMPARE(taken, QPointF(3, sliver.frameSize.height() / 2));
        QCOMPARE(fitted().touchLocation(QPointF(3, 17)), QPointF(3, 17));
    }

    void turnsAndFlips_data()
    {
        QTest::addColumn<QString>("steps");
        QTest::addColumn<qreal>("degrees");
        QTest::addColumn<bool>("landscape");
        QTest::addColumn<bool>("flipHorizontally");
        QTest::addColumn<bool>("flipVertically");
        QTest::newRow("left") << "L" << -90.0 << true << false << false;
        QTest::newRow("left ×5") << "LLLLL" << -450.0 << true << false << false;
        QTest::newRow("right, left") << "RL" << 0.0 << false << false << false;
        QTest::newRow("flip h") << "H" << 0.0 << false << true << false;
        // At a quarter turn what the user mirrors left to right is the image's top and bottom.
        QTest::newRow("right, flip h swaps") << "RH" << 90.0 << true << false << true;
        QTest::newRow("right, flip v swaps") << "RV" << 90.0 << true << true << false;
        QTest::newRow("180, flip h") << "RRH" << 180.0 << false << true << false;
        QTest::newRow("flip h twice") << "HH" << 0.0 << false << false << false;
        QTest::newRow("right, flip h, left, flip h") << "RHLH" << 0.0 << false << true << true;
        QTest::newRow("left ×3, flip v swaps") << "LLLV" << -270.0 << true << true << false;
    }

    void turnsAndFlips()
    {
        QFETCH(QString, steps);
        QFETCH(qreal, degrees);
        QFETCH(bool, landscape);
        QFETCH(bool, flipHorizontally);
        QFETCH(bool, flipVertically);
        CropFrame frame = fitted();
        drag(frame, {{20, 20}, {40, 30}});
        const CropFrame before = frame;

        for (const QChar step : steps) {
            if (step == u'L' || step == u'R')
                frame.turn(Angle::degrees(step == u'L' ? -90 : 90));
            else
                frame.mirrorAsSeen({step == u'H', step == u'V'});
        }

        QCOMPARE(frame.rotation.degrees(), degrees);
        QCOMPARE(frame.frameSize, landscape ? QSizeF(520, 390) : QSizeF(390, 292.5));
        QCOMPARE(frame.flips, (Mirroring{flipHorizontally, flipVertically}));
        // The rectangle keeps its place on the image: the same fractions of the turned frame.
        QCOMPARE(frame.cropRect(QSizeF(1, 1)), before.cropRect(QSizeF(1, 1)));
    }
};

QTEST_APPLESS_MAIN(tst_CropFrame)
#include "tst_CropFrame.moc"
