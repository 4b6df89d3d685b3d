#pragma once

#include "platform/WindowManager.h"

/// The windows of this program and the screens.
class QtWindowManager : public WindowManager {
public:
    WindowHandle GetActiveWindow() override;
    void FlashWindow(WindowHandle window) override;
    WindowHandle GetFocus() override;

    ScreenArea WorkArea() override;
    ScreenArea AllScreens() override;
    double TwipsPerPixelX() override;
    double TwipsPerPixelY() override;
};
