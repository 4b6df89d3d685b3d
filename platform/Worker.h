#pragma once

#include <functional>

/// Does what can take long (a device that reads slowly, or not at all) away from the thread that
/// waits for it, so that the waiting thread can look after the window meanwhile.
///
/// Work that does not come back is given up: it goes on alone, for as long as the device lets it
/// hang, while the caller is long elsewhere. Whatever it uses must therefore belong to it or be
/// shared with it, and before it changes anything for good it must ask whether it still may.
class Worker {
public:
    virtual ~Worker() = default;

    /// Does `work` and waits for its end; what it throws is thrown here. Meanwhile `mayGoOn` is
    /// called on the caller's thread, the first time after some 10 milliseconds and then as often
    /// again. Once it returns false it is not called any more: the work is given a moment to end.
    /// True when the work has ended, false when it was given up. Where `mayGoOn` throws, the work
    /// is given up and the exception passes on. Not to be called from within `mayGoOn`.
    virtual bool Do(std::function<void()> work, const std::function<bool()>& mayGoOn) = 0;

    /// Does `work` behind what was asked for before; nobody waits for it. It throws nothing.
    virtual void DoLater(std::function<void()> work) = 0;
};
