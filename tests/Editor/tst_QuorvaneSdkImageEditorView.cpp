#include "Editor/Common/ImagePreview.h"
#include "Editor/QuorvaneSdkImageEditorPresenter.h"
#include "Editor/QuorvaneSdkImageEditorPreset.h"
#include "Editor/QuorvaneSdkImageEditorResult.h"
#include "EditorScreen.h"
#include "TestImages.h"

#include <QPointer>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>
#include <QQuickWindow>
#include <QScreen>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTest>
#include <memory>

class tst_QuorvaneSdkImageEditorView : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

    void errorScreen_data()
    {
        QTest::addColumn<QString>("answer");
        QTest::newRow("tap Accept") << "tap";
        // Return is the alert's own key, with no Tab first; a second one, while the host takes the screen
        // away, must not end the session again.
        QTest::newRow("Return twice") << "return";
    }

    // A photo that cannot be loaded shows the alert on black; only its button answers, once, with nothing.
    void errorScreen()
    {
        QFETCH(QString, answer);
        EditorScreen screen(
            QuorvaneSdkImageEditorPreset(QUrl::fromLocalFile(QStringLiteral("/no/such/photo.jpg"))));
        QVERIFY(QTest::qWaitForWindowExposed(&screen.view()));
        QVERIFY(screen.isShown("alert"));
        QCOMPARE(screen.text("alertTitle"), QStringLiteral("Sorry"));
        QCOMPARE(screen.text("alertMessage"), QStringLiteral("Could not preview input image."));
        QCOMPARE(screen.text("acceptLabel"), QStringLiteral("Accept"));
        QVERIFY(!screen.find("currentImage"));
        QCOMPARE(screen.view().grabWindow().pixelColor(5, 5), QColor(Qt::black));
        QTest::mouseClick(&screen.view(), Qt::LeftButton, {}, QPoint(20, 20));
        QCOMPARE(screen.completionCount(), 0);

        if (answer == u"tap") {
            screen.tap("acceptButton");
        } else {
            screen.key(Qt::Key_Return);
            screen.key(Qt::Key_Return);
        }

        QCOMPARE(screen.completionCount(), 1);
        QVERIFY(!screen.completion(0).editedImage());
        QVERIFY(!screen.completion(0).editedImageURL());
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
    }

    void presenter_reportsOnlyAfterDismissal_dropsTheResultOfAVanishedHost_data()
    {
        QTest::addColumn<bool>("closeWindow");
        QTest::addColumn<int>("hostGoes");
        QTest::addColumn<int>("calls");
        enum { never, beforeTheUserLeaves, whileTheEditorSlidesAway };
        QTest::newRow("Accept") << false << int(never) << 1;
        // The window system's close button is a way out without an image.
        QTest::newRow("window closed") << true << int(never) << 1;
        QTest::newRow("host destroyed first") << false << int(beforeTheUserLeaves) << 0;
        QTest::newRow("host destroyed while the editor slides away")
            << false << int(whileTheEditorSlidesAway) << 0;
    }

    void presenter_reportsOnlyAfterDismissal_dropsTheResultOfAVanishedHost()
    {
        QFETCH(bool, closeWindow);
        QFETCH(int, hostGoes);
        QFETCH(int, calls);
        auto host = std::make_unique<QWindow>();
        host->resize(320, 480);
        host->show();
        QVERIFY(QTest::qWaitForWindowExposed(host.get()));
        int called = 0;
        bool editorShownAtCompletion = false;
        QPointer<QQuickWindow> editor;
        editor = presentQuorvaneSdkImageEditorView(
            host.get(),
            QuorvaneSdkImageEditorPreset(QUrl::fromLocalFile(QStringLiteral("/no/such/photo.jpg"))),
            [&](const QuorvaneSdkImageEditorResult& result) {
                ++called;
                editorShownAtCompletion = editor && editor->isVisible();
                QVERIFY(!result.hasImage());
            });
        QVERIFY(editor);
        QCOMPARE(editor->transientParent(), host.get());
        QVERIFY(QTest::qWaitForWindowExposed(editor));
        // Also where nothing enlarges a full-screen window for it (an X server without a window manager).
        QTRY_COMPARE(editor->geometry(), editor->screen()->geometry());
        auto* screen = qobject_cast<QQuickView*>(editor.data())->rootObject();
        // The screen follows its window, as when a phone turns.
        editor->showNormal();
        editor->resize(480, 320);
        QTRY_COMPARE(screen->size(), QSizeF(480, 320));

        if (hostGoes == 1)
            host.reset();
        if (closeWindow) {
            editor->close();
        } else {
            auto* accept = screen->findChild<QQuickItem*>(QStringLiteral("acceptButton"));
            QVERIFY(accept);
            QTest::mouseClick(
                editor, Qt::LeftButton, {},
                accept->mapToScene(QPointF(accept->width() / 2, accept->height() / 2)).toPoint());
        }
        QCOMPARE(called, 0);
        if (hostGoes == 2)
            host.reset();

        QTRY_VERIFY(!editor);
        QCOMPARE(called, calls);
        QVERIFY(!editorShownAtCompletion);
    }

    // A host in QML: the flag is the host's, every opening is a new session, the cover spans the window
    // wherever the modifier is declared.
    void modifier_coversTheWindowWhilePresented_newSessionEachTime_neverResetsTheFlag()
    {
        QQuickView view;
        QQmlComponent component(view.engine());
        // moc cannot read raw string literals.
        component.setData("import QtQuick\n"
                          "import Quorvane.SdkImage\n"
                          "Item {\n"
                          "  property bool editing: false\n"
                          "  property int completions: 0\n"
                          "  width: 390; height: 844\n"
                          "  Item { objectName: \"hostControl\"; activeFocusOnTab: true; focus: true }\n"
                          "  Item {\n"
                          "    x: 40; y: 60; width: 10; height: 10\n"
                          "    PresentVideoEditorModifier {\n"
                          "      objectName: \"modifier\"\n"
                          "      isPresented: editing\n"
                          "      preset: QuorvaneSdkImage.presetFromImageUrl(\"file:///no/such/photo.jpg\")\n"
                          "      onCompletion: (result) => { if (!result.hasImage) ++completions }\n"
                          "    }\n"
                          "  }\n"
                          "}\n",
                          QUrl());
        QObject* root = component.create();
        QVERIFY2(root, qPrintable(component.errorString()));
        view.setContent(QUrl(), &component, root);
        view.show();
        // Keys go where the focus is only in the active window.
        view.requestActivate();
        QVERIFY(QTest::qWaitForWindowActive(&view));
        auto* modifier = root->findChild<QObject*>(QStringLiteral("modifier"));
        QVERIFY(modifier);
        const auto editorShown = [&] { return modifier->property("editor").value<QQuickItem*>(); };
        QVERIFY(!editorShown());

        QQuickItem* hostControl = root->findChild<QQuickItem*>(QStringLiteral("hostControl"));
        for (int opening = 1; opening <= 2; ++opening) {
            root->setProperty("editing", true);
            QQuickItem* editor = editorShown();
            QVERIFY(editor);
            QTRY_COMPARE(editor->mapRectToScene(editor->boundingRect()), QRectF(0, 0, 390, 844));
            // The host's controls under the cover are out of the keyboard's reach.
            for (int presses = 0; presses < 3; ++presses) {
                QTest::keyClick(&view, Qt::Key_Tab);
                QVERIFY(!hostControl->hasActiveFocus());
            }
            // A second Return while the host has not closed the cover yet ends nothing more. The second
            // opening answers too: it is a new session, not the one that already ended.
            QTest::keyClick(&view, Qt::Key_Return);
            QTest::keyClick(&view, Qt::Key_Return);
            QCOMPARE(root->property("completions").toInt(), opening);
            QVERIFY(modifier->property("isPresented").toBool());
            QVERIFY(editorShown());

            root->setProperty("editing", false);
            QTRY_VERIFY(!editorShown());
        }
    }
};

QTEST_MAIN(tst_QuorvaneSdkImageEditorView)
#include "tst_QuorvaneSdkImageEditorView.moc"
