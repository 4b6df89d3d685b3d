#pragma once

#include "platform/Window.h"
#include "platform/qt/TopLevel.h"

#include <QElapsedTimer>
#include <QPointer>

/// A top-level window, hidden at first.
class QtWindow : public Window {
public:
    /// A window with an owner stays above it and goes with it (under X11 only if it is a dialog),
    /// and lies on its screen with all that fits there whenever it is shown or the program sizes
    /// it.
    QtWindow(QWidget* owner, const QString& name, Qt::WindowFlags flags = Qt::Window);
    ~QtWindow() override;
    QtWindow(const QtWindow&) = delete;
    QtWindow& operator=(const QtWindow&) = delete;

    /// For the window's builder: parent of the controls.
    QWidget* Widget() const { return m_widget; }

    WindowHandle Handle() const override;
    QString Caption() const override { return m_caption; }
    void SetCaption(const QString& caption) override;

    WindowState State() const override;
    void SetState(WindowState state) override;

    double Left() const override;
    double Top() const override;
    double Width() const override;
    double Height() const override;
    void MoveTo(double left, double top) override;
    /// A window that is not normal takes the size when it is normal again.
    void SetSize(double width, double height) override;
    void SetMinimumSize(double width, double height) override;

    void Show() override;
    void ShowModal() override;
    void Hide() override;
    void Unload() override;

    /// At most about 60 times a second, which is all that can be seen: more calls do nothing.
    void Refresh() override;
    void SetMousePointer(MousePointer pointer) override;
    double TextWidth(const QString& text) override;

private:
    QPointer<TopLevel> m_widget;
    QString m_caption;
    /// What was set, in twips, valid as long as the window has the pixels that belong to it.
    double m_left = 0, m_top = 0, m_width = 0, m_height = 0;
    /// The size waits for the window to become normal.
    bool m_sizeWaits = false;
    /// The window was given a place, by MoveTo or when it was first shown.
    bool m_placed = false;
    int m_resizes = 0;
    bool m_unloading = false;
    bool m_hourglass = false;
    bool m_waitedForScreen = false;
    QElapsedTimer m_sinceRefresh;

    void Listen();
    QSize SetPixels() const;
    void TakeSetSize();
    void StateChanged();
    void RaiseResize();
    bool MayClose();
    void WaitForScreen();
    QSize PixelsWithFrame() const;
    void PlaceOverOwner();
    void KeepOnScreen();
};
