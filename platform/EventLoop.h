#pragma once

/// The user interface's event loop, as long work sees it.
class EventLoop {
public:
    virtual ~EventLoop() = default;

    /// Work begins that is mostly done at once: the yields count from here. What it shows of itself
    /// in the window is not seen when it is done before the first one is due.
    virtual void BeginWork() = 0;
    /// Lets the window handle what the user did meanwhile, then returns. Costs next to nothing when
    /// called more often than a person can act.
    virtual void Yield() = 0;
    /// Lets the window be painted and answer the desktop while work goes on that nothing may
    /// disturb: what the user does is lost, and no handler runs but those of the window's size.
    /// False once the user has closed the window, which closes behind that work.
    virtual bool YieldHoldingInput() = 0;
};
