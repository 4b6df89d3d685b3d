#pragma once

#include "platform/Window.h"
#include "platform/qt/TopLevel.h"

#include <QElapsedTimer>
#include <QPointer>

/// A top-level window, hidden at first.
class QtWindow : public Window {
public:
    /// A window with an owner stays above it and is minimised with it (under X11 only if it is a
    /// dialog). Whenever it is shown, or sized by the program, it is moved onto its screen, as far
    /// as it fits.
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
    /// A window that is minimised or maximised takes the size once it is normal again.
    void SetSize(double width, double height) override;
    void SetMinimumSize(double width, double height) override;

    void Show() override;
    void ShowModal() override;
    void Hide() override;
    void Unload() override;

    /// Paints at most about 60 times a second, which is all that can be seen; other calls do
    /// nothing.
    void Refresh() override;
    void SetMousePointer(MousePointer pointer) override;
    double TextWidth(const QString& text) override;

private:
    QPointer<TopLevel> m_widget;
    QString m_caption;
    /// The values that were set, in twips. They hold while the window has the pixels that they
    /// stand for.
    double m_left = 0, m_top = 0, m_width = 0, m_height = 0;
    /// A size was set that the window will take once it is normal.
    bool m_sizeWaits = false;
    /// The window has a place, from MoveTo or since it was first shown.
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
