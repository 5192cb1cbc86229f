#include "Editor/Canvas/CanvasViewModel.h"
#include "NonFinite.h"
#include "StdoutCapture.h"

#include <QTest>

namespace {

QImage solid(QSize size, QColor colour)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(colour);
    return image;
}

// A canvas on a 400 × 300 image laid out in a 400 × 300 frame: canvas points are image points.
std::unique_ptr<CanvasViewModel> canvas(QSize imageSize = QSize(400, 300), QSizeF screen = QSizeF(400, 300))
{
    auto model = std::make_unique<CanvasViewModel>(solid(imageSize, Qt::black));
    model->setupScreenSize(screen);
    return model;
}

// A finger drawn through \a points and lifted at the last one, in \a liftFrame if given.
void stroke(CanvasViewModel& model, const QList<QPointF>& points, QSizeF liftFrame = QSizeF())
{
    for (qsizetype i = 0; i + 1 < points.size(); ++i)
        model.handleNewPoint(points[i], model.imageFrameSize());
    model.addFinalPoint(points.last(), liftFrame.isEmpty() ? model.imageFrameSize() : liftFrame);
}

} // namespace

using CanvasCall = std::function<void(CanvasViewModel&, qreal)>;
Q_DECLARE_METATYPE(CanvasCall)

class tst_CanvasViewModel : public QObject
{
    Q_OBJECT

private slots:
    void layout_fitsOnce_andClosingButtonsReturnOnce()
    {
        QList<std::optional<QImage>> results;
        CanvasViewModel model(solid(QSize(400, 300), Qt::black),
                              [&](std::optional<QImage> image) { results.append(std::move(image)); });
        model.setupScreenSize(QSizeF(300, 0)); // half laid out: not yet the screen
        QVERIFY(!model.isCropperSetup());
        model.setupScreenSize(QSizeF(300, 300));
        model.setupScreenSize(QSizeF(100, 1000));
        QCOMPARE(model.imageFrameSize(), QSizeF(300, 225));
        QVERIFY(model.isCropperSetup());

        model.accept(); // disabled before the first change
        QVERIFY(results.isEmpty());
        stroke(model, {{10, 10}, {50, 50}});
        model.accept();
        model.cancel();
        QCOMPARE(results.size(), 1);
        QVERIFY(results.first());
    }

    void stroke_becomesAnItemFramedByItsLineWidth_orNothing_data()
    {
        QTest::addColumn<QList<QPointF>>("points");
        // The frame the finger is lifted in, when it shrank meanwhile.
        QTest::addColumn<QSizeF>("liftFrame");
        // The item's box; none when the stroke adds nothing.
        QTest::addColumn<QRectF>("box");
        // What the next stroke starts from.
        QTest::addColumn<QList<QPointF>>("kept");
        const QList<QPointF> none;
        QTest::newRow("diagonal") << QList<QPointF>{{10, 10}, {30, 20}, {50, 30}} << QSizeF()
                                  << QRectF(6, 6, 48, 28) << none;
        QTest::newRow("clipped at the top left")
            << QList<QPointF>{{1, 2}, {20, 20}} << QSizeF() << QRectF(0, 0, 24, 24) << none;
        // Corners start at 1000 points, not at infinity, as they always have: a stroke wholly past 1000
        // points keeps 1000 as its corner.
        QTest::newRow("past 1000 points, clipped at the bottom right")
            << QList<QPointF>{{1980, 1480}, {1998, 1499}} << QSizeF() << QRectF(996, 996, 1004, 504) << none;
        // A tap keeps its point: it starts the next stroke.
        QTest::newRow("a tap") << QList<QPointF>{{10, 10}} << QSizeF() << QRectF()
                               << QList<QPointF>{{10, 10}};
        QTest::newRow("only points outside the frame")
            << QList<QPointF>{{-1, 5}, {2000, 5}, {5, 1500}} << QSizeF() << QRectF() << none;
        // From (100, 100) to (150, 150): with its line width the box starts at (96, 96).
        QTest::newRow("frame shrank before the box")
            << QList<QPointF>{{100, 100}, {150, 150}, {120, 120}} << QSizeF(50, 50) << QRectF() << none;
        QTest::newRow("frame shrank to where the box starts")
            << QList<QPointF>{{100, 100}, {150, 150}, {120, 120}} << QSizeF(96, 300) << QRectF() << none;
    }

    void stroke_becomesAnItemFramedByItsLineWidth_orNothing()
    {
        QFETCH(QList<QPointF>, points);
        QFETCH(QSizeF, liftFrame);
        QFETCH(QRectF, box);
        QFETCH(QList<QPointF>, kept);
        auto model = canvas(QSize(2000, 1500), QSizeF(2000, 1500));
        stroke(*model, points, liftFrame);
        QCOMPARE(model->currentLine().points, kept);

        if (box.isNull()) {
            QVERIFY(model->lineImages().isEmpty());
            QCOMPARE(model->previousStateCount(), 0);
            // A lone point makes a stroke only with what was kept before it.
            model->addFinalPoint(QPointF(30, 30), model->imageFrameSize());
            QCOMPARE(model->lineImages().size(), kept.isEmpty() ? 0 : 1);
            return;
        }
        QCOMPARE(model->lineImages().size(), 1);
        const LineImagePtr& item = model->lineImages().first();
        QCOMPARE(item->offset(), QSizeF(box.x(), box.y()));
        QCOMPARE(item->image().deviceIndependentSize(), box.size());
        QCOMPARE(model->previousStateCount(), 1);
        // The stroke is drawn white along its path; the box's corner stays clear.
        const QImage& image = item->image();
        QCOMPARE(image.pixelColor(0, 0).alpha(), 0);
        const QPointF middle = (points[0] + points[1]) / 2 - box.topLeft();
        QCOMPARE(image.pixelColor(middle.toPoint()), QColor(Qt::white));
    }

    void nonFiniteNumbers_areIgnored_data()
    {
        addNonFiniteRows<CanvasCall>({
            {"setupScreenSize", [](CanvasViewModel& m, qreal v) { m.setupScreenSize(QSizeF(v, 300)); }},
            {"handleNewPoint, point",
             [](CanvasViewModel& m, qreal v) { m.handleNewPoint(QPointF(20, v), QSizeF(400, 300)); }},
            {"handleNewPoint, frame",
             [](CanvasViewModel& m, qreal v) { m.handleNewPoint(QPointF(20, 20), QSizeF(v, v)); }},
            {"addFinalPoint, point",
             [](CanvasViewModel& m, qreal v) { m.addFinalPoint(QPointF(v, 20), QSizeF(400, 300)); }},
            {"addFinalPoint, frame",
             [](CanvasViewModel& m, qreal v) { m.addFinalPoint(QPointF(20, 20), QSizeF(400, v)); }},
            {"selectedlineWidth", [](CanvasViewModel& m, qreal v) { m.setProperty("selectedlineWidth", v); }},
            {"rotateBy", [](CanvasViewModel& m, qreal v) { m.rotateBy(v); }},
            {"rotateTo", [](CanvasViewModel& m, qreal v) { m.rotateTo(v); }},
            {"scaleTo", [](CanvasViewModel& m, qreal v) { m.scaleTo(v); }},
        });
    }

    void nonFiniteNumbers_areIgnored()
    {
        QFETCH(CanvasCall, call);
        QFETCH(qreal, value);
        // Not yet laid out, two items with one selected, a stroke under way, the width picker open: every
        // entry point has something it would change.
        CanvasViewModel model(solid(QSize(400, 300), Qt::black));
        model.addText(solid(QSize(40, 20), Qt::red));
        model.addText(solid(QSize(40, 20), Qt::red));
        const LineImagePtr item = model.lineImages().first();
        model.handleTap(item);
        model.handleNewPoint(QPointF(10, 10), QSizeF(400, 300));
        model.setChoosingLineWidth(true);
        const SignalCounter emitted({&model, item.get()});

        call(model, value);

        QCOMPARE(emitted.count(), 0);
        QVERIFY(!model.isCropperSetup());
        QCOMPARE(model.currentLinePoints(), QList<QPointF>{QPointF(10, 10)});
        QCOMPARE(model.lineImages().size(), 2);
        QCOMPARE(model.previousStateCount(), 2);
        QCOMPARE(model.selectedlineWidth(), 4.0);
        QVERIFY(model.isChoosingLineWidth());
        QCOMPARE(item->rotationAngle().degrees(), 0.0);
        QCOMPARE(item->magnification(), 1.0);
        // A bad size did not use up the one fit; a step recorded before it comes undone with offsets.
        model.setupScreenSize(QSizeF(800, 600));
        QCOMPARE(model.imageFrameSize(), QSizeF(800, 600));
        model.undoLastAction();
        QCOMPARE(model.lineImages().size(), 1);
        QVERIFY(qIsFinite(model.lineImages().first()->offset().width()));
    }

    void toolsAndSelection_followTaps_andItemsAreTheirOwnSelves()
    {
        auto model = canvas();
        // The same stroke twice: two items that look alike in every field but the id.
        stroke(*model, {{10, 10}, {50, 50}});
        stroke(*model, {{10, 10}, {50, 50}});
        const LineImagePtr first = model->lineImages()[0];
        const LineImagePtr second = model->lineImages()[1];
        model->enableMove();
        QVERIFY(first->isTransformEnabled() && second->isTransformEnabled());
        model->enableText();
        QVERIFY(model->isEnteringText() && !first->isTransformEnabled());
        model->cancelText(); // leaves the entry and adds nothing
        QVERIFY(!model->isEnteringText());
        model->enableText();
        model->enableMove();
        QVERIFY(!model->isEnteringText());
        model->enableDraw();
        QVERIFY(!first->isTransformEnabled());

        model->handleTap(first);
        QCOMPARE(model->selectedLineImage(), first);
        model->handleTap(second);
        QCOMPARE(model->selectedLineImage(), second);
        QVERIFY(!first->isSelected() && second->isSelected());
        model->handleTap(second);
        QVERIFY(!model->selectedLineImage() && !second->isSelected());
        model->handleTap(first);
        model->closeSelection();
        QVERIFY(!model->hasSelection() && !first->isSelected());

        model->handleTap(second);
        model->deleteLine(first->id());
        model->deleteLine(QStringLiteral("no such id")); // records nothing
        QCOMPARE(model->lineImages(), QList<LineImagePtr>{second});
        QVERIFY(second->isSelected());
        QCOMPARE(model->previousStateCount(), 3);
    }

    void undo_bringsBackWhichItemsExistAndWhereTheyStand()
    {
        auto model = canvas();
        stroke(*model, {{10, 10}, {50, 50}});
        stroke(*model, {{100, 100}, {150, 150}});
        const LineImagePtr first = model->lineImages()[0];
        model->handleTap(first);
        model->rotate(Angle::degrees(45));
        model->scale(2.0);
        first->setOffset(QSizeF(70, 80)); // a move: recorded in no step, but kept

        model->deleteItem();
        QCOMPARE(model->lineImages().size(), 1);
        QCOMPARE(model->selectedLineImage(), first); // still pointing at the removed item, on purpose

        model->undoLastAction(); // the deletion: the first item is back, at its moved place, turn and scale
                                 // reset
        QCOMPARE(model->lineImages().size(), 2);
        const LineImagePtr restored = model->lineImages()[0];
        QVERIFY(restored != first);
        QCOMPARE(restored->offset(), QSizeF(70, 80));
        QCOMPARE(restored->rotationAngle().degrees(), 0.0);
        QCOMPARE(restored->magnification(), 1.0);

        model->undoLastAction(); // the second stroke vanishes
        QCOMPARE(model->lineImages().size(), 1);
        model->undoLastAction();
        QVERIFY(model->lineImages().isEmpty());
        QVERIFY(!model->hasPreviousStates());
        model->undoLastAction();
        QVERIFY(model->lineImages().isEmpty());
    }

    void transforms_actOnTheSelection_data()
    {
        QTest::addColumn<QStringList>("buttons");
        QTest::addColumn<qreal>("degrees");
        QTest::addColumn<qreal>("magnification");
        // tst_CanvasView taps "to left" twice, "270°", "scale up" and "1.25x" on the screen.
        QTest::newRow("to right, 90°, to right") << QStringList{"right", "90°", "right"} << 180.0 << 1.0;
        QTest::newRow("scale up, then down") << QStringList{"up", "down"} << 0.0 << 0.9375;
        QTest::newRow("0.5x, scale down") << QStringList{"0.5x", "down"} << 0.0 << 0.375;
        QTest::newRow("nothing selected")
            << QStringList{"close", "90°", "up", "centre", "delete"} << 0.0 << 1.0;
    }

    void transforms_actOnTheSelection()
    {
        QFETCH(QStringList, buttons);
        QFETCH(qreal, degrees);
        QFETCH(qreal, magnification);
        auto model = canvas();
        stroke(*model, {{10, 10}, {50, 50}});
        const LineImagePtr item = model->lineImages().first();
        model->handleTap(item);

        for (const QString& button : buttons) {
            if (button == u"left" || button == u"right")
                model->rotateBy(button == u"left" ? -90 : 90);
            else if (button.endsWith(u'°'))
                model->rotateTo(button.chopped(1).toDouble());
            else if (button.endsWith(u'x'))
                model->scaleTo(button.chopped(1).toDouble());
            else if (button == u"up" || button == u"down")
                button == u"up" ? model->scaleUp() : model->scaleDown();
            else if (button == u"close")
                model->closeSelection();
            else if (button == u"centre")
                model->alignTo(CanvasAlignment::center);
            else
                model->deleteSelection();
        }

        QCOMPARE(item->rotationAngle().degrees(), degrees);
        QCOMPARE(item->magnification(), magnification);
        QCOMPARE(item->offset(), QSizeF(6, 6));
        QCOMPARE(model->lineImages().size(), 1);
        QCOMPARE(model->previousStateCount(), 1); // transforms record no step
    }

    void align_placesTheUnscaledImageInTheFrame_data()
    {
        QTest::addColumn<Alignment>("alignment");
        QTest::addColumn<QSizeF>("offset");
        // Frame 400 × 300, image 100 × 40.
        QTest::newRow("topLeading") << CanvasAlignment::topLeading << QSizeF(0, 0);
        QTest::newRow("top") << CanvasAlignment::top << QSizeF(150, 0);
        QTest::newRow("topTrailing") << CanvasAlignment::topTrailing << QSizeF(300, 0);
        QTest::newRow("leading") << CanvasAlignment::leading << QSizeF(0, 130);
        QTest::newRow("center") << CanvasAlignment::center << QSizeF(150, 130);
        QTest::newRow("trailing") << CanvasAlignment::trailing << QSizeF(300, 130);
        QTest::newRow("bottomLeading") << CanvasAlignment::bottomLeading << QSizeF(0, 260);
        QTest::newRow("bottom") << CanvasAlignment::bottom << QSizeF(150, 260);
        QTest::newRow("bottomTrailing") << CanvasAlignment::bottomTrailing << QSizeF(300, 260);
        // Numbers the toolbar does not know, as a host's QML may pass them, are reported and move nothing.
        for (const int unknown : {-1, 15, 16, 42})
            QTest::addRow("unknown %d", unknown) << Alignment(unknown) << QSizeF(150, 130);
    }

    void align_placesTheUnscaledImageInTheFrame()
    {
        QFETCH(Alignment, alignment);
        QFETCH(QSizeF, offset);
        auto model = canvas();
        model->addText(solid(QSize(100, 40), Qt::red));
        const LineImagePtr item = model->lineImages().first();
        QCOMPARE(item->offset(), QSizeF(150, 130)); // added in the middle
        QCOMPARE(model->previousStateCount(), 1);
        model->handleTap(item);
        model->scale(3.0);
        const QByteArray said = stdoutOf([&] { model->alignTo(alignment); });
        QCOMPARE(item->offset(), offset);
        const bool known =
            alignment >= CanvasAlignment::topLeading && alignment <= CanvasAlignment::bottomTrailing;
        QCOMPARE(said, QByteArray(known ? "" : "No supported alignment\n"));
    }
};

QTEST_MAIN(tst_CanvasViewModel)
#include "tst_CanvasViewModel.moc"
