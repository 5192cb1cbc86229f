#pragma once

#include "Recipe/EditRecipe.h"
#include "TrackedAction.h"

#include <QImage>
#include <QList>
#include <QObject>
#include <QtQml/qqmlregistration.h>
#include <functional>
#include <optional>

/// What every tool page shares: it hands its result back once, through the callback it was made with (an
/// image to accept, none to leave without change), and it keeps an undo list of tracked actions, oldest
/// first.
class ToolPageViewModel : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The editor creates tool pages.")
    Q_PROPERTY(int trackedActionCount READ trackedActionCount NOTIFY trackedActionsChanged)
    Q_PROPERTY(bool hasTrackedActions READ hasTrackedActions NOTIFY trackedActionsChanged)
    /// The page's result is being made on another thread: the page takes no command until it is handed back.
    Q_PROPERTY(bool isWorking READ isWorking NOTIFY isWorkingChanged)

public:
    using ReturnAction = std::function<void(std::optional<QImage>)>;

    const QList<TrackedAction>& trackedActions() const { return m_trackedActions; }
    int trackedActionCount() const { return int(m_trackedActions.size()); }
    bool hasTrackedActions() const { return !m_trackedActions.isEmpty(); }
    bool hasReturned() const { return m_hasReturned; }
    bool isWorking() const { return m_isWorking; }
    /// What the accepted result did, as a recipe's step; none before accepting, or when the page cannot say.
    const std::optional<EditRecipe::Step>& acceptedStep() const { return m_acceptedStep; }

    /// Runs the last tracked action's undo and removes it; nothing without one. A page with a history of its
    /// own (the canvas) overrides it and records no tracked actions.
    Q_INVOKABLE virtual void undoLastAction();
    /// "CANCEL": leaves with nothing, when the page may be left.
    Q_INVOKABLE void cancel();
    /// "ACCEPT": leaves with the page's result, when the page allows it.
    Q_INVOKABLE void accept();
    /// accept() for screens: the result is made off the GUI thread, so the screen keeps drawing and shows
    /// progress; the same result is handed back the same way once it is ready.
    Q_INVOKABLE void acceptInBackground();

signals:
    void trackedActionsChanged();
    void isWorkingChanged();

protected:
    explicit ToolPageViewModel(ReturnAction returnAction, QObject* parent = nullptr);

    /// Not while an edit is under way.
    virtual bool canLeave() const { return true; }
    virtual bool canAccept() const { return true; }
    /// What accept() hands back; none leaves the editor's image as it is.
    virtual std::optional<QImage> result() { return std::nullopt; }
    using ResultJob = std::function<std::optional<QImage>()>;
    /// result() as a job that owns copies of all it reads, runnable on any thread; none when the page's
    /// result is cheap (or tied to this thread) and is made by result() instead.
    virtual ResultJob resultJob() { return {}; }
    /// Once the job's result is back, before it is handed on.
    virtual void resultJobFinished() {}
    /// What result() will do, as a recipe's step, asked just before it.
    virtual std::optional<EditRecipe::Step> recipeStep() const { return std::nullopt; }

    /// Records an edit; \a undo reverses it, and runs only while the page exists.
    void track(std::function<void()> undo);
    /// Hands \a image back. A page is left once: a second tap while the editor switches pages is ignored.
    void leave(std::optional<QImage> image);

private:
    ReturnAction m_returnAction;
    QList<TrackedAction> m_trackedActions;
    bool m_hasReturned = false;
    bool m_isWorking = false;
    std::optional<EditRecipe::Step> m_acceptedStep;
};
