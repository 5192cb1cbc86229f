#include "Editor/Canvas/CanvasViewModel.h"
#include "Editor/Common/ImagePreview.h"
#include "Editor/Cropper/CropperViewModel.h"
#include "Editor/Helpers/BackgroundWork.h"
#include "Editor/QuorvaneSdkImageEditorViewModel.h"
#include "EditorScreen.h"
#include "TestImages.h"

#include <QFile>
#include <QScopeGuard>
#include <QSemaphore>
#include <QSet>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QTransform>
#include <QtQuickTest/quicktest.h>

using namespace TestImages;

namespace {

// Mean difference per channel of two pictures reduced to 24 × 24 pixels: near 0 for the same picture
// whatever a pixel of rounding at its edges, large for a turned or mirrored one.
int meanDifference(const QImage& a, const QImage& b)
{
    const QImage small[2] = {a.scaled(24, 24, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                                 .convertToFormat(QImage::Format_RGB32),
                             b.scaled(24, 24, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                                 .convertToFormat(QImage::Format_RGB32)};
    qint64 sum = 0;
    for (int y = 0; y < 24; ++y) {
        for (int x = 0; x < 24; ++x) {
            const QRgb p = small[0].pixel(x, y);
            const QRgb q = small[1].pixel(x, y);
            sum += qAbs(qRed(p) - qRed(q)) + qAbs(qGreen(p) - qGreen(q)) + qAbs(qBlue(p) - qBlue(q));
        }
    }
    return int(sum / (24 * 24 * 3));
}

} // namespace

class tst_ImageEditorView : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;
    QString m_photo;
    QString m_output;

    QuorvaneSdkImageEditorPreset preset() const
    {
        return QuorvaneSdkImageEditorPreset(QUrl::fromLocalFile(m_photo), QuorvaneSdkImageOutputFormat::png(),
                                            QUrl::fromLocalFile(m_output), std::nullopt);
    }

    static void openCrop(EditorScreen& screen)
    {
        screen.tap("cropTab");
        QVERIFY(screen.waitForToolPage());
        QVERIFY(screen.isShown("cropFrame"));
    }

    static void openDraw(EditorScreen& screen)
    {
        screen.tap("drawTab");
        QVERIFY(screen.waitForToolPage());
        QTRY_VERIFY(screen.editor()->canvas() && screen.editor()->canvas()->isCropperSetup());
    }

private slots:
    void initTestCase()
    {
        QStandardPaths::setTestModeEnabled(true);
        // A real photograph, kept small enough for a quick test but cut and turned at full resolution.
        m_photo = m_dir.filePath(QStringLiteral("photo.png"));
        QVERIFY(writeFile(m_photo, encode(QImage(photoPath()).copy(1000, 800, 1200, 900), "png")));
        m_output = m_dir.filePath(QStringLiteral("result.png"));
    }

    void init() { QFile::remove(m_output); }

    void wholeSession_everyPageTwice_savesTheVersionLeftCurrent_data()
    {
        QTest::addColumn<QSize>("windowSize");
        QTest::newRow("phone portrait") << QSize(390, 844);
        QTest::newRow("phone landscape") << QSize(844, 390);
        QTest::newRow("tablet portrait") << QSize(1024, 1366);
        QTest::newRow("tablet landscape") << QSize(1366, 1024);
    }

    // Every page more than once in one editor, by touch, as a person goes through it, on every device
    // shape. Freed memory is poisoned by the test's environment, so a page that outlives its closing shows
    // up here.
    void wholeSession_everyPageTwice_savesTheVersionLeftCurrent()
    {
        QFETCH(QSize, windowSize);
        EditorScreen screen(preset(), windowSize);
        ImageEditorViewModel* editor = screen.editor();
        // The base page offers crop and draw, within a finger's reach; the hidden tabs keep their places.
        for (const char* name : {"closeButton", "cropTab", "drawTab"}) {
            const QQuickItem* item = screen.find(name);
            QVERIFY2(screen.isShown(name) && item->width() >= 44 && item->height() >= 44, name);
        }
        for (const char* name : {"filtersTab", "adjustTab", "undoButton", "continueButton"})
            QVERIFY2(!screen.isShown(name), name);
        const auto xOf = [&](const char* name) { return screen.find(name)->x(); };
        QVERIFY(xOf("cropTab") < xOf("drawTab") && xOf("drawTab") < xOf("filtersTab") &&
                xOf("filtersTab") < xOf("adjustTab"));
        // Where a person sees the picture on each page: it must not jump when the page changes.
        const auto shownAt = [&](const char* name) {
            const QQuickItem* item = screen.find(name);
            QRectF rect(QPointF(0, 0), item->size());
            if (const auto* preview = qobject_cast<const ImagePreview*>(item))
                rect = preview->paintedRect();
            return item->mapRectToScene(rect);
        };
        QTRY_VERIFY(!shownAt("currentImage").isEmpty());
        const QRectF onBase = shownAt("currentImage");
        const auto samePlace = [&](const QRectF& shown) {
            return qAbs(shown.x() - onBase.x()) < 1 && qAbs(shown.y() - onBase.y()) < 1 &&
                   qAbs(shown.width() - onBase.width()) < 1 && qAbs(shown.height() - onBase.height()) < 1;
        };

        openCrop(screen);
        QTRY_VERIFY(samePlace(shownAt("cropFrame")));
        QVERIFY(!screen.isShown("cropUndoButton"));
        QCOMPARE(screen.find("acceptButton")->property("isDisabled").toBool(), true);
        // Marks at the corners and the middle of each edge show where the frame can be taken.
        for (const char* mark : {"cropCorner0", "cropCorner1", "cropCorner2", "cropCorner3",
                                 "cropEdgeHandle0", "cropEdgeHandle1", "cropEdgeHandle2", "cropEdgeHandle3"})
            QVERIFY2(screen.isShown(mark) && screen.find(mark)->width() >= 4, mark);
        screen.tap("rotateLeftButton");
        QVERIFY(screen.isShown("cropUndoButton"));
        screen.tap("cancelButton");
        QTRY_COMPARE(editor->pageName(), QStringLiteral("base"));
        QCOMPARE(editor->previousImageVersionCount(), 0);

        openDraw(screen);
        QTRY_VERIFY(samePlace(shownAt("canvasFrame")));
        // Drawn with a mouse, as on a desktop.
        screen.drag(screen.find("drawingSurface"), QPointF(40, 40), QPointF(160, 120));
        QCOMPARE(editor->canvas()->lineImages().size(), 1);
        screen.tap("cancelButton");
        QTRY_COMPARE(editor->pageName(), QStringLiteral("base"));
        QCOMPARE(editor->previousImageVersionCount(), 0);

        openDraw(screen);
        screen.touchDrag(screen.find("drawingSurface"), QPointF(40, 40), QPointF(160, 120));
        QCOMPARE(editor->canvas()->lineImages().size(), 1);
        screen.tap("acceptButton");
        QTRY_COMPARE(editor->pageName(), QStringLiteral("base"));
        QCOMPARE(editor->previousImageVersionCount(), 1);
        QVERIFY(screen.isShown("undoButton") && screen.isShown("continueButton"));
        const QImage drawn = editor->image();

        // A finger pulls the bottom-right corner in; the cut is turned a quarter clockwise and mirrored.
        openCrop(screen);
        const QQuickItem* frame = screen.find("cropFrame");
        const QQuickItem* border = screen.find("cropBorder");
        screen.touchDrag(frame, QPointF(frame->width() - 4, frame->height() - 4),
                         QPointF(frame->width() * 0.7, frame->height() * 0.75));
        // What the border shows, in the picture's pixels.
        const qreal toPixels = drawn.width() / frame->width();
        const QRect shown = QRectF(border->x() * toPixels, border->y() * toPixels, border->width() * toPixels,
                                   border->height() * toPixels)
                                .toRect();
        QVERIFY2(shown.width() < 1000 && shown.height() < 800,
                 qPrintable(QStringLiteral("%1×%2").arg(shown.width()).arg(shown.height())));
        screen.tap("rotateRightButton");
        screen.tap("flipHorizontallyButton");
        screen.tap("acceptButton");
        QTRY_COMPARE(editor->pageName(), QStringLiteral("base"));
        QCOMPARE(editor->previousImageVersionCount(), 2);
        const QImage cropped = editor->image();
        // The cut the border showed, turned and mirrored as seen: made by plain means.
        const QImage cut = drawn.copy(shown);
        const QImage expected = cut.transformed(QTransform().rotate(90)).mirrored(true, false);
        QVERIFY(qAbs(cropped.width() - expected.width()) <= 1);
        QVERIFY(qAbs(cropped.height() - expected.height()) <= 1);
        const int difference = meanDifference(cropped, expected);
        QVERIFY2(difference < 6, qPrintable(QString::number(difference)));
        // The comparison tells the directions apart: unmirrored or turned the other way is far off.
        QVERIFY(meanDifference(cropped, cut.transformed(QTransform().rotate(90))) > 3 * difference + 10);
        QVERIFY(meanDifference(cropped, cut.transformed(QTransform().rotate(-90))) > 3 * difference + 10);

        // The text entry keeps its buttons clear; large bold capitals wrap within the picture, in the preview
        // as on the canvas, with not a letter cut.
        openDraw(screen);
        screen.tap("textButton");
        QTRY_VERIFY(screen.find("textPreview"));
        QQuickTest::qWaitForPolish(&screen.view());
        const auto shownRect = [&](const char* name) {
            const QQuickItem* item = screen.find(name);
            return item->mapRectToScene(QRectF(QPointF(0, 0), item->size()));
        };
        for (const char* button : {"textCancelButton", "textConfirmButton"}) {
            QVERIFY2(QRectF(QPointF(0, 0), screen.view().size()).contains(shownRect(button)), button);
            for (const char* other : {"textField", "italicToggle", "boldToggle", "uppercaseToggle",
                                      "textSizeSlider", "textPreview"})
                QVERIFY2(!shownRect(button).intersects(shownRect(other)), other);
        }
        for (const char letter : QByteArrayLiteral("Hello dragonfly on the hazel by the pond"))
            QTest::keyClick(&screen.view(), letter);
        screen.tap("boldToggle");
        screen.tap("uppercaseToggle");
        const QQuickItem* slider = screen.find("textSizeSlider");
        screen.tap(slider, QPointF(slider->width() * 0.8, slider->height() / 2));
        QTRY_VERIFY(slider->property("value").toReal() > 35);
        const QImage previewed = screen.find("textPreview")->property("image").value<QImage>();
        const QSizeF size = previewed.deviceIndependentSize();
        QVERIFY2(size.width() <= editor->canvas()->imageFrameSize().width(),
                 qPrintable(QString::number(size.width())));
        // Two lines at least: it wrapped rather than ran off the picture.
        QVERIFY(size.height() > 2 * slider->property("value").toReal());
        screen.tap("textConfirmButton");
        QTRY_COMPARE(editor->canvas()->lineImages().size(), 1);
        QCOMPARE(editor->canvas()->lineImages()[0]->image(), previewed);
        screen.tap("acceptButton");
        QTRY_COMPARE(editor->pageName(), QStringLiteral("base"));
        QCOMPARE(editor->previousImageVersionCount(), 3);
        QVERIFY(editor->image() != cropped);

        screen.tap("undoButton");
        QCOMPARE(editor->previousImageVersionCount(), 2);
        // CONTINUE answers the host once, with the picture and its file; written off the GUI thread,
        // meanwhile the button is held down and the editor takes nothing more.
        screen.tap("continueButton");
        QVERIFY(editor->isWorking() && !screen.find("cropTab")->isEnabled());
        QTRY_COMPARE(screen.completionCount(), 1);
        QCOMPARE(screen.completion(0).editedImageURL(), std::optional<QUrl>(QUrl::fromLocalFile(m_output)));
        QCOMPARE(QImage(m_output).convertToFormat(QImage::Format_ARGB32),
                 screen.completion(0).editedImage()->convertToFormat(QImage::Format_ARGB32));
        QCOMPARE(QImage(m_output).convertToFormat(QImage::Format_ARGB32),
                 cropped.convertToFormat(QImage::Format_ARGB32));
    }

    // A slip of the finger on close after an edit loses nothing: the editor asks, and "Keep editing" (or
    // Escape) leaves everything as it was.
    void close_withEditsAsksFirst()
    {
        EditorScreen screen(preset());
        openDraw(screen);
        screen.touchDrag(screen.find("drawingSurface"), QPointF(40, 40), QPointF(160, 120));
        screen.tap("acceptButton");
        QTRY_VERIFY(screen.isShown("continueButton"));

        screen.tap("closeButton");
        QVERIFY(screen.isShown("discardAlert"));
        QCOMPARE(screen.text("discardTitle"), QStringLiteral("Discard your edits?"));
        // The editor underneath takes no touch while the question is open.
        screen.tap("undoButton");
        screen.tap("keepEditingButton");
        QTRY_VERIFY(!screen.find("discardAlert"));
        screen.tap("closeButton");
        QVERIFY(screen.find("discardAlert"));
        screen.key(Qt::Key_Escape);
        QTRY_VERIFY(!screen.find("discardAlert"));
        QCOMPARE(screen.completionCount(), 0);
        QCOMPARE(screen.editor()->previousImageVersionCount(), 1);
        QCOMPARE(screen.editor()->pageName(), QStringLiteral("base"));

        screen.tap("closeButton");
        screen.tap("discardButton");
        QCOMPARE(screen.completionCount(), 1);
        QVERIFY(!screen.completion(0).editedImage());
        QVERIFY(!screen.completion(0).editedImageURL());
        QVERIFY(!QFile::exists(m_output));
        // Once the editor has answered, the host may keep it on screen for a moment: nothing in it acts.
        for (const char* control : {"cropTab", "drawTab", "closeButton"}) {
            QVERIFY2(!screen.find(control)->isEnabled(), control);
            screen.tap(control);
        }
        QCOMPARE(screen.editor()->pageName(), QStringLiteral("base"));
        QCOMPARE(screen.completionCount(), 1);
    }

    // While a crop is made off the GUI thread, its button stays pressed, a spinner shows once it takes long,
    // and the page takes no other command. The editor's worker is held busy so that the crop waits for the
    // test.
    void crop_holdsThePageUntilTheResultIsBack()
    {
        EditorScreen screen(preset());
        openCrop(screen);
        screen.tap("rotateRightButton");
        screen.key(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(screen.editor()->cropper()->rotationDegrees(), 0.0);
        screen.tap("rotateRightButton");
        QSemaphore hold;
        backgroundWorkPool().start([&hold] { hold.acquire(); });
        const auto release = qScopeGuard([&] {
            hold.release();
            backgroundWorkPool().waitForDone();
        });
        screen.tap("acceptButton");
        QVERIFY(screen.editor()->cropper()->isWorking());
        QCOMPARE(screen.find("acceptButton")->opacity(), 0.8);
        QVERIFY(!screen.isShown("cropWorkIndicator"));
        QTRY_VERIFY(screen.isShown("cropWorkIndicator"));
        screen.tap("cancelButton");
        screen.tap("rotateLeftButton");
        screen.key(Qt::Key_Z, Qt::ControlModifier);
        screen.key(Qt::Key_Escape);
        QCOMPARE(screen.editor()->pageName(), QStringLiteral("crop"));

        hold.release();
        QTRY_COMPARE(screen.editor()->pageName(), QStringLiteral("base"));
        QCOMPARE(screen.editor()->image().size(), QSize(900, 1200));
        screen.key(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(screen.editor()->image().size(), QSize(1200, 900));
        // On the base page Escape does not throw the session away; with every edit undone, Close leaves at
        // once, with nothing to ask.
        screen.key(Qt::Key_Escape);
        QCOMPARE(screen.completionCount(), 0);
        screen.tap("closeButton");
        QVERIFY(!screen.find("discardAlert"));
        QCOMPARE(screen.completionCount(), 1);
        QVERIFY(!screen.completion(0).editedImage());
    }

    // Magnified, a tiny picture shows its pixels as sharp squares rather than a blur.
    void tinyPicture_showsSharpPixels()
    {
        QImage picture(3, 3, QImage::Format_RGB32);
        for (int y = 0; y < 3; ++y)
            for (int x = 0; x < 3; ++x)
                picture.setPixel(x, y, (x + y) % 2 ? qRgb(255, 255, 255) : qRgb(0, 0, 0));
        EditorScreen screen(QuorvaneSdkImageEditorPreset(picture, QuorvaneSdkImageOutputFormat::png(),
                                                         std::nullopt, std::nullopt));
        const auto* preview = qobject_cast<ImagePreview*>(screen.find("currentImage"));
        QTRY_VERIFY(!preview->paintedRect().isEmpty());
        const QRect shown = preview->mapRectToScene(preview->paintedRect()).toAlignedRect();
        const QImage grab = screen.view().grabWindow();
        // Three points in from each corner of every pixel's square, where a blur would blend its neighbours.
        for (int cell = 0; cell < 9; ++cell) {
            const QRect square(shown.x() + cell % 3 * shown.width() / 3,
                               shown.y() + cell / 3 * shown.height() / 3, shown.width() / 3,
                               shown.height() / 3);
            for (const QPoint p :
                 {square.topLeft() + QPoint(3, 3), square.topRight() + QPoint(-3, 3),
                  square.bottomLeft() + QPoint(3, -3), square.bottomRight() + QPoint(-3, -3)}) {
                const int grey = qGray(grab.pixel(p));
                QVERIFY2(grey <= 8 || grey >= 247, qPrintable(QString::number(grey)));
            }
        }
    }

    // A sliver of a picture is seen on every page and can be cut along its length; transparent pixels show
    // over a checkerboard rather than black on the black page.
    void unusualPictures_areSeenOnEveryPage_data()
    {
        QTest::addColumn<QSize>("pictureSize");
        QTest::addColumn<QColor>("colour");
        QTest::newRow("4000 × 1") << QSize(4000, 1) << QColor(Qt::red);
        QTest::newRow("1 × 4000") << QSize(1, 4000) << QColor(Qt::red);
        QTest::newRow("transparent") << QSize(300, 200) << QColor(Qt::transparent);
    }

    void unusualPictures_areSeenOnEveryPage()
    {
        QFETCH(QSize, pictureSize);
        QFETCH(QColor, colour);
        QImage picture(pictureSize, QImage::Format_ARGB32);
        picture.fill(colour);
        const bool sliver = pictureSize.width() == 1 || pictureSize.height() == 1;
        // What a person sees where the picture lies: red for the sliver, two greys for transparency.
        const auto seen = [&](EditorScreen& screen, const char* where) {
            const QQuickItem* item = screen.find(where);
            const QRect area = item->mapRectToScene(QRectF(QPointF(0, 0), item->size()))
                                   .toAlignedRect()
                                   .adjusted(-2, -2, 2, 2);
            const QImage grab = screen.view().grabWindow();
            QSet<QRgb> greys;
            int red = 0;
            for (int y = area.top(); y <= area.bottom(); ++y) {
                for (int x = area.left(); x <= area.right(); ++x) {
                    const QRgb p = grab.pixel(x, y);
                    red += qRed(p) > 200 && qGreen(p) < 60 && qBlue(p) < 60;
                    if (qRed(p) == qGreen(p) && qGreen(p) == qBlue(p) && qRed(p) > 0x80 && qRed(p) < 0xe0)
                        greys.insert(p);
                }
            }
            return sliver ? red > 0 : greys.size() >= 2;
        };
        EditorScreen screen(QuorvaneSdkImageEditorPreset(picture, QuorvaneSdkImageOutputFormat::png(),
                                                         QUrl::fromLocalFile(m_output), std::nullopt));
        QTRY_VERIFY(seen(screen, "currentImage"));

        openCrop(screen);
        QTRY_VERIFY(seen(screen, "cropFrame"));
        const QQuickItem* frame = screen.find("cropFrame");
        const QSizeF shown = frame->size();
        const bool wide = pictureSize.width() >= pictureSize.height();
        // The finger takes the leading (or top) end of the sliver and pulls it a quarter along.
        const QPointF across(shown.width() / 2 + 6, shown.height() / 2 + 6);
        screen.touchDrag(frame, wide ? QPointF(2, across.y()) : QPointF(across.x(), 2),
                         wide ? QPointF(shown.width() / 4, across.y())
                              : QPointF(across.x(), shown.height() / 4));
        screen.tap("acceptButton");
        QTRY_COMPARE(screen.editor()->pageName(), QStringLiteral("base"));
        const QSize cut =
            wide ? screen.editor()->image().size() : screen.editor()->image().size().transposed();
        const QSize whole = wide ? pictureSize : pictureSize.transposed();
        QVERIFY2(cut.width() > whole.width() * 0.65 && cut.width() < whole.width() * 0.8,
                 qPrintable(QString::number(cut.width())));
        QCOMPARE(cut.height(), whole.height());

        openDraw(screen);
        QTRY_VERIFY(seen(screen, "canvasFrame"));
        screen.tap("cancelButton");
        QTRY_COMPARE(screen.editor()->pageName(), QStringLiteral("base"));
        QTRY_VERIFY(seen(screen, "currentImage"));
    }
};

QTEST_MAIN(tst_ImageEditorView)
#include "tst_ImageEditorView.moc"
