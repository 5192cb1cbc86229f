#include "Editor/Adjustment/SelectAdjustmentViewModel.h"
#include "Editor/Filters/SelectFilterViewModel.h"

#include <QTest>
#include <memory>

namespace {

struct Recorder : FiltersDelegate
{
    QList<qint64> indexes;
    void applyFilter(const Filter& filter) override { indexes.append(filter.index); }
};

enum class Kind { filters, adjustments };

QList<Filter> entries()
{
    QList<Filter> filters;
    for (qint64 i = 0; i < 10; ++i)
        filters.append({QImage(1, 1, QImage::Format_ARGB32_Premultiplied), i, QStringLiteral("#%1").arg(i)});
    return filters;
}

// The filters page's carousel (64 + 8), or the adjustments page's (48 + 16), set up at the width 300.
std::unique_ptr<SelectFilterViewModel> make(Kind kind, FiltersDelegate* delegate)
{
    std::unique_ptr<SelectFilterViewModel> model;
    if (kind == Kind::filters)
        model = std::make_unique<SelectFilterViewModel>(entries(), delegate);
    else
        model = std::make_unique<SelectAdjustmentViewModel>(entries(), 48, 16, delegate);
    model->setupElementsSize(300);
    return model;
}

} // namespace

Q_DECLARE_METATYPE(Kind)

class tst_SelectFilterViewModel : public QObject
{
    Q_OBJECT

private slots:
    void setup_at300_centresTheFirstEntry_data()
    {
        QTest::addColumn<Kind>("kind");
        QTest::addColumn<qreal>("maxOffset");
        QTest::addColumn<qreal>("minOffset");
        QTest::newRow("filters") << Kind::filters << 118.0 << -530.0;
        QTest::newRow("adjustments") << Kind::adjustments << 126.0 << -450.0;
    }

    void setup_at300_centresTheFirstEntry()
    {
        QFETCH(Kind, kind);
        QFETCH(qreal, maxOffset);
        QFETCH(qreal, minOffset);
        auto model = make(kind, nullptr);
        QCOMPARE(model->maxOffset(), maxOffset);
        QCOMPARE(model->minOffset(), minOffset);
        QCOMPARE(model->offset(), maxOffset);
        QCOMPARE(model->selectedIndex(), 0);

        // A new width moves the bounds; the strip stays where it was.
        model->handleDragOnChange(-37);
        model->handleDragOnEnded(-37);
        const qreal offset = model->offset();
        model->setupElementsSize(500);
        QCOMPARE(model->maxOffset(), maxOffset + 100);
        QCOMPARE(model->offset(), offset);

        // Narrower again, a long drag still within the new bounds reaches past the last entry: it stops
        // there.
        model->setupElementsSize(200);
        model->handleDragOnChange(model->minOffset() + 1 - model->offset());
        QCOMPARE(model->selectedIndex(), 9);
    }

    void drags_selectByWholeStepsAndSnap_data()
    {
        using Drags = QList<qreal>;
        using Told = QList<qint64>;
        QTest::addColumn<Kind>("kind");
        QTest::addColumn<QList<qreal>>("drags");
        QTest::addColumn<QList<qint64>>("told");
        QTest::addColumn<qreal>("offset");
        // Each drag is one change followed by its end.
        const auto row = [](const char* name, Kind kind, const Drags& drags, const Told& told, qreal offset) {
            QTest::newRow(name) << kind << drags << told << offset;
        };
        row("+35 beyond the first entry", Kind::filters, {35}, {0}, 118);
        row("-35 stays short of half a step", Kind::filters, {-35}, {0}, 118);
        row("-36 is half a step, rounded away from zero", Kind::filters, {-36}, {1}, 46);
        row("-37, then +37 back from Blue", Kind::filters, {-37, 37}, {1, 0}, 118);
        row("-37, then -75 two on from Blue", Kind::filters, {-37, -75}, {1, 2}, -26);
        row("far left clamps to the last", Kind::filters, {-700}, {9}, -530);
        row("adjustments -31", Kind::adjustments, {-31}, {0}, 126);
        row("adjustments -33", Kind::adjustments, {-33}, {1}, 62);
        row("adjustments -200", Kind::adjustments, {-200}, {3}, -66);
    }

    void drags_selectByWholeStepsAndSnap()
    {
        QFETCH(Kind, kind);
        QFETCH(QList<qreal>, drags);
        QFETCH(QList<qint64>, told);
        QFETCH(qreal, offset);
        Recorder delegate;
        auto model = make(kind, &delegate);
        for (const qreal t : drags) {
            model->handleDragOnChange(t);
            QVERIFY(model->isDragging());
            // The strip does not move under the finger until it lifts.
            model->handleDragOnEnded(t);
            QVERIFY(!model->isDragging());
            QCOMPARE(model->previousFilter(), model->selectedFilter());
        }
        QCOMPARE(delegate.indexes, told);
        QCOMPARE(model->offset(), offset);
    }
};

QTEST_GUILESS_MAIN(tst_SelectFilterViewModel)
#include "tst_SelectFilterViewModel.moc"
