#pragma once

#include "platform/WindowManager.h"

/// The windows of this program and the primary screen.
class QtWindowManager : public WindowManager {
public:
    WindowHandle GetActiveWindow() override;
    void FlashWindow(WindowHandle window) override;
    WindowHandle GetFocus() override;

    /// The size of the primary screen without what the desktop keeps for its bars.
    double ScreenWidth() override;
    double ScreenHeight() override;
    double TwipsPerPixelX() override;
    double TwipsPerPixelY() override;
};
