#include "Editor/Adjustment/ChooseIntensityLevelViewModel.h"
#include "Editor/Filters/ChooseIntensityViewModel.h"

#include <QTest>
#include <cmath>
#include <memory>

namespace {

struct Recorder : IntensityDelegate
{
    QList<qreal> values;
    void applyIntensity(qreal value) override { values.append(value); }
};

enum class Kind { ruler, dial };

// The filters page's ruler, or the adjustments page's dial with that page's geometry.
std::unique_ptr<ChooseIntensityViewModel> make(Kind kind, IntensityDelegate* delegate)
{
    if (kind == Kind::ruler)
        return std::make_unique<ChooseIntensityViewModel>(delegate);
    return std::make_unique<ChooseIntensityLevelViewModel>(QSizeF(2, 16), 41, 8, delegate);
}

} // namespace

Q_DECLARE_METATYPE(Kind)

class tst_ChooseIntensityViewModel : public QObject
{
    Q_OBJECT

private slots:
    void setup_at402_placesTheStartingIntensityUnderTheMarker_data()
    {
        QTest::addColumn<Kind>("kind");
        QTest::addColumn<qreal>("offset");
        QTest::addColumn<qreal>("intensity");
        QTest::newRow("ruler starts at its far end, 100") << Kind::ruler << -200.0 << 100.0;
        QTest::newRow("dial starts in the middle, 50") << Kind::dial << 0.0 << 50.0;
    }

    void setup_at402_placesTheStartingIntensityUnderTheMarker()
    {
        QFETCH(Kind, kind);
        QFETCH(qreal, offset);
        QFETCH(qreal, intensity);
        auto model = make(kind, nullptr);
        model->setupElementsSize(402);
        QCOMPARE(model->maxOffset(), 200.0);
        QCOMPARE(model->minOffset(), -200.0);
        QCOMPARE(model->totalDraggingSize(), 400.0);
        QCOMPARE(model->offset(), offset);
        QCOMPARE(model->selectedIntensity(), intensity);
    }

    void drags_reportEveryChangeAndSettleTheOffset_data()
    {
        QTest::addColumn<Kind>("kind");
        QTest::addColumn<QList<qreal>>("drags");
        QTest::addColumn<QList<qreal>>("reported");
        QTest::addColumn<qreal>("offset");
        // Each drag is one change followed by its end, at the width 402.
        QTest::newRow("ruler +100") << Kind::ruler << QList<qreal>{100} << QList<qreal>{75} << -100.0;
        QTest::newRow("ruler +100, then +150")
            << Kind::ruler << QList<qreal>{100, 150} << QList<qreal>{75, 37.5} << 50.0;
        QTest::newRow("ruler past its start is exactly 0")
            << Kind::ruler << QList<qreal>{401} << QList<qreal>{0} << 200.0;
        QTest::newRow("ruler past its end is exactly 100")
            << Kind::ruler << QList<qreal>{-1} << QList<qreal>{100} << -200.0;
        QTest::newRow("ruler to its start exactly is in range")
            << Kind::ruler << QList<qreal>{400} << QList<qreal>{0} << 200.0;
        QTest::newRow("dial -100") << Kind::dial << QList<qreal>{-100} << QList<qreal>{75} << -100.0;
        QTest::newRow("dial +250 is exactly 0")
            << Kind::dial << QList<qreal>{250} << QList<qreal>{0} << 200.0;
        QTest::newRow("dial +50 then past its end")
            << Kind::dial << QList<qreal>{50, -300} << QList<qreal>{37.5, 100} << -200.0;
    }

    void drags_reportEveryChangeAndSettleTheOffset()
    {
        QFETCH(Kind, kind);
        QFETCH(QList<qreal>, drags);
        QFETCH(QList<qreal>, reported);
        QFETCH(qreal, offset);
        Recorder delegate;
        auto model = make(kind, &delegate);
        model->setupElementsSize(402);
        for (const qreal t : drags) {
            model->handleDragOnChange(t);
            QVERIFY(model->isDragging());
            model->handleDragOnEnded(t);
            QVERIFY(!model->isDragging());
        }
        QCOMPARE(delegate.values, reported);
        QCOMPARE(model->selectedIntensity(), reported.last());
        QCOMPARE(model->offset(), offset);
    }

    void setup_again_movesTheBoundsAndKeepsOffsetAndTravel()
    {
        auto model = make(Kind::ruler, nullptr);
        model->setupElementsSize(402);
        model->handleDragOnChange(100);
        model->handleDragOnEnded(100);
        model->setupElementsSize(600);
        QCOMPARE(model->maxOffset(), 299.0);
        QCOMPARE(model->minOffset(), -101.0);
        QCOMPARE(model->offset(), -100.0);
        QCOMPARE(model->totalDraggingSize(), 400.0);
        QCOMPARE(model->selectedIntensity(), 75.0);
    }

    void drag_beforeSetup_takesABoundOrIsNotANumber_data()
    {
        QTest::addColumn<qreal>("translation");
        QTest::addColumn<qreal>("intensity");
        QTest::newRow("right") << 5.0 << 0.0;
        QTest::newRow("left") << -5.0 << 100.0;
        QTest::newRow("none: zero over zero") << 0.0 << qQNaN();
    }

    void drag_beforeSetup_takesABoundOrIsNotANumber()
    {
        QFETCH(qreal, translation);
        QFETCH(qreal, intensity);
        Recorder delegate;
        ChooseIntensityViewModel model(&delegate);
        model.handleDragOnChange(translation);
        QCOMPARE(delegate.values.size(), 1);
        if (std::isnan(intensity)) {
            QVERIFY(std::isnan(model.selectedIntensity()));
            QCOMPARE(model.intensityFraction(), 0.0);
        } else {
            QCOMPARE(model.selectedIntensity(), intensity);
        }
    }
};

QTEST_GUILESS_MAIN(tst_ChooseIntensityViewModel)
#include "tst_ChooseIntensityViewModel.moc"
