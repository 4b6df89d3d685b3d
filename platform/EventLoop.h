#pragma once

/// The user interface's event loop, as long work sees it.
class EventLoop {
public:
    virtual ~EventLoop() = default;

    /// Lets the window handle what the user did meanwhile, then returns. Costs next to nothing when
    /// called more often than a person can act.
    virtual void Yield() = 0;
};
