#include "EditorScreen.h"
#include "StdoutCapture.h"
#include "TestImages.h"

#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

using namespace TestImages;
using Page = ImageEditorViewModel::Page;

class tst_FiltersView : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;
    QString m_photo;

    // A sideways drag of \a distance points across the middle of the item, where its handler takes it.
    static void swipe(EditorScreen& screen, const char* objectName, qreal distance, qreal fromBottom = 0)
    {
        const QQuickItem* item = screen.find(objectName);
        QVERIFY(item);
        QTRY_VERIFY(item->width() > 0);
        const QPointF start(item->width() / 2,
                            fromBottom > 0 ? item->height() - fromBottom : item->height() / 2);
        screen.touchDrag(item, start, start + QPointF(distance, 0));
    }

    static void open(EditorScreen& screen, Page page)
    {
        screen.editor()->navigate(page);
        QVERIFY(screen.waitForToolPage());
    }

private slots:
    void initTestCase()
    {
        QStandardPaths::setTestModeEnabled(true);
        m_photo = m_dir.filePath(QStringLiteral("photo.png"));
        QVERIFY(writeFile(m_photo, encode(QImage(photoPath()).copy(1000, 800, 1200, 900), "png")));
    }

    void wholeSession_filtersAndAdjustments_byTouch()
    {
        EditorScreen screen(
            QuorvaneSdkImageEditorPreset(QUrl::fromLocalFile(m_photo), QuorvaneSdkImageOutputFormat::png(),
                                         QUrl::fromLocalFile(m_dir.filePath("out.png")), std::nullopt));
        ImageEditorViewModel* editor = screen.editor();
        const QImage photo = editor->image();

        for (int visit = 0; visit < 2; ++visit) {
            open(screen, Page::filters);
            FiltersViewModel* filters = editor->filters();
            QVERIFY(filters);
            QCOMPARE(screen.text("selectedEntryName"), QStringLiteral("Original"));
            QVERIFY(!screen.isShown("filtersUndoButton"));
            swipe(screen, "selectFilterView", -60);
            QCOMPARE(screen.text("selectedEntryName"), QStringLiteral("Blue"));
            // The strip snapped so that Blue sits in the middle.
            const QQuickItem* carousel = screen.find("selectFilterView");
            QTRY_COMPARE(screen.find("carouselStrip")->x(), (carousel->width() - 64) / 2 - 72);
            QCOMPARE(screen.find("filtersSwatch")->property("color").value<QColor>(),
                     *FiltersManager::swatchColor(1));
            swipe(screen, "chooseIntensityView", 80);
            QCOMPARE(filters->chooseIntensityViewModel()->selectedIntensity(), 80.0);
            QVERIFY(screen.isShown("filtersUndoButton"));

            if (visit == 0) {
                screen.tap("acceptButton");
                QTRY_COMPARE(editor->page(), Page::base);
                const QImage blue = editor->image();
                QCOMPARE(blue.deviceIndependentSize(), QSizeF(1200, 900));
                QVERIFY(near(blue.pixelColor(0, 0), *FiltersManager::swatchColor(1), 1));
                QVERIFY(near(blue.pixelColor(blue.width() - 1, blue.height() - 1),
                             *FiltersManager::swatchColor(1), 1));
                QCOMPARE(editor->previousImageVersionCount(), 1);
                screen.tap("undoButton");
                QCOMPARE(editor->image().cacheKey(), photo.cacheKey());
            } else {
                // Undone one step at a time, back to nothing chosen; then left without a change.
                for (int taps = 0; filters->hasTrackedActions() && taps < 500; ++taps)
                    screen.tap("filtersUndoButton");
                QVERIFY(!screen.isShown("filtersUndoButton"));
                QCOMPARE(screen.text("selectedEntryName"), QStringLiteral("Original"));
                QCOMPARE(screen.text("intensityValue"), QStringLiteral("100"));
                screen.tap("cancelButton");
                QTRY_COMPARE(editor->page(), Page::base);
            }

            open(screen, Page::adjust);
            swipe(screen, "selectAdjustmentView", -70);
            QCOMPARE(screen.text("selectedEntryName"), QStringLiteral("Adjust #1"));
            // Turning the dial prints each intensity it passes, and nothing else happens.
            const QByteArray printed = stdoutOf([&] { swipe(screen, "chooseIntensityLevelView", -100, 12); });
            const QList<QByteArray> lines = printed.trimmed().split('\n');
            QVERIFY2(lines.size() > 1, printed.constData());
            for (const QByteArray& line : lines)
                QVERIFY2(line.startsWith("applyIntensity(") && line.endsWith(")"), line.constData());
            QCOMPARE(lines.last(), QByteArray("applyIntensity(75.0)"));
            if (visit == 0)
                screen.tap("acceptButton");
            else
                screen.key(Qt::Key_Escape);
            QTRY_COMPARE(editor->page(), Page::base);
            QCOMPARE(editor->image().cacheKey(), photo.cacheKey());
            QCOMPARE(editor->previousImageVersionCount(), 0);
        }
    }
};

QTEST_MAIN(tst_FiltersView)
#include "tst_FiltersView.moc"
