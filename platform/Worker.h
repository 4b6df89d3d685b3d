#pragma once

#include <functional>

/// Does work that can take long (with a device that reads slowly, or not at all) away from the
/// thread that waits for it, so that the waiting thread can keep the window alive meanwhile.
///
/// Work that does not return is given up: it goes on alone for as long as the device lets it hang,
/// while its caller does other things. Therefore it must own, or share, everything that it uses,
/// and must ask whether it still may before it makes a lasting change.
class Worker {
public:
    virtual ~Worker() = default;

    /// Does `work` and waits for its end; what it throws is thrown here. Meanwhile `mayGoOn` is
    /// called on the caller's thread about every 10 milliseconds. Once it returns false it is not
    /// called any more, and the work is given a moment to end. True when the work has ended, false
    /// when it was given up. Where `mayGoOn` throws, the work is given up and the exception passes
    /// on. Must not be called from within `mayGoOn`.
    virtual bool Do(std::function<void()> work, const std::function<bool()>& mayGoOn) = 0;

    /// Does `work` after all that was asked for before; nobody waits for it. It must not throw.
    virtual void DoLater(std::function<void()> work) = 0;
};
