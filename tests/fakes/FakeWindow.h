#pragma once

#include "platform/Controls.h"
#include "platform/Window.h"
#include "platform/WindowManager.h"
#include "tests/fakes/FakeFaults.h"
#include "tests/fakes/FakeFocus.h"

#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

/// A window without a screen.
class FakeWindow : public Window {
public:
    /// Every caption that differed from the one before, in order.
    QStringList Captions;
    std::vector<MousePointer> MousePointers;
    int RefreshCount = 0;
    int ShowCount = 0;
    int ShowModalCount = 0;
    int HideCount = 0;
    bool Visible = false;
    /// Closed by Unload or by the user; showing the window opens it again.
    bool Closed = false;

    /// What the user does with the window while it is shown modally. When the script leaves it
    /// open, the user closes it.
    std::function<void()> ModalScript;
    /// Width of a UTF-16 code unit in twips.
    double CharacterWidth = 100;
    /// The smallest size that the user can drag the window to; a program is not bound by it.
    double MinimumWidth = 0;
    double MinimumHeight = 0;
    /// The size of the maximised window.
    double MaximizedWidth = 28800;
    double MaximizedHeight = 16200;

    WindowHandle Handle() const override { return m_handle; }
    QString Caption() const override { return m_caption; }
    void SetCaption(const QString& caption) override;

    WindowState State() const override { return m_state; }
    void SetState(WindowState state) override;

    double Left() const override;
    double Top() const override;
    double Width() const override;
    double Height() const override;
    void MoveTo(double left, double top) override;
    void SetSize(double width, double height) override;
    void SetMinimumSize(double width, double height) override;

    void Show() override;
    /// Throws std::logic_error when the window stands open for ever.
    void ShowModal() override;
    void Hide() override;
    void Unload() override { Close(UnloadMode::Program); }

    void Refresh() override {
        FakeFaults::Call();
        ++RefreshCount;
    }
    void SetMousePointer(MousePointer pointer) override {
        FakeFaults::Call();
        MousePointers.push_back(pointer);
    }
    double TextWidth(const QString& text) override { return double(text.size()) * CharacterWidth; }

    /// The pointer set last.
    MousePointer Pointer() const;

    /// Closes the window by its close box; it stays open when QueryUnload cancels.
    void UserClose() { Close(UnloadMode::User); }
    /// Drags the border; raises Resize when the size changes.
    void UserResize(double width, double height) { SetSize(width, height); }

private:
    WindowHandle m_handle = FakeFocus::NewHandle();
    QString m_caption;
    WindowState m_state = WindowState::Normal;
    double m_left = 0;
    double m_top = 0;
    double m_width = 12000;
    double m_height = 9000;

    bool Maximized() const { return m_state == WindowState::Maximized; }
    void Close(UnloadMode mode);
};

/// A screen of 1920 by 1080 pixels.
class FakeWindowManager : public WindowManager {
public:
    WindowHandle ActiveWindow = 0;
    std::shared_ptr<FakeFocus> Focus;
    /// The windows flashed, in order.
    std::vector<WindowHandle> Flashed;
    ScreenArea Work = {0, 0, 28800, 16200};
    ScreenArea Screens = Work;
    double TwipsPerPixel[2] = {15, 15};

    explicit FakeWindowManager(std::shared_ptr<FakeFocus> focus = std::make_shared<FakeFocus>())
        : Focus(std::move(focus)) {}

    WindowHandle GetActiveWindow() override { return ActiveWindow; }
    void FlashWindow(WindowHandle window) override { Flashed.push_back(window); }
    WindowHandle GetFocus() override { return Focus->Current(); }
    ScreenArea WorkArea() override { return Work; }
    ScreenArea AllScreens() override { return Screens; }
    double TwipsPerPixelX() override { return TwipsPerPixel[0]; }
    double TwipsPerPixelY() override { return TwipsPerPixel[1]; }
};
