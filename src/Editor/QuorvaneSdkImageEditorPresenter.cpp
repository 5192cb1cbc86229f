#include "QuorvaneSdkImageEditorPresenter.h"

#include <QGuiApplication>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>
#include <QScreen>

namespace {

// Receives the screen's completion signal, which QML declares and C++ can only reach through a slot.
class CompletionRelay : public QObject
{
    Q_OBJECT

public:
    CompletionRelay(QQuickView* view, std::function<void(const QuorvaneSdkImageEditorResult&)> onComplete)
        : QObject(view)
        , m_view(view)
        , m_onComplete(std::move(onComplete))
    {}

public slots:
    void completed(const QuorvaneSdkImageEditorResult& result)
    {
        m_view->close();
        if (m_onComplete)
            m_onComplete(result);
        m_view->deleteLater();
    }

private:
    QQuickView* m_view;
    std::function<void(const QuorvaneSdkImageEditorResult&)> m_onComplete;
};

} // namespace

QQuickView*
presentQuorvaneSdkImageEditorView(const QuorvaneSdkImageEditorPreset& preset,
                                  std::function<void(const QuorvaneSdkImageEditorResult&)> onComplete,
                                  QWindow* transientParent)
{
    auto* view = new QQuickView;
    view->setTransientParent(transientParent);
    view->engine()->addImportPath(QStringLiteral("qrc:/qt/qml"));
    view->setInitialProperties({{QStringLiteral("preset"), QVariant::fromValue(preset)}});
    view->setResizeMode(QQuickView::SizeRootObjectToView);
    view->setSource(
        QUrl(QStringLiteral("qrc:/qt/qml/Quorvane/SdkImage/Editor/QuorvaneSdkImageEditorView.qml")));
    if (!view->rootObject()) {
        qCritical("The Quorvane.SdkImage QML module is not linked: add "
                  "Q_IMPORT_QML_PLUGIN(Quorvane_SdkImagePlugin).");
        delete view;
        return nullptr;
    }
    auto* relay = new CompletionRelay(view, std::move(onComplete));
    QObject::connect(view->rootObject(), SIGNAL(completion(QuorvaneSdkImageEditorResult)), relay,
                     SLOT(completed(QuorvaneSdkImageEditorResult)));
    // Without a window manager that honours full screen (embedded devices, kiosks) the request alone leaves
    // the window at its default size: ask for the screen's whole area as well.
    QScreen* screen = transientParent ? transientParent->screen() : QGuiApplication::primaryScreen();
    if (screen) {
        view->setScreen(screen);
        view->setGeometry(screen->geometry());
    }
    view->showFullScreen();
    return view;
}

#include "QuorvaneSdkImageEditorPresenter.moc"
