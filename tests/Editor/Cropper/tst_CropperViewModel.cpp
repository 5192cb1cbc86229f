#include "Editor/Common/BrandColor.h"
#include "Editor/Cropper/CropperViewModel.h"
#include "Error/QuorvaneSdkImageError.h"
#include "NonFinite.h"

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

using CropperCall = std::function<void(CropperViewModel&, qreal)>;
Q_DECLARE_METATYPE(CropperCall)

class tst_CropperViewModel : public QObject
{
    Q_OBJECT

private:
    std::shared_ptr<RecordingCropper> m_cropper = std::make_shared<RecordingCropper>();

    // A 400 × 300 point image in a 390 × 600 area: frame 390 × 292.5, turned frame 520 × 390.
    std::unique_ptr<CropperViewModel> laidOut(std::function<void(std::optional<QImage>)> returnAction = {})
    {
        QImage image(400, 300, QImage::Format_RGB32);
        image.fill(Qt::gray);
        auto model = std::make_unique<CropperViewModel>(image, m_cropper, std::move(returnAction));
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
        model->undoLastAction(); // nothing left to undo
        QCOMPARE(model->imageFrameSize(), QSizeF(390, 292.5));

        // An undo step kept past its page's end does nothing.
        model->rotateLeft(true);
        const TrackedAction orphan = model->trackedActions().last();
        model.reset();
        orphan.undo();
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

    void flipButtonTints_showMirroringAlongTheirScreenAxis()
    {
        auto model = laidOut();
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
        // Touches on or outside the frame's borders record nothing and tint nothing.
        for (const QPointF p : {QPointF(0, 100), QPointF(100, 0), QPointF(390, 100), QPointF(100, 292.5)})
            model->handleDragging(p);
        QCOMPARE(model->trackedActionCount(), 0);
        QCOMPARE(model->cropBorderColor(), QColor(Qt::white));

        for (int i = 0; i < 10; ++i) {
            model->handleDragging(QPointF(5 + i, 5 + i));
            QCOMPARE(model->cropBorderColor(), QColor(Qt::yellow));
        }
        QCOMPARE(model->trackedActionCount(), 1);
        model->finishCropping();
        QCOMPARE(model->cropBorderColor(), QColor(Qt::white));
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

    // One quick finger: it moves further between two touches than a handle reaches, and keeps hold of the
    // edge it took.
    void cropImage_sendsTheFrameInImagePoints_data()
    {
        QTest::addColumn<QPointF>("from");
        QTest::addColumn<QPointF>("to");
        QTest::addColumn<QRect>("expected");
        QTest::newRow("untouched") << QPointF() << QPointF() << QRect(0, 0, 400, 300);
        // Frame 390 × 292.5 for 400 × 300 points: a quarter of the frame is a quarter of the image.
        QTest::newRow("top leading to a quarter")
            << QPointF(5, 5) << QPointF(97.5, 73.125) << QRect(100, 75, 300, 225);
        // Leading at 130.3575 of 390 is 133.7 of 400 image points, top at 74.0025 of 292.5 is 75.9 of 300:
        // each product is cut toward zero, the extents too (266.3 and 224.1).
        QTest::newRow("top leading to fractional points")
            << QPointF(5, 5) << QPointF(130.3575, 74.0025) << QRect(133, 75, 266, 224);
        // Trailing at 195.585 of 390 is 200.6 image points wide, bottom at 147.03 of 292.5 is 150.8 tall.
        QTest::newRow("bottom trailing to fractional points")
            << QPointF(385, 287.5) << QPointF(195.585, 147.03) << QRect(0, 0, 200, 150);
    }

    void cropImage_sendsTheFrameInImagePoints()
    {
        QFETCH(QPointF, from);
        QFETCH(QPointF, to);
        QFETCH(QRect, expected);
        auto model = laidOut();
        if (from != to) {
            model->beginTouch(from);
            model->handleTouch(to);
            model->finishCropping();
            QCOMPARE(model->trackedActionCount(), 1);
        }
        model->rotateRight(true);
        model->flipVertically(true);

        QVERIFY(model->cropImage());

        QVERIFY(m_cropper->last);
        QCOMPARE(QRect(m_cropper->last->startXPoint, m_cropper->last->startYPoint, m_cropper->last->width,
                       m_cropper->last->height),
                 expected);
        QCOMPARE(m_cropper->last->rotation.degrees(), 90.0);
        QVERIFY(m_cropper->last->flipHorizontally);
        QVERIFY(!m_cropper->last->flipVertically);
    }

    void closingButtons_returnOnce_data()
    {
        QTest::addColumn<bool>("edited");
        QTest::addColumn<QString>("button");
        QTest::addColumn<bool>("cropFails");
        QTest::addColumn<int>("returns");
        QTest::addColumn<bool>("withImage");
        QTest::newRow("cancel") << false << "cancel" << false << 1 << false;
        QTest::newRow("crop before any edit is disabled") << false << "crop" << false << 0 << false;
        QTest::newRow("crop after an edit") << true << "crop" << false << 1 << true;
        QTest::newRow("crop that fails") << true << "crop" << true << 1 << false;
        // A cancel while the crop is made does nothing: the crop answers.
        QTest::newRow("cancel while cropping") << true << "crop, cancel meanwhile" << false << 1 << true;
    }

    void closingButtons_returnOnce()
    {
        QFETCH(bool, edited);
        QFETCH(QString, button);
        QFETCH(bool, cropFails);
        QFETCH(int, returns);
        QFETCH(bool, withImage);
        QList<std::optional<QImage>> results;
        const auto model = laidOut([&](std::optional<QImage> image) { results.append(std::move(image)); });
        if (edited)
            model->rotateRightTracked();
        m_cropper->fail = cropFails;
        if (button == u"crop, cancel meanwhile") {
            m_cropper->whileCropping = [&] {
                QVERIFY(model->isCroppingInProgress());
                model->cancel();
            };
        }

        for (int press = 0; press < 2; ++press)
            button.startsWith(u"crop") ? model->crop() : model->cancel();
        m_cropper->fail = false;
        m_cropper->whileCropping = nullptr;

        QCOMPARE(results.size(), returns);
        if (returns > 0)
            QCOMPARE(results.first().has_value(), withImage);
        QVERIFY(!model->isCroppingInProgress());
    }
};

QTEST_GUILESS_MAIN(tst_CropperViewModel)
#include "tst_CropperViewModel.moc"
