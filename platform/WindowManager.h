#pragma once

#include <QtGlobal>

/// Identifies a window or a control; 0 stands for none.
using WindowHandle = quintptr;

/// A part of the desktop, in twips.
struct ScreenArea {
    double Left = 0, Top = 0, Width = 0, Height = 0;
};

/// The screens and the windows on them. Lengths are in twips.
class WindowManager {
public:
    virtual ~WindowManager() = default;

    /// The active top-level window of this program, 0 when another program is active.
    virtual WindowHandle GetActiveWindow() = 0;
    /// Draws the user's attention to a window once.
    virtual void FlashWindow(WindowHandle window) = 0;
    /// The control that has the keyboard focus, 0 when none has.
    virtual WindowHandle GetFocus() = 0;

    /// The primary screen without the desktop's panels.
    virtual ScreenArea WorkArea() = 0;
    /// The rectangle around all screens.
    virtual ScreenArea AllScreens() = 0;
    virtual double TwipsPerPixelX() = 0;
    virtual double TwipsPerPixelY() = 0;
};

/// Flashes `window` once if the user is working elsewhere.
inline void FlashUnlessActive(WindowManager& windowManager, WindowHandle window) {
    if (windowManager.GetActiveWindow() != window) {
        windowManager.FlashWindow(window);
    }
}
