#include "Editor/Adjustment/AdjustImageViewModel.h"
#include "StdoutCapture.h"
#include "TestImages.h"

#include <QTest>

using namespace TestImages;

class tst_AdjustImageViewModel : public QObject
{
    Q_OBJECT

private slots:
    void catalogue_namesTenEntriesAndRepeatsTheFirstFourSymbols()
    {
        AdjustImageViewModel model(quadrants(QSize(40, 30)));
        const QList<Filter>& entries = model.availableFilters();
        QCOMPARE(entries.size(), 10);
        for (qsizetype i = 0; i < entries.size(); ++i) {
            QCOMPARE(entries[i].name, i == 0 ? QStringLiteral("None") : QStringLiteral("Adjust #%1").arg(i));
            QCOMPARE(entries[i].index, i);
            // Entries 6 to 9 repeat the first four symbols; no two others look alike.
            for (qsizetype j = i + 1; j < entries.size(); ++j)
                QCOMPARE(entries[i].image == entries[j].image, j == i + 6);
        }
    }

    void applyIntensity_printsTheValueAsThePlatformWritesIt_data()
    {
        QTest::addColumn<qreal>("value");
        QTest::addColumn<QByteArray>("line");
        QTest::newRow("whole") << 100.0 << QByteArray("applyIntensity(100.0)\n");
        QTest::newRow("negative zero") << -0.0 << QByteArray("applyIntensity(-0.0)\n");
        QTest::newRow("shortest that reads back") << 0.1 << QByteArray("applyIntensity(0.1)\n");
        QTest::newRow("a third") << 100.0 / 3 << QByteArray("applyIntensity(33.333333333333336)\n");
        QTest::newRow("tiny") << 1e-5 << QByteArray("applyIntensity(1e-05)\n");
        QTest::newRow("huge") << 1e16 << QByteArray("applyIntensity(1e+16)\n");
        QTest::newRow("not a number") << qQNaN() << QByteArray("applyIntensity(nan)\n");
    }

    void applyIntensity_printsTheValueAsThePlatformWritesIt()
    {
        QFETCH(qreal, value);
        QFETCH(QByteArray, line);
        AdjustImageViewModel model(quadrants(QSize(40, 30)));
        QCOMPARE(stdoutOf([&] { model.applyIntensity(value); }), line);
    }

    void dialAndCarousel_changeNothingThePageHandsBack()
    {
        std::optional<std::optional<QImage>> returned;
        AdjustImageViewModel model(quadrants(QSize(40, 30)),
                                   [&](std::optional<QImage> image) { returned = std::move(image); });
        ChooseIntensityLevelViewModel* dial = model.chooseIntensityViewModel();
        SelectAdjustmentViewModel* carousel = model.selectAdjustmentViewModel();
        dial->setupElementsSize(402);
        carousel->setupElementsSize(300);

        QCOMPARE(stdoutOf([&] { dial->handleDragOnChange(50); }), QByteArray("applyIntensity(37.5)\n"));
        dial->handleDragOnEnded(50);
        carousel->handleDragOnChange(-100);
        carousel->handleDragOnEnded(-100);
        QCOMPARE(carousel->selectedIndex(), 2);

        QVERIFY(!model.selectedFilter());
        QCOMPARE(model.selectedIntensity(), 1.0);
        QCOMPARE(model.trackedActionCount(), 0);
        model.accept();
        QVERIFY(returned);
        QVERIFY(!*returned);
    }
};

QTEST_MAIN(tst_AdjustImageViewModel)
#include "tst_AdjustImageViewModel.moc"
