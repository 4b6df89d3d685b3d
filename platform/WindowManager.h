#pragma once

#include <QtGlobal>

/// Names a window or a control to the window manager; 0 names none.
using WindowHandle = quintptr;

/// The screen and the windows on it. Lengths are in twips.
class WindowManager {
public:
    virtual ~WindowManager() = default;

    /// The active top-level window of this program, 0 when another program is active.
    virtual WindowHandle GetActiveWindow() = 0;
    /// Draws the user's attention to a window once.
    virtual void FlashWindow(WindowHandle window) = 0;
    /// The control that has the keyboard focus, 0 when none has.
    virtual WindowHandle GetFocus() = 0;

    virtual double ScreenWidth() = 0;
    virtual double ScreenHeight() = 0;
    virtual double TwipsPerPixelX() = 0;
    virtual double TwipsPerPixelY() = 0;
};

/// Flashes `window` once if the user is working elsewhere.
inline void FlashUnlessActive(WindowManager& windowManager, WindowHandle window) {
    if (windowManager.GetActiveWindow() != window) {
        windowManager.FlashWindow(window);
    }
}
