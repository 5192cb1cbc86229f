#include "Editor/Canvas/CanvasViewModel.h"
#include "Editor/QuorvaneSdkImageEditorViewModel.h"
#include "EditorScreen.h"
#include "TestImages.h"

#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QtQuickTest/quicktest.h>

using namespace TestImages;

namespace {

int whitePixels(const QImage& image, QRect area)
{
    int count = 0;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            const QColor c = image.pixelColor(x, y);
            if (c.red() > 235 && c.green() > 235 && c.blue() > 235)
                ++count;
        }
    }
    return count;
}

} // namespace

class tst_CanvasView : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;
    QString m_photo;
    QString m_output;

    // Repeated items belong to their visual parent only, so they are found by walking the item tree.
    static QQuickItem* itemShowing(const QQuickItem* root, QObject* model)
    {
        for (QQuickItem* child : root->childItems()) {
            if (child->objectName() == u"lineImage" &&
                child->property("viewModel").value<QObject*>() == model)
                return child;
            if (QQuickItem* found = itemShowing(child, model))
                return found;
        }
        return nullptr;
    }

    static CanvasViewModel* openCanvas(EditorScreen& screen)
    {
        screen.tap("drawTab");
        if (!screen.waitForToolPage())
            return nullptr;
        CanvasViewModel* canvas = screen.editor()->canvas();
        if (!QTest::qWaitFor([&] { return canvas && canvas->isCropperSetup(); }))
            return nullptr;
        return canvas;
    }

private slots:
    void initTestCase()
    {
        QStandardPaths::setTestModeEnabled(true);
        m_photo = m_dir.filePath(QStringLiteral("photo.png"));
        QVERIFY(writeFile(m_photo, encode(QImage(photoPath()).copy(1000, 800, 1200, 900), "png")));
        m_output = m_dir.filePath(QStringLiteral("drawn.png"));
    }

    // A turned item takes touches where it is drawn; of two items one above the other, the upper one does.
    void wholeSession_strokeAndText_landWhereTheyWerePlaced()
    {
        EditorScreen screen(QuorvaneSdkImageEditorPreset(QUrl::fromLocalFile(m_photo),
                                                         QuorvaneSdkImageOutputFormat::png(),
                                                         QUrl::fromLocalFile(m_output), std::nullopt));
        CanvasViewModel* canvas = openCanvas(screen);
        QVERIFY(canvas);
        QVERIFY(!screen.isShown("moveButton"));
        QCOMPARE(screen.find("acceptButton")->property("isDisabled").toBool(), true);

        // The colour rows open with the chosen swatch in sight, and a fade says that more lie beyond.
        const auto inSight = [&](const QByteArray& swatch) {
            const QQuickItem* item = screen.find(swatch.constData());
            const QQuickItem* row = item ? item->parentItem()->parentItem() : nullptr;
            return row && row->mapRectToScene(QRectF(QPointF(0, 0), row->size()))
                              .contains(item->mapRectToScene(QRectF(QPointF(0, 0), item->size())));
        };
        const QByteArray white = QByteArray::number(CanvasViewModel::colorIndex(Qt::white));
        QTRY_VERIFY(inSight("strokeColours" + white));
        QVERIFY(screen.isShown("strokeColoursFadeStart") || screen.isShown("strokeColoursFadeEnd"));

        const QPointF drawAt = screen.find("drawButton")->mapToScene(QPointF(0, 0));
        const QPointF textAt = screen.find("textButton")->mapToScene(QPointF(0, 0));

        // A tap draws nothing; then one finger draws a stroke, from where it went down (less one line width
        // of margin), with nothing of the tap in it.
        const QQuickItem* surface = screen.find("drawingSurface");
        screen.tap(surface, QPointF(200, 200));
        QVERIFY(canvas->lineImages().isEmpty());
        QCOMPARE(canvas->previousStateCount(), 0);
        screen.touchDrag(surface, QPointF(40, 140), QPointF(300, 140));
        QCOMPARE(canvas->lineImages().size(), 1);
        const QSizeF offset = canvas->lineImages()[0]->offset();
        QVERIFY2(qAbs(offset.width() - 36) <= 0.5 && qAbs(offset.height() - 136) <= 0.5,
                 qPrintable(QStringLiteral("%1, %2").arg(offset.width()).arg(offset.height())));
        QVERIFY(screen.isShown("moveButton"));
        QVERIFY(screen.isShown("canvasUndoButton"));
        // The buttons that appeared took slots kept for them: nothing moved under the user's finger.
        QQuickTest::qWaitForPolish(&screen.view());
        QCOMPARE(screen.find("drawButton")->mapToScene(QPointF(0, 0)), drawAt);
        QCOMPARE(screen.find("textButton")->mapToScene(QPointF(0, 0)), textAt);

        // Text entry opens ready to type; the preview is the very picture the canvas gets.
        screen.tap("textButton");
        QTRY_VERIFY(screen.find("textField"));
        QTRY_VERIFY(screen.find("textField")->isAncestorOf(screen.view().activeFocusItem()));
        QTRY_VERIFY(inSight("textColours" + white));
        for (const char letter : {'H', 'E', 'L', 'L', 'O'})
            QTest::keyClick(&screen.view(), letter);
        const QImage previewed = screen.find("textPreview")->property("image").value<QImage>();
        QVERIFY(!previewed.isNull());
        screen.tap("textConfirmButton");
        QTRY_COMPARE(canvas->lineImages().size(), 2);
        QCOMPARE(canvas->lineImages()[1]->image(), previewed);
        QVERIFY(!canvas->isEnteringText());
        LineImagePtr stroke = canvas->lineImages()[0];
        LineImagePtr text = canvas->lineImages()[1];
        screen.tap("moveButton");
        QVERIFY(!screen.isShown("transformToolbar"));
        const QQuickItem* frame = screen.find("canvasFrame");

        // Where the text lies over the stroke, the text is taken.
        QVERIFY(stroke->pointIsInside(text->getCenterPoint()) && text->pointIsInside(text->getCenterPoint()));
        screen.tap(frame, text->getCenterPoint());
        QTRY_COMPARE(canvas->selectedLineImage(), text);
        QTRY_VERIFY(screen.isShown("transformToolbar"));
        screen.tap(frame, text->getCenterPoint());
        QTRY_VERIFY(!canvas->selectedLineImage());

        // The toolbar acts on the tapped item.
        screen.tap(frame, QPointF(60, 140));
        QTRY_COMPARE(canvas->selectedLineImage(), stroke);
        screen.tap("Rotation");
        screen.tap("To left");
        screen.tap("To left");
        QCOMPARE(stroke->rotationAngle().degrees(), -180.0);
        screen.tap("270°");
        QCOMPARE(stroke->rotationAngle().degrees(), 270.0);
        screen.tap("rotationBack");
        screen.tap("Scale");
        screen.tap("Scale up");
        screen.tap("1.25x");
        QCOMPARE(stroke->magnification(), 1.25);
        screen.tap("scaleBack");
        screen.tap("Done");
        QTRY_VERIFY(!canvas->selectedLineImage());
        // Turned upright, the stroke takes touches along its new course, not in its old box.
        screen.tap(frame, QPointF(60, 140));
        QTRY_VERIFY(!canvas->selectedLineImage());
        screen.tap(frame, stroke->getCenterPoint() + QPointF(0, -100));
        QTRY_COMPARE(canvas->selectedLineImage(), stroke);

        screen.tap("Alignment");
        screen.tap("Bottom trailing");
        const QSizeF frameSize = canvas->imageFrameSize();
        const QSizeF size = stroke->image().deviceIndependentSize();
        QCOMPARE(stroke->offset(),
                 QSizeF(frameSize.width() - size.width(), frameSize.height() - size.height()));
        screen.tap("alignmentBack");
        screen.tap("Delete");
        QCOMPARE(canvas->lineImages(), QList<LineImagePtr>{text});
        QCOMPARE(canvas->previousStateCount(), 3);
        // Nothing shown is selected any more: the toolbar goes, and stays gone when undo brings the item
        // back unselected, where it stood, unturned.
        QTRY_VERIFY(!screen.isShown("transformToolbar"));
        screen.tap("canvasUndoButton");
        QCOMPARE(canvas->lineImages().size(), 2);
        QVERIFY(!screen.isShown("transformToolbar"));
        screen.tap(itemShowing(screen.view().rootObject(), canvas->lineImageViewModels().first()));
        QTRY_VERIFY(screen.isShown("transformToolbar"));
        screen.tap("Done");
        stroke = canvas->lineImages()[0];
        text = canvas->lineImages()[1];
        QCOMPARE(stroke->offset(),
                 QSizeF(frameSize.width() - size.width(), frameSize.height() - size.height()));
        QCOMPARE(stroke->rotationAngle().degrees(), 0.0);
        const QSizeF centred = text->offset();
        // Brought back on the move page, the items should take gestures at once.
        QVERIFY(text->isTransformEnabled());

        // The text moved with one finger, then pinched and turned with two.
        QQuickItem* textItem = itemShowing(screen.view().rootObject(), canvas->lineImageViewModels()[1]);
        QVERIFY(textItem);
        const QPointF middle(textItem->width() / 2, textItem->height() / 2);
        screen.touchDrag(textItem, middle, middle + QPointF(40, 30));
        QTRY_VERIFY(qAbs(text->offset().width() - centred.width() - 40) <= 2);
        QVERIFY(qAbs(text->offset().height() - centred.height() - 30) <= 2);

        screen.twoFingerGesture(textItem, middle, 40, 0, 3.0);
        QTRY_VERIFY2(text->magnification() > 1.2, qPrintable(QString::number(text->magnification())));
        const qreal pinched = text->magnification();
        // The turn counts from where the fingers passed the drag threshold, so a little less than 90°.
        screen.twoFingerGesture(textItem, middle, textItem->width() * 0.8, 90, 1.0);
        QTRY_VERIFY2(text->rotationAngle().degrees() > 45 && text->rotationAngle().degrees() <= 90.5,
                     qPrintable(QString::number(text->rotationAngle().degrees())));
        QVERIFY(qAbs(text->magnification() - pinched) < 0.2 * pinched);

        const qreal toImage = 1200.0 / frameSize.width();
        const QPointF strokeMiddle = stroke->getCenterPoint() * toImage;
        const QPointF textCentre = text->getCenterPoint() * toImage;

        screen.tap("acceptButton");
        QTRY_COMPARE(screen.editor()->pageName(), QStringLiteral("base"));
        screen.tap("continueButton");
        QTRY_COMPARE(screen.completionCount(), 1);

        const QImage saved(m_output);
        QCOMPARE(saved.size(), QSize(1200, 900));
        const QImage original(m_photo);
        // The stroke's middle is white in the saved file.
        const QRect strokeArea(strokeMiddle.toPoint() - QPoint(6, 6), QSize(13, 13));
        QVERIFY(whitePixels(saved, strokeArea) > 10 + whitePixels(original, strokeArea));
        // So is the text, where it was moved to.
        const QRect textArea(textCentre.toPoint() - QPoint(60, 20), QSize(120, 40));
        QVERIFY(whitePixels(saved, textArea) > 100 + whitePixels(original, textArea));
        // Far from both, the photo is untouched.
        QCOMPARE(saved.copy(0, 0, 1200, 100).convertToFormat(QImage::Format_RGB32),
                 original.copy(0, 0, 1200, 100).convertToFormat(QImage::Format_RGB32));
    }
};

QTEST_MAIN(tst_CanvasView)
#include "tst_CanvasView.moc"
