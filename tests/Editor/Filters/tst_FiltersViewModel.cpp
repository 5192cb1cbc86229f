#include "Editor/Filters/FiltersViewModel.h"
#include "Editor/Helpers/ImageHelpers.h"
#include "TestImages.h"

#include <QTest>
#include <memory>

using namespace TestImages;

class tst_FiltersViewModel : public QObject
{
    Q_OBJECT

private:
    QList<std::optional<QImage>> m_returned;

    std::unique_ptr<FiltersViewModel> page(QSize size = QSize(400, 300))
    {
        return std::make_unique<FiltersViewModel>(
            quadrants(size), [this](std::optional<QImage> image) { m_returned.append(std::move(image)); });
    }

private slots:
    void init() { m_returned.clear(); }

    void catalogue_isTheOriginalThenNineSmallSwatches()
    {
        auto model = page(QSize(4000, 1000));
        const QList<Filter>& filters = model->availableFilters();
        QCOMPARE(filters.size(), 10);
        QCOMPARE(filters[0].image.cacheKey(), model->image().cacheKey());
        // Thumbnails in the picture's shape, not nine pictures' worth of memory.
        for (qsizetype i = 1; i < filters.size(); ++i)
            QCOMPARE(filters[i].image.deviceIndependentSize(), QSizeF(64, 16));
        QCOMPARE(model->selectFilterViewModel()->availableFilters(), filters);
    }

    void setupImageSize_fitsThePictureIntoTheSpace_data()
    {
        QTest::addColumn<QSizeF>("space");
        QTest::addColumn<QSizeF>("frame");
        QTest::newRow("taller space") << QSizeF(200, 400) << QSizeF(200, 150);
        QTest::newRow("wider space") << QSizeF(800, 300) << QSizeF(400, 300);
        QTest::newRow("no area is ignored") << QSizeF(800, 0) << QSizeF();
        QTest::newRow("not finite is ignored") << QSizeF(qInf(), 300) << QSizeF();
    }

    void setupImageSize_fitsThePictureIntoTheSpace()
    {
        QFETCH(QSizeF, space);
        QFETCH(QSizeF, frame);
        auto model = page();
        model->setupImageSize(space);
        QCOMPARE(model->imageFrameSize(), frame);
    }

    void choices_areUndoneInTurn_withTheCarouselAndRulerShowingThem()
    {
        auto model = page();
        SelectFilterViewModel* carousel = model->selectFilterViewModel();
        ChooseIntensityViewModel* ruler = model->chooseIntensityViewModel();
        carousel->setupElementsSize(300);
        ruler->setupElementsSize(402);
        model->undoLastAction();
        QCOMPARE(model->trackedActionCount(), 0);

        const QList<Filter> filters = model->availableFilters();
        carousel->handleDragOnChange(-37);
        carousel->handleDragOnEnded(-37);
        ruler->handleDragOnChange(100);
        ruler->handleDragOnEnded(100);
        carousel->handleDragOnChange(-72);
        carousel->handleDragOnEnded(-72);
        QCOMPARE(model->trackedActionCount(), 3);
        QCOMPARE(*model->selectedFilter(), filters[2]);
        QCOMPARE(model->selectedIntensity(), 75.0);
        QCOMPARE(model->selectedSwatchColor(), *FiltersManager::swatchColor(2));

        model->undoLastAction();
        QCOMPARE(*model->selectedFilter(), filters[1]);
        QCOMPARE(carousel->selectedFilter(), filters[1]);
        QCOMPARE(carousel->offset(), 46.0);
        model->undoLastAction();
        QCOMPARE(model->selectedIntensity(), 1.0);
        QCOMPARE(ruler->selectedIntensity(), 100.0);
        QCOMPARE(ruler->offset(), -200.0);
        model->undoLastAction();
        QVERIFY(!model->selectedFilter());
        QCOMPARE(carousel->selectedFilter(), filters[0]);
        QCOMPARE(carousel->offset(), 118.0);
        QCOMPARE(model->selectedSwatchColor(), QColor(Qt::transparent));
        QVERIFY(!model->applyFilters());

        // The next drag starts from what is shown.
        carousel->handleDragOnChange(-37);
        QCOMPARE(*model->selectedFilter(), filters[1]);
    }

    void accept_handsBackTheChosenEntryOnce_data()
    {
        QTest::addColumn<int>("entry");
        QTest::newRow("nothing chosen") << -1;
        QTest::newRow("Original") << 0;
        QTest::newRow("White") << 9;
    }

    void accept_handsBackTheChosenEntryOnce()
    {
        QFETCH(int, entry);
        auto model = page();
        if (entry >= 0)
            model->applyFilter(model->availableFilters()[entry]);
        model->accept();
        model->accept();
        model->cancel();
        QCOMPARE(m_returned.size(), 1);
        const std::optional<QImage>& image = m_returned[0];
        if (entry < 0) {
            QVERIFY(!image);
        } else if (entry == 0) {
            QCOMPARE(image->cacheKey(), model->image().cacheKey());
        } else {
            // A field of the swatch's colour as large as the picture.
            QCOMPARE(image->deviceIndependentSize(), QSizeF(400, 300));
            QCOMPARE(image->devicePixelRatio(), ImageHelpers::screenScale());
            const QColor colour = *FiltersManager::swatchColor(entry);
            QVERIFY(near(image->pixelColor(0, 0), colour, 1));
            QVERIFY(near(image->pixelColor(image->width() - 1, image->height() - 1), colour, 1));
        }
    }
};

QTEST_MAIN(tst_FiltersViewModel)
#include "tst_FiltersViewModel.moc"
