#pragma once

#include <QtGlobal>

/// The user interface's event loop, as long work sees it.
class EventLoop {
public:
    virtual ~EventLoop() = default;

    /// Begins work that usually ends quickly: the time until the first yield takes effect counts
    /// from here. What the work shows in the window is not seen if it ends sooner.
    virtual void BeginWork() = 0;
    /// Lets the window handle what the user has done, then returns. Cheap when called more often
    /// than a person can act.
    virtual void Yield() = 0;
    /// How many milliseconds from now yields do nothing.
    virtual qint64 MillisecondsToYield() const = 0;
    /// Lets the window be painted and answer the desktop during work that must not be disturbed:
    /// what the user does is lost, and only handlers of the window's size run. False once the user
    /// has closed the window, which then closes after that work.
    virtual bool YieldHoldingInput() = 0;
};
