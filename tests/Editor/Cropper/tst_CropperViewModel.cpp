#include "Editor/Common/BrandColor.h"
#include "Editor/Cropper/CropperViewModel.h"
#include "Error/QuorvaneSdkImageError.h"
#include "NonFinite.h"

#include <QSignalSpy>
#include <QTest>
#include <functional>

namespace {

// Keeps the last request; answers with a 1×1 image or, when told to, the service's error.
class RecordingCropper final : public ImageCropper
{
public:
    QImage crop(const QuorvaneSdkImageCropInput& image) override
    {
        last.emplace(image);
        if (whileCropping)
            whileCropping();
        if (fail)
            throw QuorvaneSdkImageError(QuorvaneSdkImageError::invalidCropRange);
        return QImage(1, 1, QImage::Format_RGB32);
    }

    std::optional<QuorvaneSdkImageCropInput> last;
    bool fail = false;
    std::function<void()> whileCropping;
};

using Edge = CropperViewModel::CropEdge;

QImage imageOfPoints(QSizeF points)
{
    QImage image(points.toSize(), QImage::Format_RGB32);
    image.fill(Qt::gray);
    return image;
}

// Everything a person could see or undo, for comparing before and after.
struct Snapshot
{
    QSizeF frame;
    qreal top, bottom, leading, trailing;
    qreal degrees;
    bool flipHorizontally, flipVertically;
    QColor horizontalTint, verticalTint;

    static Snapshot of(const CropperViewModel& m)
    {
        return {m.imageFrameSize(),          m.topCropHeight(),     m.bottomCropHeight(),
                m.leadingCropWidth(),        m.trailingCropWidth(), m.rotationDegrees(),
                m.flipHorizontally(),        m.flipVertically(),    m.flipHorizontallyButtonColor(),
                m.flipVericallyButtonColor()};
    }
    bool operator==(const Snapshot&) const = default;
};

} // namespace

Q_DECLARE_METATYPE(Edge)
using CropperCall = std::function<void(CropperViewModel&, qreal)>;
Q_DECLARE_METATYPE(CropperCall)

class tst_CropperViewModel : public QObject
{
    Q_OBJECT

private:
    std::shared_ptr<RecordingCropper> m_cropper = std::make_shared<RecordingCropper>();

    // A 400 × 300 point image in a 390 × 600 area: frame 390 × 292.5, turned frame 520 × 390.
    std::unique_ptr<CropperViewModel> laidOut()
    {
        auto model = std::make_unique<CropperViewModel>(imageOfPoints(QSizeF(400, 300)), m_cropper);
        model->setupCropperLayout(QSizeF(390, 600));
        return model;
    }

    static void drag(CropperViewModel& model, std::initializer_list<QPointF> points)
    {
        for (const QPointF& point : points)
            model.handleDragging(point);
        model.finishCropping();
    }

private slots:
    void layout_fitsTheFrameBothWays_data()
    {
        QTest::addColumn<QSizeF>("image");
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

    void layout_fitsTheFrameBothWays()
    {
        QFETCH(QSizeF, image);
        QFETCH(QSizeF, area);
        QFETCH(QSizeF, portrait);
        QFETCH(QSizeF, landscape);
        CropperViewModel model(imageOfPoints(image), m_cropper);
        QVERIFY(!model.isCropperSetup());

        model.setupCropperLayout(area);
        QVERIFY(model.isCropperSetup());
        QCOMPARE(model.imageFrameSize(), portrait);
        model.rotateRight(false);
        QCOMPARE(model.imageFrameSize(), landscape);
    }

    void getCropEdge_data()
    {
        QTest::addColumn<QPointF>("location");
        QTest::addColumn<Edge>("edge");
        // Untouched frame 390 × 292.5: edges at 0 and 390 across, 0 and 292.5 down; centre (195, 146.25).
        QTest::newRow("centre") << QPointF(195, 146.25) << Edge::center;
        QTest::newRow("centre, 20 off both ways") << QPointF(215, 126.25) << Edge::center;
        QTest::newRow("just past the centre's reach") << QPointF(215.01, 146.25) << Edge::none;
        QTest::newRow("top") << QPointF(100, 20) << Edge::top;
        QTest::newRow("just below the top's reach") << QPointF(100, 20.01) << Edge::none;
        QTest::newRow("top leading, 20 from both") << QPointF(20, 20) << Edge::topLeading;
        QTest::newRow("top trailing") << QPointF(370, 5) << Edge::topTrailing;
        QTest::newRow("bottom") << QPointF(100, 272.5) << Edge::bottom;
        QTest::newRow("bottom leading") << QPointF(1, 290) << Edge::bottomLeading;
        QTest::newRow("bottom trailing") << QPointF(389, 290) << Edge::bottomTrailing;
        QTest::newRow("leading") << QPointF(20, 100) << Edge::leading;
        QTest::newRow("trailing") << QPointF(370, 100) << Edge::trailing;
        QTest::newRow("nothing near") << QPointF(100, 100) << Edge::none;
    }

    void getCropEdge()
    {
        QFETCH(QPointF, location);
        QFETCH(Edge, edge);
        QCOMPARE(laidOut()->getCropEdge(location), edge);
    }

    void getCropEdge_breaksTiesInFixedOrder_data()
    {
        QTest::addColumn<QSizeF>("image");
        QTest::addColumn<QPointF>("location");
        QTest::addColumn<Edge>("edge");
        // Handles crowd together only on frames thinner than 40 points, as panoramas make them.
        // 4000 × 500 in 390 × 600: frame 390 × 48.75, centre (195, 24.375).
        QTest::newRow("centre before top") << QSizeF(4000, 500) << QPointF(195, 5) << Edge::center;
        // 4000 × 300: frame 390 × 29.25; y = 10 is in reach of top and bottom.
        QTest::newRow("top before bottom") << QSizeF(4000, 300) << QPointF(100, 10) << Edge::top;
        QTest::newRow("top leading before bottom leading")
            << QSizeF(4000, 300) << QPointF(15, 10) << Edge::topLeading;
        QTest::newRow("top trailing before bottom trailing")
            << QSizeF(4000, 300) << QPointF(380, 10) << Edge::topTrailing;
        // 200 × 4000: frame 30 × 600, centre (15, 300); x = 15 is in reach of leading and trailing.
        QTest::newRow("leading before trailing") << QSizeF(200, 4000) << QPointF(15, 100) << Edge::leading;
        QTest::newRow("top leading before top trailing")
            << QSizeF(200, 4000) << QPointF(15, 10) << Edge::topLeading;
        QTest::newRow("bottom leading before bottom trailing")
            << QSizeF(200, 4000) << QPointF(15, 590) << Edge::bottomLeading;
        QTest::newRow("centre before leading and trailing")
            << QSizeF(200, 4000) << QPointF(5, 280) << Edge::center;
        // 390 × 80: frame 390 × 80, centre (195, 40): a touch can be exactly 20 from the centre both ways
        // and exactly 20 from an edge at once.
        QTest::newRow("centre before top, all at exactly 20")
            << QSizeF(390, 80) << QPointF(215, 20) << Edge::center;
        QTest::newRow("centre before bottom, all at exactly 20")
            << QSizeF(390, 80) << QPointF(175, 60) << Edge::center;
        QTest::newRow("just past the centre's reach, the top takes it")
            << QSizeF(390, 80) << QPointF(215.01, 20) << Edge::top;
    }

    void getCropEdge_breaksTiesInFixedOrder()
    {
        QFETCH(QSizeF, image);
        QFETCH(QPointF, location);
        QFETCH(Edge, edge);
        CropperViewModel model(imageOfPoints(image), m_cropper);
        model.setupCropperLayout(QSizeF(390, 600));
        QCOMPARE(model.getCropEdge(location), edge);
    }

    void edgeUpdates_keep80PointsBetweenOppositeEdges_data()
    {
        QTest::addColumn<Edge>("edge");
        QTest::addColumn<qreal>("target");
        QTest::addColumn<bool>("accepted");
        // Untouched frame 390 × 292.5: top at 0, bottom at 292.5, leading at 0, trailing at 390.
        QTest::newRow("top to 212.49 (80.01 apart)") << Edge::top << 212.49 << true;
        QTest::newRow("top to 212.5 (exactly 80)") << Edge::top << 212.5 << false;
        QTest::newRow("top to 212.51 (79.99 apart)") << Edge::top << 212.51 << false;
        QTest::newRow("leading to 309.99") << Edge::leading << 309.99 << true;
        QTest::newRow("leading to 310 (exactly 80)") << Edge::leading << 310.0 << false;
        QTest::newRow("leading to 310.01") << Edge::leading << 310.01 << false;
        QTest::newRow("bottom to 80.01 (80.01 apart)") << Edge::bottom << 80.01 << true;
        QTest::newRow("bottom to 80 (exactly 80)") << Edge::bottom << 80.0 << false;
        QTest::newRow("bottom to 79.99 (79.99 apart)") << Edge::bottom << 79.99 << false;
        QTest::newRow("trailing to 80.01") << Edge::trailing << 80.01 << true;
        QTest::newRow("trailing to 80 (exactly 80)") << Edge::trailing << 80.0 << false;
        QTest::newRow("trailing to 79.99") << Edge::trailing << 79.99 << false;
    }

    void edgeUpdates_keep80PointsBetweenOppositeEdges()
    {
        QFETCH(Edge, edge);
        QFETCH(qreal, target);
        QFETCH(bool, accepted);
        auto model = laidOut();
        const bool vertical = edge == Edge::top || edge == Edge::bottom;
        const bool fromNearBorder = edge == Edge::top || edge == Edge::leading;
        // The other axis stays at 100, far from the centre and from the perpendicular edges.
        const auto touchAt = [&](qreal at) { return vertical ? QPointF(100, at) : QPointF(at, 100); };
        const auto position = [&] {
            switch (edge) {
            case Edge::top:
                return model->topCropPosition();
            case Edge::bottom:
                return model->bottomCropPosition();
            case Edge::leading:
                return model->leadingCropPosition();
            default:
                return model->trailingCropPosition();
            }
        };
        // Walk the edge there in small steps, as a finger would, so the handle stays in reach.
        const qreal border = vertical ? 292.5 : 390.0;
        if (fromNearBorder) {
            for (qreal at = 5; at < target; at += 15)
                model->handleDragging(touchAt(at));
        } else {
            for (qreal at = border - 5; at > target; at -= 15)
                model->handleDragging(touchAt(at));
        }
        QCOMPARE(model->getCropEdge(touchAt(target)), edge);
        const qreal before = position();

        model->handleDragging(touchAt(target));

        QCOMPARE(position(), accepted ? target : before);
    }

    void touchesOnOrOutsideTheFrame_areIgnored()
    {
        auto model = laidOut();
        // Touches on or outside the frame's borders are ignored altogether.
        for (const QPointF p : {QPointF(0, 100), QPointF(100, 0), QPointF(390, 100), QPointF(100, 292.5)})
            model->handleDragging(p);
        QCOMPARE(model->trackedActionCount(), 0);
        QCOMPARE(model->cropBorderColor(), QColor(Qt::white));
        drag(*model, {{100, 285}});
        QCOMPARE(model->bottomCropPosition(), 285.0);
        QCOMPARE(model->bottomCropHeight(), 7.5);
    }

    void undo_ofADragRestoresItsFrame_ofATurnFitsTheLayout()
    {
        auto model = laidOut();
        drag(*model, {{100, 5}, {100, 20}}); // upright, frame 390 × 292.5: top to 20
        model->rotateRight(true);            // frame 520 × 390: top at 26.67
        drag(*model, {{100, 30}});           // turned: top to 30
        model->setupCropperLayout(QSizeF(780, 1200));
        QCOMPARE(model->imageFrameSize(), QSizeF(1040, 780)); // turned, it shows 780 wide

        // A drag comes undone with the frame it started from, from an older layout too, and with its turn.
        model->undoLastAction();
        QCOMPARE(model->imageFrameSize(), QSizeF(520, 390));
        QCOMPARE(model->rotationDegrees(), 90.0);
        QCOMPARE(model->topCropHeight(), 390 * (20 / 292.5));
        // A turn comes undone with the frame that fits the layout as it is now.
        model->undoLastAction();
        QCOMPARE(model->imageFrameSize(), QSizeF(780, 585));
        QCOMPARE(model->topCropHeight(), 585 * (20 / 292.5));
        model->undoLastAction();
        QCOMPARE(model->imageFrameSize(), QSizeF(390, 292.5));
        QCOMPARE(model->topCropHeight(), 0.0);
        QCOMPARE(model->trackedActionCount(), 0);
    }

    void nonFiniteNumbers_areIgnored_data()
    {
        addNonFiniteRows<CropperCall>({
            {"setupCropperLayout",
             [](CropperViewModel& m, qreal v) { m.setupCropperLayout(QSizeF(v, 600)); }},
            {"handleDragging", [](CropperViewModel& m, qreal v) { m.handleDragging(QPointF(100, v)); }},
        });
    }

    void nonFiniteNumbers_areIgnored()
    {
        QFETCH(CropperCall, call);
        QFETCH(qreal, value);
        auto model = laidOut();
        drag(*model, {{20, 20}, {40, 30}});
        const Snapshot before = Snapshot::of(*model);
        const SignalCounter emitted({model.get()});

        call(*model, value);

        QCOMPARE(emitted.count(), 0);
        QCOMPARE(Snapshot::of(*model), before);
        QCOMPARE(model->trackedActionCount(), 1);
    }

    void centreMove_isDroppedWholeAtABorder()
    {
        auto model = laidOut();
        drag(*model, {{15, 15}});     // top leading to (15, 15)
        drag(*model, {{375, 277.5}}); // bottom trailing to (375, 277.5)
        const QPointF centre = model->centerCropPosition();
        QCOMPARE(centre, QPointF(195, 146.25));

        drag(*model, {{200, 150}}); // moves by (5, 3.75): fits
        QCOMPARE(model->leadingCropPosition(), 20.0);
        QCOMPARE(model->topCropPosition(), 18.75);

        drag(*model, {{180, 150}}); // left by 20 would put leading at 0: fits, inclusive
        QCOMPARE(model->leadingCropPosition(), 0.0);
        drag(*model, {{180 - 0.5, 150}}); // past the border: dropped, nothing slides
        QCOMPARE(model->leadingCropPosition(), 0.0);
        QCOMPARE(model->trailingCropPosition(), 360.0);
    }

    void rotationsAndFlips_data()
    {
        QTest::addColumn<QStringList>("steps");
        QTest::addColumn<qreal>("degrees");
        QTest::addColumn<QSizeF>("frame");
        QTest::addColumn<bool>("flipHorizontally");
        QTest::addColumn<bool>("flipVertically");

        const QSizeF portrait(390, 292.5);
        const QSizeF landscape(520, 390);
        QTest::newRow("left") << QStringList{"L"} << -90.0 << landscape << false << false;
        QTest::newRow("left ×4") << QStringList{"L", "L", "L", "L"} << -360.0 << portrait << false << false;
        QTest::newRow("left ×5") << QStringList{"L", "L", "L", "L", "L"} << -450.0 << landscape << false
                                 << false;
        QTest::newRow("right, left") << QStringList{"R", "L"} << 0.0 << portrait << false << false;
        QTest::newRow("flip h") << QStringList{"H"} << 0.0 << portrait << true << false;
        QTest::newRow("right, flip h swaps") << QStringList{"R", "H"} << 90.0 << landscape << false << true;
        QTest::newRow("right, flip v swaps") << QStringList{"R", "V"} << 90.0 << landscape << true << false;
        QTest::newRow("180, flip h") << QStringList{"R", "R", "H"} << 180.0 << portrait << true << false;
        QTest::newRow("flip h twice") << QStringList{"H", "H"} << 0.0 << portrait << false << false;
        QTest::newRow("right, flip h, left, flip h")
            << QStringList{"R", "H", "L", "H"} << 0.0 << portrait << true << true;
        QTest::newRow("left ×3, flip v swaps")
            << QStringList{"L", "L", "L", "V"} << -270.0 << landscape << true << false;
    }

    void rotationsAndFlips()
    {
        QFETCH(QStringList, steps);
        QFETCH(qreal, degrees);
        QFETCH(QSizeF, frame);
        QFETCH(bool, flipHorizontally);
        QFETCH(bool, flipVertically);
        auto model = laidOut();
        // A rectangle with all four bands: top 30, leading 40, bottom 270, trailing 360 in 390 × 292.5.
        drag(*model, {{20, 20}, {40, 30}});
        drag(*model, {{380, 285}, {360, 270}});
        QCOMPARE(model->topCropPosition(), 30.0);
        QCOMPARE(model->leadingCropPosition(), 40.0);
        QCOMPARE(model->bottomCropPosition(), 270.0);
        QCOMPARE(model->trailingCropPosition(), 360.0);

        for (const QString& step : steps) {
            if (step == u"L")
                model->rotateLeft(true);
            else if (step == u"R")
                model->rotateRight(true);
            else if (step == u"H")
                model->flipHorizontally(true);
            else
                model->flipVertically(true);
        }

        QCOMPARE(model->rotationDegrees(), degrees);
        QCOMPARE(model->imageFrameSize(), frame);
        QCOMPARE(model->flipHorizontally(), flipHorizontally);
        QCOMPARE(model->flipVertically(), flipVertically);
        // The rectangle keeps its place on the image: same fractions, bands of the new frame.
        QCOMPARE(model->topCropHeight(), frame.height() * (30 / 292.5));
        QCOMPARE(model->bottomCropHeight(), frame.height() * (1 - 270 / 292.5));
        QCOMPARE(model->leadingCropWidth(), frame.width() * (40 / 390.0));
        QCOMPARE(model->trailingCropWidth(), frame.width() * (1 - 360 / 390.0));
        QCOMPARE(model->trackedActionCount(), int(steps.size()) + 2);
    }

    void flipButtonTints_showMirroringAlongTheirScreenAxis()
    {
        auto model = laidOut();
        QCOMPARE(model->flipHorizontallyButtonColor(), BrandColor::gray());
        model->flipHorizontally(true);
        QCOMPARE(model->flipHorizontallyButtonColor(), BrandColor::ambar());
        QCOMPARE(model->flipVericallyButtonColor(), BrandColor::gray());
        model->rotateRight(true); // the left-right mirror now runs top to bottom on screen
        QCOMPARE(model->flipHorizontallyButtonColor(), BrandColor::gray());
        QCOMPARE(model->flipVericallyButtonColor(), BrandColor::ambar());
    }

    void drag_recordsOneUndoStepAndTintsTheBorder()
    {
        auto model = laidOut();
        const Snapshot before = Snapshot::of(*model);
        QSignalSpy steps(model.get(), &CropperViewModel::trackedActionsChanged);

        for (int i = 0; i < 10; ++i) {
            model->handleDragging(QPointF(5 + i, 5 + i));
            QCOMPARE(model->cropBorderColor(), QColor(Qt::yellow));
        }
        QCOMPARE(model->trackedActionCount(), 1);
        QCOMPARE(steps.count(), 1);
        model->finishCropping();
        QCOMPARE(model->cropBorderColor(), QColor(Qt::white));

        model->undoLastAction();
        QCOMPARE(Snapshot::of(*model), before);
        QCOMPARE(model->trackedActionCount(), 0);
        model->undoLastAction(); // nothing left to undo
        QCOMPARE(Snapshot::of(*model), before);
    }

    void undo_restoresTheExactStateBeforeEachEdit_data()
    {
        QTest::addColumn<QString>("edit");
        QTest::newRow("rotate left") << "L";
        QTest::newRow("rotate right") << "R";
        QTest::newRow("flip horizontally") << "H";
        QTest::newRow("flip vertically") << "V";
        QTest::newRow("drag an edge") << "drag";
        QTest::newRow("drag the centre") << "centre";
    }

    void undo_restoresTheExactStateBeforeEachEdit()
    {
        QFETCH(QString, edit);
        auto model = laidOut();
        // Start from a state with a bit of everything.
        drag(*model, {{10, 10}, {30, 25}});
        model->rotateRight(true);
        model->flipHorizontally(true);
        drag(*model, {{500, 200}, {470, 200}});
        const Snapshot before = Snapshot::of(*model);
        const int steps = model->trackedActionCount();

        if (edit == u"L")
            model->rotateLeft(true);
        else if (edit == u"R")
            model->rotateRight(true);
        else if (edit == u"H")
            model->flipHorizontally(true);
        else if (edit == u"V")
            model->flipVertically(true);
        else if (edit == u"drag")
            drag(*model, {{30, 100}, {60, 100}});
        else
            drag(*model, {model->centerCropPosition() - QPointF(3, 3)});
        QCOMPARE(model->trackedActionCount(), steps + 1);
        QVERIFY(!(Snapshot::of(*model) == before));

        model->undoLastAction();

        QCOMPARE(Snapshot::of(*model), before);
        QCOMPARE(model->trackedActionCount(), steps);
    }

    void undoCallbacks_outliveTheirModelHarmlessly()
    {
        TrackedAction orphan;
        {
            auto model = laidOut();
            model->rotateLeft(true);
            orphan = model->trackedActions().last();
        }
        orphan.undo();
    }

    void cropImage_sendsTheFrameInImagePoints_data()
    {
        QTest::addColumn<QList<QPointF>>("drags");
        QTest::addColumn<QRect>("expected");
        QTest::newRow("untouched") << QList<QPointF>{} << QRect(0, 0, 400, 300);
        // Frame 390 × 292.5 for 400 × 300 points: a quarter of the frame is a quarter of the image.
        QTest::newRow("top leading to a quarter")
            << QList<QPointF>{{10, 10}, {20, 20}, {30, 25}, {40, 30}, {50, 40},
                              {60, 50}, {70, 55}, {80, 60}, {90, 70}, {97.5, 73.125}}
            << QRect(100, 75, 300, 225);
        // Leading at 130.3575 of 390 is 133.7 of 400 image points, top at 74.0025 of 292.5 is 75.9 of 300:
        // each product is cut toward zero, the extents too (266.3 and 224.1).
        QTest::newRow("top leading to fractional points")
            << QList<QPointF>{{10, 10}, {25, 20},  {40, 30},  {55, 40},           {70, 50},
                              {85, 57}, {100, 64}, {115, 70}, {130.3575, 74.0025}}
            << QRect(133, 75, 266, 224);
        // Trailing at 195.585 of 390 is 200.6 image points wide, bottom at 147.03 of 292.5 is 150.8 tall.
        QTest::newRow("bottom trailing to fractional points")
            << QList<QPointF>{{380, 285}, {365, 275}, {350, 265}, {335, 255},       {320, 245},
                              {305, 235}, {290, 225}, {275, 215}, {260, 205},       {245, 195},
                              {230, 185}, {215, 170}, {200, 155}, {195.585, 147.03}}
            << QRect(0, 0, 200, 150);
    }

    void cropImage_sendsTheFrameInImagePoints()
    {
        QFETCH(QList<QPointF>, drags);
        QFETCH(QRect, expected);
        auto model = laidOut();
        for (const QPointF& p : drags)
            model->handleDragging(p);
        model->finishCropping();
        model->rotateRight(true);
        model->flipVertically(true);
        QSignalSpy progress(model.get(), &CropperViewModel::isCroppingInProgressChanged);

        QVERIFY(model->cropImage());

        QVERIFY(m_cropper->last);
        QCOMPARE(m_cropper->last->startXPoint, expected.x());
        QCOMPARE(m_cropper->last->startYPoint, expected.y());
        QCOMPARE(m_cropper->last->width, expected.width());
        QCOMPARE(m_cropper->last->height, expected.height());
        QCOMPARE(m_cropper->last->rotation.degrees(), 90.0);
        QVERIFY(m_cropper->last->flipHorizontally);
        QVERIFY(!m_cropper->last->flipVertically);
        QCOMPARE(progress.count(), 2);
        QVERIFY(!model->isCroppingInProgress());
    }

    void closingButtons_returnOnce_data()
    {
        QTest::addColumn<bool>("edited");
        QTest::addColumn<QString>("button");
        QTest::addColumn<bool>("cropFails");
        QTest::addColumn<int>("returns");
        QTest::addColumn<bool>("withImage");
        QTest::newRow("cancel") << false << "cancel" << false << 1 << false;
        QTest::newRow("cancel after an edit") << true << "cancel" << false << 1 << false;
        QTest::newRow("crop before any edit is disabled") << false << "crop" << false << 0 << false;
        QTest::newRow("crop after an edit") << true << "crop" << false << 1 << true;
        QTest::newRow("crop that fails") << true << "crop" << true << 1 << false;
    }

    void closingButtons_returnOnce()
    {
        QFETCH(bool, edited);
        QFETCH(QString, button);
        QFETCH(bool, cropFails);
        QFETCH(int, returns);
        QFETCH(bool, withImage);
        QList<std::optional<QImage>> results;
        CropperViewModel model(imageOfPoints(QSizeF(400, 300)), m_cropper,
                               [&](std::optional<QImage> image) { results.append(std::move(image)); });
        model.setupCropperLayout(QSizeF(390, 600));
        if (edited)
            model.rotateRightTracked();
        m_cropper->fail = cropFails;

        for (int press = 0; press < 2; ++press)
            button == u"crop" ? model.crop() : model.cancel();
        m_cropper->fail = false;

        QCOMPARE(results.size(), returns);
        if (returns > 0)
            QCOMPARE(results.first().has_value(), withImage);
        QVERIFY(!model.isCroppingInProgress());
    }

    void cancel_whileCropping_doesNothing()
    {
        QList<std::optional<QImage>> results;
        CropperViewModel model(imageOfPoints(QSizeF(400, 300)), m_cropper,
                               [&](std::optional<QImage> image) { results.append(std::move(image)); });
        model.setupCropperLayout(QSizeF(390, 600));
        model.toggleFlipHorizontally();
        bool inProgress = false;
        m_cropper->whileCropping = [&] {
            inProgress = model.isCroppingInProgress();
            model.cancel();
        };
        model.crop();
        m_cropper->whileCropping = nullptr;

        QVERIFY(inProgress);
        QCOMPARE(results.size(), 1);
        QVERIFY(results.first().has_value());
    }
};

QTEST_GUILESS_MAIN(tst_CropperViewModel)
#include "tst_CropperViewModel.moc"
