#include "ToolPageViewModel.h"

#include "Helpers/BackgroundWork.h"

#include <QPointer>

ToolPageViewModel::ToolPageViewModel(ReturnAction returnAction, QObject* parent)
    : QObject(parent)
    , m_returnAction(std::move(returnAction))
{}

void ToolPageViewModel::undoLastAction()
{
    if (m_trackedActions.isEmpty() || m_isWorking)
        return;
    const TrackedAction last = m_trackedActions.takeLast();
    last.undo();
    emit trackedActionsChanged();
}

void ToolPageViewModel::cancel()
{
    if (canLeave() && !m_isWorking)
        leave(std::nullopt);
}

void ToolPageViewModel::accept()
{
    // Checked before result(): a crop or a flattening is not worth making for a second tap.
    if (canLeave() && canAccept() && !m_hasReturned && !m_isWorking) {
        m_acceptedStep = recipeStep();
        leave(result());
    }
}

void ToolPageViewModel::acceptInBackground()
{
    if (!canLeave() || !canAccept() || m_hasReturned || m_isWorking)
        return;
    m_acceptedStep = recipeStep();
    ResultJob job = resultJob();
    if (!job) {
        leave(result());
        return;
    }
    m_isWorking = true;
    emit isWorkingChanged();
    runInBackground<std::optional<QImage>>(this, std::move(job), [this](std::optional<QImage> image) {
        resultJobFinished();
        m_isWorking = false;
        emit isWorkingChanged();
        leave(std::move(image));
    });
}

void ToolPageViewModel::track(std::function<void()> undo)
{
    QPointer<ToolPageViewModel> self(this);
    m_trackedActions.append(TrackedAction{[self, undo = std::move(undo)] {
        if (self)
            undo();
    }});
    emit trackedActionsChanged();
}

void ToolPageViewModel::leave(std::optional<QImage> image)
{
    if (m_hasReturned)
        return;
    m_hasReturned = true;
    if (m_returnAction)
        m_returnAction(std::move(image));
}
