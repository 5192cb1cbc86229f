#include "Editor/Adjustment/ChooseIntensityLevelViewModel.h"
#include "Editor/Filters/ChooseIntensityViewModel.h"

#include <QTest>
#include <cmath>
#include <limits>
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
    void drags_reportEveryChangeAndSettleTheOffset_data()
    {
        using Values = QList<qreal>;
        QTest::addColumn<Kind>("kind");
        QTest::addColumn<QList<qreal>>("drags");
        QTest::addColumn<QList<qreal>>("reported");
        QTest::addColumn<qreal>("offset");
        QTest::addColumn<qreal>("intensity");
        // Each drag is one change followed by its end, at the width 402.
        const auto row = [](const char* name, Kind kind, const Values& drags, const Values& reported,
                            qreal offset, qreal intensity) {
            QTest::newRow(name) << kind << drags << reported << offset << intensity;
        };
        row("ruler starts at its far end", Kind::ruler, {}, {}, -200, 100);
        row("ruler +100, then +150", Kind::ruler, {100, 150}, {75, 37.5}, 50, 37.5);
        row("ruler past its start is exactly 0", Kind::ruler, {401}, {0}, 200, 0);
        row("ruler past its end is exactly 100", Kind::ruler, {-1}, {100}, -200, 100);
        row("ruler to its start exactly is in range", Kind::ruler, {400}, {0}, 200, 0);
        row("dial starts in the middle", Kind::dial, {}, {}, 0, 50);
        row("dial -100", Kind::dial, {-100}, {75}, -100, 75);
        row("dial +250 is exactly 0", Kind::dial, {250}, {0}, 200, 0);
        row("dial +50 then past its end", Kind::dial, {50, -300}, {37.5, 100}, -200, 100);
    }

    void drags_reportEveryChangeAndSettleTheOffset()
    {
        QFETCH(Kind, kind);
        QFETCH(QList<qreal>, drags);
        QFETCH(QList<qreal>, reported);
        QFETCH(qreal, offset);
        QFETCH(qreal, intensity);
        Recorder delegate;
        auto model = make(kind, &delegate);
        model->setupElementsSize(402);
        QCOMPARE(model->maxOffset(), 200.0);
        QCOMPARE(model->minOffset(), -200.0);
        QCOMPARE(model->totalDraggingSize(), 400.0);
        for (const qreal t : drags) {
            model->handleDragOnChange(t);
            QVERIFY(model->isDragging());
            model->handleDragOnEnded(t);
            QVERIFY(!model->isDragging());
        }
        QCOMPARE(delegate.values, reported);
        QCOMPARE(model->selectedIntensity(), intensity);
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

    // A window resize moves the bounds but keeps the travel; keys may step any number of ticks.
    void laterWidthsAndExtremeSteps_keepTheIntensityWithinItsRange_data()
    {
        QTest::addColumn<qreal>("width");
        QTest::addColumn<qreal>("drag"); // not a number: a step of ticks instead
        QTest::addColumn<int>("ticks");
        QTest::addColumn<qreal>("intensity");
        QTest::newRow("wider, dragged past where 0 was") << 600.0 << 398.0 << 0 << 0.0;
        QTest::newRow("narrower, dragged past where 100 was") << 200.0 << -200.0 << 0 << 100.0;
        QTest::newRow("narrower, within") << 200.0 << 198.0 << 0 << 25.5;
        QTest::newRow("the lowest int of ticks")
            << 402.0 << qQNaN() << std::numeric_limits<int>::min() << 0.0;
        QTest::newRow("the highest int of ticks")
            << 402.0 << qQNaN() << std::numeric_limits<int>::max() << 100.0;
    }

    void laterWidthsAndExtremeSteps_keepTheIntensityWithinItsRange()
    {
        QFETCH(qreal, width);
        QFETCH(qreal, drag);
        QFETCH(int, ticks);
        QFETCH(qreal, intensity);
        Recorder delegate;
        auto model = make(Kind::ruler, &delegate);
        model->setupElementsSize(402);
        model->handleDragOnChange(100);
        model->handleDragOnEnded(100);
        model->setupElementsSize(width);
        if (std::isnan(drag)) {
            model->step(ticks);
        } else {
            model->handleDragOnChange(drag);
            model->handleDragOnEnded(drag);
        }
        QCOMPARE(model->selectedIntensity(), intensity);
        QCOMPARE(delegate.values.last(), intensity);
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
