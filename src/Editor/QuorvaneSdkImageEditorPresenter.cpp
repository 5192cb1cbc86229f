#include "QuorvaneSdkImageEditorPresenter.h"

#include "ModuleLog.h"

#include <QGuiApplication>
#include <QPointer>
#include <QPropertyAnimation>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>
#include <QScreen>

namespace {

constexpr int kDismissMilliseconds = 250;

// A window of its own holding one editor screen, which follows every size the window takes.
class QuorvaneSdkImageEditorViewController final : public QQuickView
{
    Q_OBJECT

public:
    explicit QuorvaneSdkImageEditorViewController(const QuorvaneSdkImageEditorPreset& preset)
    {
        setInitialProperties({{QStringLiteral("preset"), QVariant::fromValue(preset)}});
        setResizeMode(QQuickView::SizeRootObjectToView);
        setColor(Qt::black);
        setSource(QUrl(QStringLiteral(
            "qrc:/qt-project.org/imports/Quorvane/SdkImage/Editor/QuorvaneSdkImageEditorView.qml")));
        if (QQuickItem* child = rootObject())
            connect(child, SIGNAL(completion(QuorvaneSdkImageEditorResult)), this,
                    SLOT(completed(QuorvaneSdkImageEditorResult)));
        reportContentOrientationChange(Qt::PortraitOrientation);
    }

    bool hasChild() const { return rootObject() != nullptr; }

    void setOnComplete(std::function<void(const QuorvaneSdkImageEditorResult&)> onComplete)
    {
        m_onComplete = std::move(onComplete);
    }

    /// Slides the editor down and closes the window, then runs \a completion and deletes the window.
    void dismiss(std::function<void()> completion)
    {
        QQuickItem* child = rootObject();
        if (m_dismissing || !child)
            return;
        m_dismissing = true;
        child->setEnabled(false);
        auto* slide = new QPropertyAnimation(child, "y", this);
        slide->setDuration(kDismissMilliseconds);
        slide->setEndValue(height());
        slide->setEasingCurve(QEasingCurve::InCubic);
        connect(slide, &QPropertyAnimation::finished, this, [this, completion = std::move(completion)] {
            close();
            if (completion)
                completion();
            deleteLater();
        });
        slide->start(QAbstractAnimation::DeleteWhenStopped);
    }

private slots:
    void completed(const QuorvaneSdkImageEditorResult& result)
    {
        if (m_onComplete)
            m_onComplete(result);
    }

private:
    std::function<void(const QuorvaneSdkImageEditorResult&)> m_onComplete;
    bool m_dismissing = false;
};

} // namespace

QQuickWindow*
presentQuorvaneSdkImageEditorView(QWindow* host, const QuorvaneSdkImageEditorPreset& preset,
                                  std::function<void(const QuorvaneSdkImageEditorResult&)> onComplete)
{
    const QPointer<QWindow> presenter(host);
    const bool hasPresenter = host != nullptr;
    auto* controller = new QuorvaneSdkImageEditorViewController(preset);
    if (!controller->hasChild()) {
        qCCritical(quorvaneSdkImage, "The editor screen could not be loaded: %s",
                   qPrintable(controller->errors().value(0).toString()));
        delete controller;
        return nullptr;
    }
    const QPointer<QuorvaneSdkImageEditorViewController> editor(controller);
    controller->setOnComplete([presenter, hasPresenter, editor, onComplete = std::move(onComplete)](
                                  const QuorvaneSdkImageEditorResult& result) {
        if (!editor || (hasPresenter && !presenter))
            return;
        editor->dismiss([onComplete, result] {
            if (onComplete)
                onComplete(result);
        });
    });
    if (host) {
        controller->setTransientParent(host);
        // An editor left above a window that is gone could only drop its result: it goes with its host.
        QObject::connect(host, &QObject::destroyed, controller, &QObject::deleteLater);
    }
    // Without a window manager that honours full screen (embedded devices, kiosks) the request alone leaves
    // the window at its default size: ask for the screen's whole area as well.
    if (QScreen* screen = host ? host->screen() : QGuiApplication::primaryScreen()) {
        controller->setScreen(screen);
        controller->setGeometry(screen->geometry());
    }
    controller->showFullScreen();
    return controller;
}

#include "QuorvaneSdkImageEditorPresenter.moc"
