#include "Editor/Common/ImagePreview.h"
#include "Editor/QuorvaneSdkImageEditorPresenter.h"
#include "Editor/QuorvaneSdkImageEditorPreset.h"
#include "Editor/QuorvaneSdkImageEditorResult.h"
#include "LogRecorder.h"
#include "TestImages.h"

#include <QPointer>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTest>
#include <QtQml/QQmlExtensionPlugin>

Q_IMPORT_QML_PLUGIN(Quorvane_SdkImagePlugin)

namespace {

// The public screen in a real window, as a host would show it.
struct Screen
{
    explicit Screen(const QuorvaneSdkImageEditorPreset& preset, QSize size = QSize(390, 844))
    {
        view.engine()->addImportPath(QStringLiteral("qrc:/qt/qml"));
        view.setInitialProperties({{QStringLiteral("preset"), QVariant::fromValue(preset)}});
        view.setResizeMode(QQuickView::SizeRootObjectToView);
        view.resize(size);
        view.setSource(
            QUrl(QStringLiteral("qrc:/qt/qml/Quorvane/SdkImage/Editor/QuorvaneSdkImageEditorView.qml")));
        view.show();
        const QMetaObject* meta = view.rootObject() ? view.rootObject()->metaObject() : nullptr;
        if (meta)
            completions = std::make_unique<QSignalSpy>(
                view.rootObject(), meta->method(meta->indexOfSignal(QMetaObject::normalizedSignature(
                                       "completion(QuorvaneSdkImageEditorResult)"))));
    }

    QQuickItem* find(const char* objectName) const
    {
        return view.rootObject()->findChild<QQuickItem*>(QString::fromLatin1(objectName));
    }

    QString text(const char* objectName) const { return find(objectName)->property("text").toString(); }

    void tap(const QQuickItem* item)
    {
        const QPointF centre = item->mapToScene(QPointF(item->width() / 2, item->height() / 2));
        QTest::mouseClick(&view, Qt::LeftButton, {}, centre.toPoint());
    }

    QuorvaneSdkImageEditorResult completion(int index) const
    {
        return completions->at(index).at(0).value<QuorvaneSdkImageEditorResult>();
    }

    QQuickView view;
    std::unique_ptr<QSignalSpy> completions;
};

} // namespace

class tst_QuorvaneSdkImageEditorView : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

    void unloadableImage_showsTheAlert()
    {
        Screen screen(
            QuorvaneSdkImageEditorPreset(QUrl::fromLocalFile(QStringLiteral("/no/such/photo.jpg"))));
        QVERIFY(screen.view.rootObject());
        QVERIFY(QTest::qWaitForWindowExposed(&screen.view));

        QVERIFY(screen.find("alert"));
        QVERIFY(screen.find("alert")->isVisible());
        QCOMPARE(screen.text("alertTitle"), QStringLiteral("Sorry"));
        QCOMPARE(screen.text("alertMessage"), QStringLiteral("Could not preview input image."));
        QVERIFY(!screen.find("currentImage"));
        const QImage grab = screen.view.grabWindow();
        QCOMPARE(grab.pixelColor(5, 5), QColor(Qt::black));
    }

    void accept_completesOnceWithAnEmptyResult()
    {
        Screen screen(QuorvaneSdkImageEditorPreset(QImage(), QuorvaneSdkImageOutputFormat::png(),
                                                   std::nullopt, std::nullopt));
        QVERIFY(QTest::qWaitForWindowExposed(&screen.view));
        QVERIFY(screen.completions && screen.completions->isValid());

        screen.tap(screen.find("acceptButton"));

        QCOMPARE(screen.completions->count(), 1);
        const QuorvaneSdkImageEditorResult result = screen.completion(0);
        QVERIFY(!result.editedImage());
        QVERIFY(!result.editedImageURL());
    }

    void tapOutsideTheAlert_doesNothing()
    {
        Screen screen(QuorvaneSdkImageEditorPreset(QImage(), QuorvaneSdkImageOutputFormat::png(),
                                                   std::nullopt, std::nullopt));
        QVERIFY(QTest::qWaitForWindowExposed(&screen.view));
        QTest::mouseClick(&screen.view, Qt::LeftButton, {}, QPoint(20, 20));
        QCOMPARE(screen.completions->count(), 0);
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
        Screen screen(QuorvaneSdkImageEditorPreset(QUrl::fromLocalFile(TestImages::photoPath())), windowSize);
        QVERIFY(QTest::qWaitForWindowExposed(&screen.view));

        auto* preview = qobject_cast<ImagePreview*>(screen.find("currentImage"));
        QVERIFY(preview);
        QVERIFY(!screen.find("alert"));
        QTRY_VERIFY(!preview->previewPixelSize().isEmpty());
        const QRectF painted = preview->paintedRect();
        QCOMPARE(painted.width(), qreal(windowSize.width()));
        QCOMPARE(painted.height(), windowSize.width() * 3168.0 / 4224.0);
        QVERIFY(preview->previewPixelSize().width() <= windowSize.width());
        QCOMPARE(log.lines(),
                 QStringList{QStringLiteral("QuorvaneSdkImageEditorViewModel: initialize image editor")});
    }

    void presenter_closesItsWindowBeforeReportingOnce()
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
