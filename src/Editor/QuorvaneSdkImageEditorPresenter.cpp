#include "QuorvaneSdkImageEditorPresenter.h"

#include "Editor/Helpers/ModuleResources.h"
#include "Logger/ModuleLog.h"
#include "QuorvaneSdkImageEditorViewModel.h"

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
        setSource(ModuleResources::url(QStringLiteral("Editor/QuorvaneSdkImageEditorView.qml")));
        if (QQuickItem* child = rootObject()) {
            m_session = child->property("viewModel").value<QuorvaneSdkImageEditorViewModel*>();
            if (m_session)
                connect(m_session, &QuorvaneSdkImageEditorViewModel::completion, this,
                        &QuorvaneSdkImageEditorViewController::completed);
        }
        reportContentOrientationChange(Qt::PortraitOrientation);
    }

    bool hasChild() const { return m_session != nullptr; }

    void setOnComplete(std::function<void(const QuorvaneSdkImageEditorResult&)> onComplete)
    {
        m_onComplete = std::move(onComplete);
    }

    /// Slides the editor down and closes the window, then runs \a completion; the window is deleted after.
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
            // The host's code may run an event loop of its own: nothing of ours is touched after it.
            const auto done = completion;
            close();
            deleteLater();
            if (done)
                done();
        });
        slide->start(QAbstractAnimation::DeleteWhenStopped);
    }

protected:
    bool event(QEvent* event) override
    {
        // Closed by the window system (a close button, Alt+F4): the user left without an image.
        if (event->type() == QEvent::Close && !m_dismissing) {
            event->ignore();
            completed(QuorvaneSdkImageEditorResult());
            return true;
        }
        return QQuickView::event(event);
    }

private:
    void completed(const QuorvaneSdkImageEditorResult& result)
    {
        if (m_onComplete && !m_dismissing)
            m_onComplete(result);
    }

    QPointer<QuorvaneSdkImageEditorViewModel> m_session;
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
    const auto hostIsThere = [presenter, hasPresenter] { return presenter || !hasPresenter; };
    // The editor holds this callback, so it is there whenever the callback runs.
    QuorvaneSdkImageEditorViewController* editor = controller;
    controller->setOnComplete([hostIsThere, editor, onComplete = std::move(onComplete)](
                                  const QuorvaneSdkImageEditorResult& result) {
        if (!hostIsThere()) {
            editor->deleteLater();
            return;
        }
        // The host may go while the editor slides away: it is asked again at the end.
        editor->dismiss([hostIsThere, onComplete, result] {
            if (onComplete && hostIsThere())
                onComplete(result);
        });
    });
    if (host) {
        controller->setTransientParent(host);
        controller->setModality(Qt::WindowModal);
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
