#pragma once

#include <functional>

/// One undoable user edit: `action` reverses it.
struct TrackedAction
{
    std::function<void()> action;

    void undo() const
    {
        if (action)
            action();
    }
};
