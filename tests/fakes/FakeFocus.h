#pragma once

#include "platform/Controls.h"

/// Which control of a fake window has the keyboard focus. The controls of one window share one.
class FakeFocus {
public:
    /// The control that has the focus, 0 for none.
    WindowHandle Current() const { return m_current; }

    /// Gives the focus to `handle`; the control that had it hears `lost`, this one `got`. Both can
    /// read the new focus already. Nothing happens when it has the focus.
    void Give(WindowHandle handle, Event got, Event lost);
    /// Leaves nobody with the focus if `handle` has it.
    void TakeFrom(WindowHandle handle);
    /// TakeFrom for a control that is going away and hears nothing any more.
    void Forget(WindowHandle handle);

    /// A handle that no other fake window or control has.
    static WindowHandle NewHandle();

private:
    WindowHandle m_current = 0;
    Event m_lost;
};
