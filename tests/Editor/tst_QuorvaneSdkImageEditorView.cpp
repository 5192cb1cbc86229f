#include "Editor/Common/ImagePreview.h"
#include "Editor/QuorvaneSdkImageEditorPresenter.h"
#include "Editor/QuorvaneSdkImageEditorPreset.h"
#include "Editor/QuorvaneSdkImageEditorResult.h"
#include "EditorScreen.h"
#include "LogRecorder.h"
#include "TestImages.h"

#include <QPointer>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>
#include <QScreen>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTest>
#include <QtQml/QQmlExtensionPlugin>

Q_IMPORT_QML_PLUGIN(Quorvane_SdkImagePlugin)

class tst_QuorvaneSdkImageEditorView : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

    void unloadableImage_showsTheAlert()
    {
        EditorScreen screen(
            QuorvaneSdkImageEditorPreset(QUrl::fromLocalFile(QStringLiteral("/no/such/photo.jpg"))));
        QVERIFY(QTest::qWaitForWindowExposed(&screen.view()));

        QVERIFY(screen.find("alert"));
        QVERIFY(screen.find("alert")->isVisible());
        QCOMPARE(screen.text("alertTitle"), QStringLiteral("Sorry"));
        QCOMPARE(screen.text("alertMessage"), QStringLiteral("Could not preview input image."));
        QCOMPARE(screen.text("acceptLabel"), QStringLiteral("Accept"));
        QVERIFY(!screen.find("currentImage"));
        const QImage grab = screen.view().grabWindow();
        QCOMPARE(grab.pixelColor(5, 5), QColor(Qt::black));
    }

    void accept_completesOnceWithAnEmptyResult()
    {
        EditorScreen screen(QuorvaneSdkImageEditorPreset(QImage(), QuorvaneSdkImageOutputFormat::png(),
                                                         std::nullopt, std::nullopt));
        QVERIFY(QTest::qWaitForWindowExposed(&screen.view()));

        screen.tap(screen.find("acceptButton"));

        QCOMPARE(screen.completionCount(), 1);
        const QuorvaneSdkImageEditorResult result = screen.completion(0);
        QVERIFY(!result.editedImage());
        QVERIFY(!result.editedImageURL());
    }

    void returnKey_acceptsTheAlert()
    {
        EditorScreen screen(QuorvaneSdkImageEditorPreset(QImage(), QuorvaneSdkImageOutputFormat::png(),
                                                         std::nullopt, std::nullopt));
        QVERIFY(QTest::qWaitForWindowExposed(&screen.view()));

        screen.key(Qt::Key_Return);

        QCOMPARE(screen.completionCount(), 1);
        QVERIFY(!screen.completion(0).editedImage());
    }

    void tapOutsideTheAlert_doesNothing()
    {
        EditorScreen screen(QuorvaneSdkImageEditorPreset(QImage(), QuorvaneSdkImageOutputFormat::png(),
                                                         std::nullopt, std::nullopt));
        QVERIFY(QTest::qWaitForWindowExposed(&screen.view()));
        QTest::mouseClick(&screen.view(), Qt::LeftButton, {}, QPoint(20, 20));
        QCOMPARE(screen.completionCount(), 0);
        QVERIFY(screen.find("alert")->isVisible());
    }

    void image_isShownFittedWithoutUploadingMorePixelsThanDisplayed_data()
    {
        QTest::addColumn<QSize>("windowSize");
        QTest::newRow("phone portrait") << QSize(390, 844);
        QTest::newRow("tablet portrait") << QSize(1024, 1366);
    }

    void image_isShownFittedWithoutUploadingMorePixelsThanDisplayed()
    {
        QFETCH(QSize, windowSize);
        LogRecorder log;
        EditorScreen screen(QuorvaneSdkImageEditorPreset(QUrl::fromLocalFile(TestImages::photoPath())),
                            windowSize);
        QVERIFY(QTest::qWaitForWindowExposed(&screen.view()));

        auto* preview = qobject_cast<ImagePreview*>(screen.find("currentImage"));
        QVERIFY(preview);
        QVERIFY(!screen.find("alert"));
        QTRY_VERIFY(!preview->previewPixelSize().isEmpty());
        const QRectF painted = preview->paintedRect();
        // Fitted to the width between 8-point margins, aspect ratio kept.
        QCOMPARE(painted.width(), qreal(windowSize.width() - 16));
        QCOMPARE(painted.height(), (windowSize.width() - 16) * 3168.0 / 4224.0);
        QVERIFY(preview->previewPixelSize().width() <= windowSize.width());
        QCOMPARE(log.lines(),
                 QStringList{QStringLiteral("QuorvaneSdkImageEditorViewModel: initialize image editor")});
    }

    void presenter_coversTheScreen_closesItsWindowBeforeReportingOnce()
    {
        int calls = 0;
        bool windowVisibleAtCompletion = true;
        QPointer<QQuickView> view;
        view = presentQuorvaneSdkImageEditorView(
            QuorvaneSdkImageEditorPreset(QUrl::fromLocalFile(QStringLiteral("/no/such/photo.jpg"))),
            [&](const QuorvaneSdkImageEditorResult& result) {
                ++calls;
                windowVisibleAtCompletion = view && view->isVisible();
                QVERIFY(!result.hasImage());
            });
        QVERIFY(view);
        QVERIFY(QTest::qWaitForWindowExposed(view));
        // Also where nothing enlarges a full-screen window for it (an X server without a window manager).
        QTRY_COMPARE(view->geometry(), view->screen()->geometry());
        auto* accept = view->rootObject()->findChild<QQuickItem*>(QStringLiteral("acceptButton"));
        QVERIFY(accept);

        const QPointF centre = accept->mapToScene(QPointF(accept->width() / 2, accept->height() / 2));
        QTest::mouseClick(view, Qt::LeftButton, {}, centre.toPoint());

        QCOMPARE(calls, 1);
        QVERIFY(!windowVisibleAtCompletion);
        QTRY_VERIFY(!view);
    }
};

QTEST_MAIN(tst_QuorvaneSdkImageEditorView)
#include "tst_QuorvaneSdkImageEditorView.moc"
