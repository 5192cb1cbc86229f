#include "ToolPageViewModel.h"

#include <QPointer>

ToolPageViewModel::ToolPageViewModel(ReturnAction returnAction, QObject* parent)
    : QObject(parent)
    , m_returnAction(std::move(returnAction))
{}

void ToolPageViewModel::undoLastAction()
{
    if (m_trackedActions.isEmpty())
        return;
    const TrackedAction last = m_trackedActions.takeLast();
    last.undo();
    emit trackedActionsChanged();
}

void ToolPageViewModel::cancel()
{
    if (canLeave())
        leave(std::nullopt);
}

void ToolPageViewModel::accept()
{
    // Checked before result(): a crop or a flattening is not worth making for a second tap.
    if (canLeave() && canAccept() && !m_hasReturned)
        leave(result());
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
