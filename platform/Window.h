#pragma once

#include "platform/WindowManager.h"

#include <QString>

#include <functional>

enum class WindowState { Normal, Minimized, Maximized };
enum class MousePointer { Default, Hourglass };
/// Who asked for a window to close.
enum class UnloadMode { User, Program };

/// A top-level window, in twips. Its position is that of the frame's corner. Its size is that of
/// the inside, which belongs to the program; border and title bar belong to the desktop.
class Window {
public:
    virtual ~Window() = default;

    /// Raised when the size or the state has changed.
    std::function<void()> Resize;
    /// Raised before the window closes; setting `cancel` keeps it open.
    std::function<void(bool& cancel, UnloadMode mode)> QueryUnload;

    virtual WindowHandle Handle() const = 0;
    virtual QString Caption() const = 0;
    virtual void SetCaption(const QString& caption) = 0;

    virtual WindowState State() const = 0;
    virtual void SetState(WindowState state) = 0;
    bool Minimized() const { return State() == WindowState::Minimized; }

    virtual double Left() const = 0;
    virtual double Top() const = 0;
    virtual double Width() const = 0;
    virtual double Height() const = 0;
    virtual void MoveTo(double left, double top) = 0;
    virtual void SetSize(double width, double height) = 0;

    /// Keeps the user from making the window smaller than this.
    virtual void SetMinimumSize(double width, double height) = 0;

    virtual void Show() = 0;
    /// Shows the window over the others and waits until it is closed.
    virtual void ShowModal() = 0;
    virtual void Hide() = 0;
    /// Closes the window on behalf of the program (UnloadMode::Program).
    virtual void Unload() = 0;

    /// Paints pending changes at once.
    virtual void Refresh() = 0;
    virtual void SetMousePointer(MousePointer pointer) = 0;
    /// Width of a text in the window's font.
    virtual double TextWidth(const QString& text) = 0;
};
